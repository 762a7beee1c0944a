#include "WindowActivation.h"

#import <AppKit/AppKit.h>

#include <QWidget>

namespace ravlin::WindowActivation {

void bringToFront(QWidget* window)
{
    [NSApp activateIgnoringOtherApps:YES];
    window->raise();
    window->activateWindow();
    auto* view = reinterpret_cast<NSView*>(window->winId());
    [view.window makeKeyAndOrderFront:nil];
}

} // namespace ravlin::WindowActivation
