#include "ReopenHandler.h"

#import <AppKit/AppKit.h>
#include <objc/runtime.h>

namespace ravlin::ReopenHandler {
namespace {

std::function<void()>& storedHandler()
{
    static std::function<void()> handler; // set once at start-up, from the main thread
    return handler;
}

BOOL shouldHandleReopen(id, SEL, NSApplication*, BOOL)
{
    if (storedHandler())
        storedHandler()();
    return YES;
}

} // namespace

void install(std::function<void()> handler)
{
    storedHandler() = std::move(handler);
    id delegate = NSApp.delegate;
    if (!delegate)
        return;
    SEL selector = @selector(applicationShouldHandleReopen:hasVisibleWindows:);
    class_replaceMethod([delegate class], selector, (IMP)shouldHandleReopen, "c@:@c");
}

} // namespace ravlin::ReopenHandler
