#include "MacPlatform.h"

#include "CFPreferencesDefaultsStore.h"
#include "MacGeocoder.h"
#include "MacLocationService.h"
#include "MacSystem.h"
#include "MacSystemProbe.h"
#include "SMAppServiceLoginItems.h"
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
    platform.preferredLanguages = MacSystem::preferredLanguages();
    platform.bundleIdentifier = MacSystem::bundleIdentifier();
    return platform;
}

} // namespace ravlin::macos
