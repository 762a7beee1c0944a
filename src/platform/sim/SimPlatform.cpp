#include "SimPlatform.h"

#include "SimAppearance.h"
#include "SimApplicationControl.h"
#include "SimAssessmentMode.h"
#include "SimEventMonitors.h"
#include "SimHotKeys.h"
#include "SimMenuBarSpacing.h"
#include "SimStatusBar.h"
#include "SimUpdater.h"
#include "platform/ApplicationControl.h"
#include "platform/AssessmentMode.h"
#include "platform/EventMonitors.h"
#include "platform/StatusBar.h"

#include "SimAccessibility.h"
#include "SimDesktop.h"
#include "SimEvents.h"
#include "SimPermissions.h"
#include "SimScreens.h"
#include "SimSituation.h"
#include "SimWindowServer.h"
#include "SimWorkspace.h"
#include "platform/Platform.h"

namespace ravlin {

void installSimServices(Platform& platform, SimDesktop& desktop)
{
    platform.windowServer = std::make_unique<SimWindowServer>(desktop);
    platform.screens = std::make_unique<SimScreens>(desktop);
    platform.accessibility = std::make_unique<SimAccessibility>(desktop);
    platform.events = std::make_unique<SimEvents>(desktop);
    platform.workspace = std::make_unique<SimWorkspace>(desktop);
    platform.permissions = std::make_unique<SimPermissions>(desktop);
    platform.bundleIdentifier = SimDesktop::ownBundleId;
    platform.appearance = std::make_unique<SimAppearance>();
    platform.situation = std::make_unique<SimSituation>();
}

void installSimBarServices(Platform& platform, SimDesktop& desktop, Scheduler& scheduler)
{
    platform.statusBar = std::make_unique<SimStatusBar>(desktop);
    platform.eventMonitors = std::make_unique<SimEventMonitors>();
    platform.assessmentMode = std::make_unique<SimAssessmentMode>(desktop, scheduler);
    platform.application = std::make_unique<SimApplicationControl>();
    platform.menuBarSpacing = std::make_unique<SimMenuBarSpacing>();
    platform.hotKeys = std::make_unique<SimHotKeys>();
    platform.updater = std::make_unique<SimUpdater>();
}

} // namespace ravlin
