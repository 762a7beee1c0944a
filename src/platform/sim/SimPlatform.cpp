#include "SimPlatform.h"

#include "SimAccessibility.h"
#include "SimDesktop.h"
#include "SimEvents.h"
#include "SimPermissions.h"
#include "SimScreens.h"
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
}

} // namespace ravlin
