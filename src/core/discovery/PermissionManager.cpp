#include "PermissionManager.h"

#include "foundation/Logging.h"
#include "platform/Accessibility.h"
#include "platform/Permissions.h"
#include "platform/Workspace.h"

#include <QUrl>

namespace ravlin {

PermissionManager::PermissionManager(Permissions& permissions, Accessibility& accessibility,
                                     Workspace& workspace)
    : m_permissions(permissions), m_accessibility(accessibility), m_workspace(workspace)
{}

bool PermissionManager::hasScreenRecording() const
{
    return m_permissions.preflightScreenCaptureAccess();
}

bool PermissionManager::requestScreenRecording()
{
    return m_permissions.requestScreenCaptureAccess();
}

void PermissionManager::openScreenRecordingSettings()
{
    openSettings(screenRecordingSettingsURL);
}

bool PermissionManager::hasAccessibility() const
{
    return m_accessibility.isProcessTrusted();
}

bool PermissionManager::requestAccessibility()
{
    return m_accessibility.isProcessTrustedWithPrompt();
}

void PermissionManager::openAccessibilitySettings()
{
    openSettings(accessibilitySettingsURL);
}

void PermissionManager::openLocationSettings()
{
    openSettings(locationSettingsURL);
}

void PermissionManager::openSettings(const QString& address)
{
    const QUrl url(address, QUrl::StrictMode);
    if (!url.isValid() || url.scheme().isEmpty()) {
        qCWarning(lcDiscovery) << "not a settings address:" << address;
        return;
    }
    m_workspace.openURL(address);
}

} // namespace ravlin
