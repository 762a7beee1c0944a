#pragma once

// Objective-C++ only (AppKit).
#import <AppKit/AppKit.h>

namespace ravlin::MacActivation {

// Makes Ravlin the active application. macOS 14 replaced the forced activation with a
// cooperative one: an agent that the user just clicked is let through, and where that is
// not so the request is ignored instead of stealing the focus. The choice is made here only.
inline void activateSelf()
{
    if (@available(macOS 14.0, *))
        [NSApp activate];
    else
        [NSApp activateIgnoringOtherApps:YES];
}

} // namespace ravlin::MacActivation
