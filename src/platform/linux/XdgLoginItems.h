#pragma once

#include "platform/LoginItems.h"

namespace ravlin {

// The login item as an XDG autostart entry:
// $XDG_CONFIG_HOME/autostart/de.vexa.Ravlin.desktop, enabled unless Hidden=true.
class XdgLoginItems final : public LoginItems {
public:
    XdgLoginItems(QString executablePath, QString entryPath = defaultEntryPath());

    static QString defaultEntryPath();
    QString entryPath() const { return m_entryPath; }

    LoginItemStatus status() override;
    std::optional<QString> registerItem() override;
    std::optional<QString> unregisterItem() override;

private:
    QString m_executable;
    QString m_entryPath;
};

} // namespace ravlin
