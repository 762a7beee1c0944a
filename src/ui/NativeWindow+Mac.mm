#include "NativeWindow.h"

#import <AppKit/AppKit.h>

#include <QWidget>

namespace ravlin::NativeWindow {

void makeMenuBarPanel(QWidget* window)
{
    auto* view = reinterpret_cast<NSView*>(window->winId());
    NSWindow* native = view.window;
    if (!native)
        return;
    native.level = NSStatusWindowLevel; // 25
    native.hidesOnDeactivate = NO;
    native.collectionBehavior = NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorFullScreenAuxiliary;
    native.animationBehavior = NSWindowAnimationBehaviorNone;
    if ([native isKindOfClass:NSPanel.class])
        ((NSPanel*)native).floatingPanel = YES;
}

} // namespace ravlin::NativeWindow
