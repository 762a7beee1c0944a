#include "Platform.h"

#include "Accessibility.h"
#include "Appearance.h"
#include "ApplicationControl.h"
#include "AssessmentMode.h"
#include "EventMonitors.h"
#include "Events.h"
#include "HotKeys.h"
#include "LoginItems.h"
#include "MenuBarSpacing.h"
#include "Permissions.h"
#include "Screens.h"
#include "Situation.h"
#include "StatusBar.h"
#include "UnavailableServices.h"
#include "Updater.h"
#include "WindowServer.h"
#include "Workspace.h"
#include "foundation/DefaultsStore.h"

namespace ravlin {

Platform::Platform()
    : systemProbe(std::make_unique<UnavailableSystemProbe>()),
      location(std::make_unique<UnavailableLocationService>()),
      geocoder(std::make_unique<UnavailableGeocoder>()),
      http(std::make_unique<UnavailableHttpClient>())
{}

Platform::~Platform() = default;
Platform::Platform(Platform&&) noexcept = default;
Platform& Platform::operator=(Platform&&) noexcept = default;

QStringList Platform::missingMenuBarServices() const
{
    QStringList missing;
    if (!windowServer)
        missing << QStringLiteral("windowServer");
    if (!screens)
        missing << QStringLiteral("screens");
    if (!accessibility)
        missing << QStringLiteral("accessibility");
    if (!events)
        missing << QStringLiteral("events");
    if (!workspace)
        missing << QStringLiteral("workspace");
    if (!permissions)
        missing << QStringLiteral("permissions");

    return missing;
}

} // namespace ravlin
