#pragma once

#include <QStringList>

namespace ravlin::HideEngineBundleIDs {

// Owners the hide engine always lets through, whatever the user chose: the
// platform's own menu-bar agents...
inline const QStringList mandatory{
    QStringLiteral("com.apple.controlcenter"),
    QStringLiteral("com.apple.MenuBarAgent"),
    QStringLiteral("com.apple.systemuiserver"),
    QStringLiteral("com.apple.TextInputMenuAgent"),
    QStringLiteral("com.apple.wifi.WiFiAgent"),
    QStringLiteral("com.apple.ScreenTimeAgent"),
    QStringLiteral("com.apple.AirPlayUIAgent"),
    QStringLiteral("com.apple.UserNotificationCenter"),
    QStringLiteral("com.apple.notificationcenterui"),
    QStringLiteral("com.apple.loginwindow"),
};

// ...and the search and assistant owners.
inline const QStringList spotlight{
    QStringLiteral("com.apple.campo"),
    QStringLiteral("com.apple.Spotlight"),
    QStringLiteral("com.apple.Siri"),
};

inline QStringList alwaysAllowed()
{
    return mandatory + spotlight;
}

} // namespace ravlin::HideEngineBundleIDs
