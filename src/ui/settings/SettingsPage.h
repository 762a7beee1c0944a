#pragma once

#include "SettingsColumn.h"

namespace ravlin {

// The content of one tab of the settings window.
class SettingsPage : public SettingsColumn {
    Q_OBJECT
public:
    explicit SettingsPage(QWidget* parent = nullptr);

    // Re-reads every control's value (after a change made elsewhere).
    virtual void refresh() {}
    // The tab was brought to the front.
    virtual void activated() {}

Q_SIGNALS:
    // The page's rows changed, so its height may have.
    void contentChanged();
};

} // namespace ravlin
