#include "MacPlatform.h"

#include "CFPreferencesDefaultsStore.h"
#include "MacAccessibility.h"
#include "MacAppearance.h"
#include "MacApplicationControl.h"
#include "MacAssessmentMode.h"
#include "MacEventMonitors.h"
#include "MacEvents.h"
#include "MacGeocoder.h"
#include "MacHotKeys.h"
#include "MacLocationService.h"
#include "MacMenuBarSpacing.h"
#include "MacPermissions.h"
#include "MacScreens.h"
#include "MacSituation.h"
#include "MacStatusBar.h"
#include "MacSystem.h"
#include "MacSystemProbe.h"
#include "MacWindowServer.h"
#include "MacWorkspace.h"
#include "SMAppServiceLoginItems.h"
#include "SparkleUpdater.h"
#include "platform/qt/QtHttpClient.h"

namespace ravlin::macos {

Platform makePlatform(Scheduler& scheduler)
{
    Platform platform;
    platform.defaults = std::make_unique<CFPreferencesDefaultsStore>();
    platform.loginItems = std::make_unique<SMAppServiceLoginItems>();
    platform.systemProbe = std::make_unique<MacSystemProbe>();
    platform.location = std::make_unique<MacLocationService>();
    platform.geocoder = std::make_unique<MacGeocoder>();
    platform.http = std::make_unique<QtHttpClient>(scheduler);
    platform.windowServer = std::make_unique<MacWindowServer>();
    platform.screens = std::make_unique<MacScreens>();
    platform.accessibility = std::make_unique<MacAccessibility>();
    platform.events = std::make_unique<MacEvents>();
    platform.workspace = std::make_unique<MacWorkspace>();
    platform.permissions = std::make_unique<MacPermissions>();
    platform.statusBar = std::make_unique<MacStatusBar>();
    platform.eventMonitors = std::make_unique<MacEventMonitors>();
    platform.assessmentMode = std::make_unique<MacAssessmentMode>();
    platform.application = std::make_unique<MacApplicationControl>();
    platform.menuBarSpacing = std::make_unique<MacMenuBarSpacing>();
    platform.hotKeys = std::make_unique<MacHotKeys>();
    platform.updater = std::make_unique<SparkleUpdater>();
    platform.appearance = std::make_unique<MacAppearance>();
    platform.situation = std::make_unique<MacSituation>();
    platform.preferredLanguages = MacSystem::preferredLanguages();
    platform.bundleIdentifier = MacSystem::bundleIdentifier();
    return platform;
}

} // namespace ravlin::macos
