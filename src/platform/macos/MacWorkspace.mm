// Built with automatic reference counting (see src/CMakeLists.txt).

#include "MacWorkspace.h"

#include "CFRef.h"
#include "CGImageConvert.h"

#import <AppKit/AppKit.h>

namespace ravlin {

namespace {

RunningApplication describe(NSRunningApplication* app)
{
    RunningApplication r;
    if (app.bundleIdentifier)
        r.bundleIdentifier = QString::fromNSString(app.bundleIdentifier);
    if (app.localizedName)
        r.localizedName = QString::fromNSString(app.localizedName);
    r.pid = app.processIdentifier;
    r.activationPolicy = ActivationPolicy(int(app.activationPolicy));
    return r;
}

} // namespace

struct MacWorkspace::Impl {
    NSMutableArray* observers = [NSMutableArray array];
};

MacWorkspace::MacWorkspace() : d(std::make_unique<Impl>())
{
    NSNotificationCenter* center = NSWorkspace.sharedWorkspace.notificationCenter;
    auto observe = [&](NSNotificationName name, WorkspaceNotification which) {
        id token = [center addObserverForName:name
                                       object:nil
                                        queue:NSOperationQueue.mainQueue
                                   usingBlock:^(NSNotification* note) {
                                     NSRunningApplication* app =
                                         note.userInfo[NSWorkspaceApplicationKey];
                                     if (app)
                                         notify(which, describe(app));
                                   }];
        [d->observers addObject:token];
    };
    observe(NSWorkspaceDidLaunchApplicationNotification,
            WorkspaceNotification::DidLaunchApplication);
    observe(NSWorkspaceDidTerminateApplicationNotification,
            WorkspaceNotification::DidTerminateApplication);
    // A wake names no application; the core only needs to know that it happened.
    id wake = [center addObserverForName:NSWorkspaceDidWakeNotification
                                  object:nil
                                   queue:NSOperationQueue.mainQueue
                              usingBlock:^(NSNotification*) {
                                notify(WorkspaceNotification::DidWake, RunningApplication{});
                              }];
    [d->observers addObject:wake];
}

MacWorkspace::~MacWorkspace()
{
    NSNotificationCenter* center = NSWorkspace.sharedWorkspace.notificationCenter;
    for (id token in d->observers)
        [center removeObserver:token];
}

std::vector<RunningApplication> MacWorkspace::runningApplications()
{
    std::vector<RunningApplication> result;
    for (NSRunningApplication* app in NSWorkspace.sharedWorkspace.runningApplications)
        result.push_back(describe(app));
    return result;
}

std::optional<RunningApplication> MacWorkspace::runningApplication(std::int32_t pid)
{
    NSRunningApplication* app = [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
    if (!app)
        return std::nullopt;
    return describe(app);
}

std::int32_t MacWorkspace::currentProcessIdentifier()
{
    return NSProcessInfo.processInfo.processIdentifier;
}

bool MacWorkspace::openURL(const QString& url)
{
    NSURL* u = [NSURL URLWithString:url.toNSString()];
    return u && [NSWorkspace.sharedWorkspace openURL:u];
}

std::optional<QString> MacWorkspace::urlForApplication(const QString& bundleIdentifier)
{
    NSURL* u = [NSWorkspace.sharedWorkspace
        URLForApplicationWithBundleIdentifier:bundleIdentifier.toNSString()];
    if (!u)
        return std::nullopt;
    return QString::fromNSString(u.absoluteString);
}

bool MacWorkspace::openApplication(const QString& applicationURL, bool activates)
{
    NSURL* u = [NSURL URLWithString:applicationURL.toNSString()];
    if (!u)
        return false;
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.activates = activates;
    [NSWorkspace.sharedWorkspace openApplicationAtURL:u
                                        configuration:configuration
                                    completionHandler:nil];
    return true;
}

bool MacWorkspace::activate(std::int32_t pid)
{
    NSRunningApplication* app = [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
    return app && [app activateWithOptions:NSApplicationActivateAllWindows];
}

void MacWorkspace::terminateSelf()
{
    [NSApp terminate:nil];
}

bool MacWorkspace::terminate(std::int32_t pid)
{
    NSRunningApplication* app = [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
    return app && [app terminate];
}

QImage MacWorkspace::applicationIcon(std::int32_t pid)
{
    NSRunningApplication* app = [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
    NSImage* icon = app.icon;
    if (!icon && app.bundleURL)
        icon = [NSWorkspace.sharedWorkspace iconForFile:app.bundleURL.path];
    if (!icon)
        return {};
    // 32 points at the main display's backing scale, as the tiles draw it.
    constexpr CGFloat points = 32;
    const CGFloat scale = NSScreen.mainScreen ? NSScreen.mainScreen.backingScaleFactor : 2.0;
    NSRect proposed = NSMakeRect(0, 0, points * scale, points * scale);
    CGImageRef cgImage = [icon CGImageForProposedRect:&proposed context:nil hints:nil];
    QImage image = CGImageConvert::toQImage(cgImage); // cgImage is not ours to release
    if (image.isNull())
        return {};
    // The representation picked may be a larger one than asked for.
    const int pixels = int(points * scale);
    if (image.width() != pixels || image.height() != pixels)
        image = image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    image.setDevicePixelRatio(double(scale));
    return image;
}

} // namespace ravlin
