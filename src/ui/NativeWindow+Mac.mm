#include "NativeWindow.h"

#import <AppKit/AppKit.h>

#include <QWidget>

namespace ravlin::NativeWindow {
namespace {

// The window stays Qt's own: only its NSWindow's traits are changed, never its content view,
// so Qt can still show, move, resize and hide it. winId() creates the native window when
// there is none yet, which lets the traits be set before the window is first shown.
NSWindow* nativeWindow(QWidget* window)
{
    // winId() is the window's NSView, which Qt owns: a plain bridge under ARC.
    auto* view = (__bridge NSView*)reinterpret_cast<void*>(window->winId());
    return view.window;
}

} // namespace

void makeMenuBarPanel(QWidget* window)
{
    NSWindow* native = nativeWindow(window);
    if (!native)
        return;
    native.level = NSStatusWindowLevel; // 25
    native.hidesOnDeactivate = NO;
    native.collectionBehavior =
        NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorFullScreenAuxiliary;
    native.animationBehavior = NSWindowAnimationBehaviorNone;
    native.hasShadow = YES;
    if ([native isKindOfClass:NSPanel.class]) {
        auto* panel = (NSPanel*)native;
        panel.floatingPanel = YES;
        // The window server only takes the non-activating style into account when it is set
        // before the panel is first ordered in; callers therefore come here before show().
        if (!(panel.styleMask & NSWindowStyleMaskNonactivatingPanel))
            panel.styleMask |= NSWindowStyleMaskNonactivatingPanel;
    }
}

bool addHudBackground(QWidget* window, double cornerRadius)
{
    (void)cornerRadius;
    NSWindow* native = nativeWindow(window);
    if (!native)
        return false;
    // A clear window: the container paints the rounded glass itself and the shadow follows
    // its shape. Putting a material view in place of Qt's content view would take the
    // window away from Qt.
    native.opaque = NO;
    native.backgroundColor = NSColor.clearColor;
    return false;
}

} // namespace ravlin::NativeWindow
