#include "SparkleUpdater.h"

#import <AppKit/AppKit.h>
#import <Sparkle/Sparkle.h>

// Answers Sparkle's questions: which channels may offer an update, and that an agent shows
// scheduled updates gently (behind the application in front, not over it).
@interface RavlinUpdaterDelegate : NSObject <SPUUpdaterDelegate, SPUStandardUserDriverDelegate>
@property (nonatomic, copy) NSSet<NSString*>* channels;
@end

@implementation RavlinUpdaterDelegate

- (NSSet<NSString*>*)allowedChannelsForUpdater:(SPUUpdater*)updater
{
    (void)updater;
    return self.channels != nil ? self.channels : [NSSet set];
}

- (BOOL)supportsGentleScheduledUpdateReminders
{
    return YES;
}

- (BOOL)standardUserDriverShouldHandleShowingScheduledUpdate:(SUAppcastItem*)update
                                         andInImmediateFocus:(BOOL)immediateFocus
{
    (void)update;
    (void)immediateFocus;
    return YES;
}

@end

namespace ravlin {

struct SparkleUpdater::Impl {
    // Sparkle holds its delegates weakly.
    RavlinUpdaterDelegate* delegate = [[RavlinUpdaterDelegate alloc] init];
    SPUStandardUpdaterController* controller = nil;
};

SparkleUpdater::SparkleUpdater() : m_impl(std::make_unique<Impl>())
{
    m_impl->controller = [[SPUStandardUpdaterController alloc] initWithStartingUpdater:YES
                                                                       updaterDelegate:m_impl->delegate
                                                                    userDriverDelegate:m_impl->delegate];
}

SparkleUpdater::~SparkleUpdater() = default;

bool SparkleUpdater::canCheckForUpdates() const
{
    return m_impl->controller.updater.canCheckForUpdates;
}

void SparkleUpdater::checkForUpdates()
{
    [m_impl->controller checkForUpdates:nil];
}

void SparkleUpdater::setAutomaticallyChecksForUpdates(bool on)
{
    m_impl->controller.updater.automaticallyChecksForUpdates = on;
}

void SparkleUpdater::setAllowedChannels(const QStringList& channels)
{
    NSMutableSet<NSString*>* set = [NSMutableSet setWithCapacity:NSUInteger(channels.size())];
    for (const QString& channel : channels)
        [set addObject:channel.toNSString()];
    m_impl->delegate.channels = set;
}

} // namespace ravlin
