#include "WindowActivation.h"

#import <AppKit/AppKit.h>

#include <QWidget>

namespace ravlin::WindowActivation {

void bringToFront(QWidget* window)
{
    window->raise();
    window->activateWindow();
    auto* view = (__bridge NSView*)reinterpret_cast<void*>(window->winId());
    [view.window makeKeyAndOrderFront:nil];
}

} // namespace ravlin::WindowActivation
