#include "NativeWindow.h"

#import <AppKit/AppKit.h>

#include <QWidget>

namespace ravlin::NativeWindow {
namespace {

NSString* const hudIdentifier = @"de.vexa.Ravlin.hud";

NSWindow* nativeWindow(QWidget* window)
{
    auto* view = reinterpret_cast<NSView*>(window->winId());
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
        panel.styleMask |= NSWindowStyleMaskNonactivatingPanel;
    }
}

bool addHudBackground(QWidget* window, double cornerRadius)
{
    NSWindow* native = nativeWindow(window);
    if (!native)
        return false;
    native.opaque = NO;
    native.backgroundColor = NSColor.clearColor;
    NSView* content = native.contentView;
    if ([content.identifier isEqualToString:hudIdentifier])
        return true;
    // The material becomes the content view and Qt's view sits on it, resizing with it.
    auto* effect = [[NSVisualEffectView alloc] initWithFrame:content.frame];
    effect.identifier = hudIdentifier;
    effect.material = NSVisualEffectMaterialHUDWindow;
    effect.blendingMode = NSVisualEffectBlendingModeBehindWindow;
    effect.state = NSVisualEffectStateActive;
    effect.wantsLayer = YES;
    effect.layer.cornerRadius = cornerRadius;
    effect.layer.masksToBounds = YES;
    effect.layer.borderWidth = 1;
    effect.layer.borderColor = [NSColor colorWithWhite:1 alpha:0.08].CGColor;
    native.contentView = effect;
    content.frame = effect.bounds;
    content.autoresizingMask = NSViewWidthSizable | NSViewHeightSizable;
    [effect addSubview:content];
    return true;
}

} // namespace ravlin::NativeWindow
