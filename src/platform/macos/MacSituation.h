#pragma once

#include "platform/Situation.h"

#include <memory>

namespace ravlin {

// The Mac's situation as the system tells it: power-source and network changes through
// notify(3), the application in front and the clock through notifications, the Wi-Fi
// network's name through CoreWLAN (loaded when first asked), and the Focus records from the
// files the system keeps them in, watched for changes where the user lets Ravlin read them.
class MacSituation final : public Situation {
public:
    MacSituation();
    ~MacSituation() override;

    std::optional<QString> wifiNetworkName() override;
    std::optional<QString> frontmostApplication() override;
    std::optional<FocusRecords> focusRecords() override;
    QTimeZone timeZone() override;

private:
    // Starts watching the Focus records' folder; false while the system keeps it closed.
    bool watchFocusFolder();

    struct Impl;
    std::unique_ptr<Impl> m_impl;
};

} // namespace ravlin
