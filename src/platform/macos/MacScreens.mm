#include "MacScreens.h"

#import <AppKit/AppKit.h>

namespace ravlin {

namespace {

ScreenRect toRect(NSRect r)
{
    return {r.origin.x, r.origin.y, r.size.width, r.size.height};
}

ScreenInfo describe(NSScreen* screen)
{
    return {toRect(screen.frame), toRect(screen.visibleFrame)};
}

} // namespace

std::vector<ScreenInfo> MacScreens::screens()
{
    std::vector<ScreenInfo> result;
    for (NSScreen* screen in NSScreen.screens)
        result.push_back(describe(screen));
    return result;
}

std::optional<ScreenInfo> MacScreens::mainScreen()
{
    NSScreen* screen = NSScreen.mainScreen;
    if (!screen)
        return std::nullopt;
    return describe(screen);
}

ScreenPoint MacScreens::mouseLocation()
{
    const NSPoint p = NSEvent.mouseLocation;
    return {p.x, p.y};
}

} // namespace ravlin
