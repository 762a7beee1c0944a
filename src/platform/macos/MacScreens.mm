// Built with automatic reference counting (see src/CMakeLists.txt).

#include "MacScreens.h"

#import <AppKit/AppKit.h>

#include <algorithm>

namespace ravlin {

namespace {

ScreenRect toRect(NSRect r)
{
    return {r.origin.x, r.origin.y, r.size.width, r.size.height};
}

// The camera housing lies between the two parts of the menu bar left free beside it
// (macOS 12 and later, which every supported system is). Only the areas' widths are used,
// measured from the display's edges, so their coordinate space does not matter.
std::optional<ScreenRect> notchOf(NSScreen* screen)
{
    const NSRect left = screen.auxiliaryTopLeftArea;
    const NSRect right = screen.auxiliaryTopRightArea;
    if (NSIsEmptyRect(left) || NSIsEmptyRect(right))
        return std::nullopt;
    const NSRect frame = screen.frame;
    const double width = frame.size.width - left.size.width - right.size.width;
    const double height = std::max({left.size.height, right.size.height,
                                    double(screen.safeAreaInsets.top)});
    if (width <= 0 || height <= 0)
        return std::nullopt;
    return ScreenRect{frame.origin.x + left.size.width, NSMaxY(frame) - height, width, height};
}

ScreenInfo describe(NSScreen* screen)
{
    return {toRect(screen.frame), toRect(screen.visibleFrame), notchOf(screen)};
}

} // namespace

struct MacScreens::Impl {
    id observer = nil;
};

MacScreens::MacScreens() : d(std::make_unique<Impl>())
{
    d->observer =
        [NSNotificationCenter.defaultCenter
            addObserverForName:NSApplicationDidChangeScreenParametersNotification
                        object:nil
                         queue:NSOperationQueue.mainQueue
                    usingBlock:^(NSNotification*) {
                      notifyChanged();
                    }];
}

MacScreens::~MacScreens()
{
    [NSNotificationCenter.defaultCenter removeObserver:d->observer];
}

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
