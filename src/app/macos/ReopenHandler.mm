#include "ReopenHandler.h"

#import <AppKit/AppKit.h>
#include <objc/runtime.h>

#include <string>

namespace ravlin::ReopenHandler {
namespace {

// The method's type encoding as the delegate protocol declares it. BOOL is a signed char on
// x86_64 ('c') but a bool on arm64 ('B'), so a fixed string would be wrong on one of them.
const char* reopenTypes(SEL selector)
{
    const objc_method_description description =
        protocol_getMethodDescription(@protocol(NSApplicationDelegate), selector, NO, YES);
    if (description.types)
        return description.types;
    static const std::string built = std::string(@encode(BOOL)) + @encode(id) + @encode(SEL) +
                                     @encode(NSApplication*) + @encode(BOOL);
    return built.c_str();
}

} // namespace

void install(std::function<void()> handler)
{
    id delegate = NSApp.delegate;
    if (!delegate)
        return;
    SEL selector = @selector(applicationShouldHandleReopen:hasVisibleWindows:);
    // The block keeps its own copy of the handler, so nothing global holds it.
    IMP implementation = imp_implementationWithBlock(^BOOL(id, NSApplication*, BOOL) {
      if (handler)
          handler();
      return YES;
    });
    class_replaceMethod([delegate class], selector, implementation, reopenTypes(selector));
}

} // namespace ravlin::ReopenHandler
