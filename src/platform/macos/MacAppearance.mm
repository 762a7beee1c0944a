#include "MacAppearance.h"

#import <AppKit/AppKit.h>

namespace ravlin {

struct MacAppearance::Impl {
    id observer = nil;
};

MacAppearance::MacAppearance() : m_impl(std::make_unique<Impl>())
{
    // The notice comes before the application's effective appearance has changed: the
    // listeners are told on the next turn of the main queue, when it has.
    m_impl->observer = [NSDistributedNotificationCenter.defaultCenter
        addObserverForName:@"AppleInterfaceThemeChangedNotification"
                    object:nil
                     queue:NSOperationQueue.mainQueue
                usingBlock:^(NSNotification*) {
                  dispatch_async(dispatch_get_main_queue(), ^{
                    announce();
                  });
                }];
}

MacAppearance::~MacAppearance()
{
    if (m_impl->observer)
        [NSDistributedNotificationCenter.defaultCenter removeObserver:m_impl->observer];
}

bool MacAppearance::isDark() const
{
    NSAppearance* appearance =
        NSApp ? NSApp.effectiveAppearance : NSAppearance.currentDrawingAppearance;
    NSAppearanceName best = [appearance
        bestMatchFromAppearancesWithNames:@[ NSAppearanceNameAqua, NSAppearanceNameDarkAqua ]];
    return [best isEqualToString:NSAppearanceNameDarkAqua];
}

} // namespace ravlin
