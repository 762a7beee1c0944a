#pragma once

#include <QString>

namespace ravlin {

class Accessibility;
class Permissions;
class Workspace;

// The two privacy permissions a menu-bar tool needs: screen recording for item
// images, accessibility for reading and pressing other applications' items.
// Every check asks the platform afresh; only the request operations prompt.
class PermissionManager {
public:
    static inline const QString screenRecordingSettingsURL = QStringLiteral(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_ScreenCapture");
    static inline const QString accessibilitySettingsURL = QStringLiteral(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility");
    static inline const QString locationSettingsURL = QStringLiteral(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_LocationServices");

    PermissionManager(Permissions& permissions, Accessibility& accessibility, Workspace& workspace);

    bool hasScreenRecording() const;
    bool requestScreenRecording();
    void openScreenRecordingSettings();

    bool hasAccessibility() const;
    bool requestAccessibility();
    void openAccessibilitySettings();

    // Location access is asked for by the weather; where the system no longer asks, the
    // person decides in the privacy settings.
    void openLocationSettings();

private:
    void openSettings(const QString& address);

    Permissions& m_permissions;
    Accessibility& m_accessibility;
    Workspace& m_workspace;
};

} // namespace ravlin
