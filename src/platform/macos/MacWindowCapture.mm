// Built with automatic reference counting (see src/CMakeLists.txt).

#include "MacWindowCapture.h"

#include "CFRef.h"
#include "CGImageConvert.h"
#include "foundation/Logging.h"

#import <Foundation/Foundation.h>
#include <CoreGraphics/CoreGraphics.h>
#include <dlfcn.h>

#include <QString>

#include <algorithm>
#include <memory>
#include <mutex>
#include <optional>

// The few ScreenCaptureKit calls Ravlin makes. The framework is loaded when first needed and
// spoken to through these declarations, so the app neither links it (it runs on macOS 13,
// where the screenshot call does not exist) nor needs its headers to build.
@protocol RavlinSCWindow <NSObject>
@property(readonly) CGWindowID windowID;
@property(readonly) CGRect frame;
@property(readonly, getter=isOnScreen) BOOL onScreen;
@end

@protocol RavlinSCShareableContent <NSObject>
@property(readonly) NSArray* windows;
@end

@protocol RavlinSCShareableContentClass <NSObject>
- (void)getShareableContentExcludingDesktopWindows:(BOOL)excludeDesktopWindows
                               onScreenWindowsOnly:(BOOL)onScreenWindowsOnly
                                 completionHandler:(void (^)(id<RavlinSCShareableContent> content,
                                                             NSError* error))completionHandler;
@end

@protocol RavlinSCContentFilter <NSObject>
- (instancetype)initWithDesktopIndependentWindow:(id<RavlinSCWindow>)window;
@end

@protocol RavlinSCStreamConfiguration <NSObject>
@property size_t width;
@property size_t height;
@property BOOL showsCursor;
@optional
@property BOOL ignoreShadowsSingleWindow; // macOS 14
@end

@protocol RavlinSCScreenshotManagerClass <NSObject>
- (void)captureImageWithFilter:(id)filter
                 configuration:(id)configuration
             completionHandler:(void (^)(CGImageRef image, NSError* error))completionHandler;
@end

namespace ravlin::MacWindowCapture {
namespace {

// Long enough for a busy window server, short enough that a stuck capture costs one item
// its picture and not the scan.
constexpr double captureTimeoutSeconds = 2.0;

using CreateImageFunction = CGImageRef (*)(CGRect, CGWindowListOption, CGWindowID,
                                           CGWindowImageOption);

// Newer SDKs mark the window-list image call unavailable at compile time although older systems
// rely on it; it is looked up when first needed.
CreateImageFunction createImageFunction()
{
    static const auto function =
        reinterpret_cast<CreateImageFunction>(dlsym(RTLD_DEFAULT, "CGWindowListCreateImage"));
    return function;
}

QImage captureWithWindowList(std::uint32_t windowNumber)
{
    const CreateImageFunction create = createImageFunction();
    if (!create)
        return {};
    CFRef<CGImageRef> image(
        create(CGRectNull, kCGWindowListOptionIncludingWindow, CGWindowID(windowNumber),
               kCGWindowImageBoundsIgnoreFraming | kCGWindowImageNominalResolution));
    return CGImageConvert::toQImage(image.get());
}

// The framework's classes, once: nil where the system has no screenshot call.
struct ScreenCaptureKit {
    Class shareableContent = nil;
    Class contentFilter = nil;
    Class streamConfiguration = nil;
    Class screenshotManager = nil;
    bool usable() const
    {
        return shareableContent && contentFilter && streamConfiguration && screenshotManager;
    }
};

const ScreenCaptureKit& screenCaptureKit()
{
    static const ScreenCaptureKit kit = [] {
        ScreenCaptureKit k;
        if (@available(macOS 14.0, *)) {
            if (!dlopen("/System/Library/Frameworks/ScreenCaptureKit.framework/ScreenCaptureKit",
                        RTLD_LAZY)) {
                qCWarning(lcDiscovery) << "ScreenCaptureKit cannot be loaded; window images are"
                                          " taken the older way";
                return k;
            }
            k.shareableContent = NSClassFromString(@"SCShareableContent");
            k.contentFilter = NSClassFromString(@"SCContentFilter");
            k.streamConfiguration = NSClassFromString(@"SCStreamConfiguration");
            k.screenshotManager = NSClassFromString(@"SCScreenshotManager");
        }
        return k;
    }();
    return kit;
}

// What the completion handlers hand back; shared with them, since a capture that outlives
// its timeout still finishes later.
struct Outcome {
    std::mutex mutex;
    CFRef<CGImageRef> image;
    bool found = false;    // the window is in the shareable content
    bool onScreen = false; // and it is on screen
    dispatch_semaphore_t done = dispatch_semaphore_create(0);
};

void finish(const std::shared_ptr<Outcome>& outcome, CGImageRef image, bool found, bool onScreen)
{
    {
        const std::lock_guard lock(outcome->mutex);
        outcome->image = CFRef<CGImageRef>::retain(image);
        outcome->found = found;
        outcome->onScreen = onScreen;
    }
    dispatch_semaphore_signal(outcome->done);
}

void shoot(id<RavlinSCWindow> window, const std::shared_ptr<Outcome>& outcome)
{
    const ScreenCaptureKit& kit = screenCaptureKit();
    id<RavlinSCContentFilter> filter =
        [(id<RavlinSCContentFilter>)[kit.contentFilter alloc] initWithDesktopIndependentWindow:window];
    id<RavlinSCStreamConfiguration> configuration = [[kit.streamConfiguration alloc] init];
    // One pixel per point: the output is the window's size in points.
    configuration.width = size_t(std::max<CGFloat>(1, window.frame.size.width));
    configuration.height = size_t(std::max<CGFloat>(1, window.frame.size.height));
    configuration.showsCursor = NO;
    if ([configuration respondsToSelector:@selector(setIgnoreShadowsSingleWindow:)])
        configuration.ignoreShadowsSingleWindow = YES;
    auto manager = (id<RavlinSCScreenshotManagerClass>)kit.screenshotManager;
    [manager captureImageWithFilter:filter
                      configuration:configuration
                  completionHandler:^(CGImageRef image, NSError* error) {
                    if (error)
                        qCInfo(lcDiscovery) << "a window image could not be taken:"
                                            << QString::fromNSString(error.localizedDescription);
                    finish(outcome, image, true, true);
                  }];
}

// nullopt when ScreenCaptureKit had no answer in time (the caller falls back).
std::optional<QImage> captureWithScreenCaptureKit(const ScreenCaptureKit& kit,
                                                  std::uint32_t windowNumber)
{
    auto outcome = std::make_shared<Outcome>();
    auto content = (id<RavlinSCShareableContentClass>)kit.shareableContent;
    [content getShareableContentExcludingDesktopWindows:NO
                                    onScreenWindowsOnly:NO
                                      completionHandler:^(id<RavlinSCShareableContent> shareable,
                                                          NSError* error) {
                                        if (error || !shareable) {
                                            finish(outcome, nullptr, false, false);
                                            return;
                                        }
                                        for (id<RavlinSCWindow> window in shareable.windows) {
                                            if (window.windowID != windowNumber)
                                                continue;
                                            if (!window.onScreen) {
                                                finish(outcome, nullptr, true, false);
                                                return;
                                            }
                                            shoot(window, outcome);
                                            return;
                                        }
                                        finish(outcome, nullptr, false, false);
                                      }];
    const auto wait = dispatch_time(DISPATCH_TIME_NOW,
                                    std::int64_t(captureTimeoutSeconds * double(NSEC_PER_SEC)));
    if (dispatch_semaphore_wait(outcome->done, wait) != 0) {
        qCWarning(lcDiscovery) << "no window image within" << captureTimeoutSeconds << "s";
        return std::nullopt;
    }
    const std::lock_guard lock(outcome->mutex);
    if (!outcome->found)
        return QImage(); // an unknown window
    if (!outcome->onScreen) {
        // As the window-list call answers for a window that is not on screen.
        QImage blank(1, 1, QImage::Format_ARGB32_Premultiplied);
        blank.fill(Qt::transparent);
        return blank;
    }
    if (!outcome->image)
        return std::nullopt;
    return CGImageConvert::toQImage(outcome->image.get());
}

} // namespace

QImage capture(std::uint32_t windowNumber)
{
    if (const ScreenCaptureKit& kit = screenCaptureKit(); kit.usable()) {
        if (std::optional<QImage> image = captureWithScreenCaptureKit(kit, windowNumber))
            return *image;
    }
    return captureWithWindowList(windowNumber);
}

} // namespace ravlin::MacWindowCapture
