#include "MacPlatform.h"

#include "CFPreferencesDefaultsStore.h"
#include "MacSystem.h"
#include "SMAppServiceLoginItems.h"

namespace ravlin::macos {

Platform makePlatform()
{
    Platform platform;
    platform.defaults = std::make_unique<CFPreferencesDefaultsStore>();
    platform.loginItems = std::make_unique<SMAppServiceLoginItems>();
    platform.preferredLanguages = MacSystem::preferredLanguages();
    platform.bundleIdentifier = MacSystem::bundleIdentifier();
    return platform;
}

} // namespace ravlin::macos
