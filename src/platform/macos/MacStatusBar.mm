#include "MacStatusBar.h"

#import <AppKit/AppKit.h>

#include <QString>

// Forwards the button's action to a C++ callback.
@interface RavlinStatusTarget : NSObject
@property(nonatomic, assign) std::function<void()>* action;
- (void)clicked:(id)sender;
@end

@implementation RavlinStatusTarget
- (void)clicked:(id)sender
{
    (void)sender;
    if (self.action && *self.action)
        (*self.action)();
}
@end

// Runs a menu entry's C++ action.
@interface RavlinMenuTarget : NSObject
@property(nonatomic, assign) const std::function<void()>* action;
- (void)chosen:(id)sender;
@end

@implementation RavlinMenuTarget
- (void)chosen:(id)sender
{
    (void)sender;
    if (!self.action || !*self.action)
        return;
    // A copy runs: the action may open the next menu, which replaces the entries.
    const std::function<void()> run = *self.action;
    run();
}
@end

namespace ravlin {
namespace {

NSImage* symbolImage(const QString& name)
{
    if (name.isEmpty())
        return nil;
    NSImage* image = [NSImage imageWithSystemSymbolName:name.toNSString()
                               accessibilityDescription:nil];
    if (!image)
        return nil;
    NSImageSymbolConfiguration* config =
        [NSImageSymbolConfiguration configurationWithPointSize:13.0 weight:NSFontWeightSemibold];
    return [image imageWithSymbolConfiguration:config];
}

NSMenu* buildMenu(const std::vector<MenuEntry>& entries, NSMutableArray* targets, bool rightToLeft)
{
    NSMenu* menu = [[NSMenu alloc] init];
    menu.autoenablesItems = NO;
    // The application's own language may read the other way from the system's.
    menu.userInterfaceLayoutDirection = rightToLeft ? NSUserInterfaceLayoutDirectionRightToLeft
                                                    : NSUserInterfaceLayoutDirectionLeftToRight;
    for (const MenuEntry& entry : entries) {
        if (entry.separator) {
            [menu addItem:[NSMenuItem separatorItem]];
            continue;
        }
        NSMenuItem* item = [[NSMenuItem alloc] initWithTitle:entry.title.toNSString()
                                                      action:nil
                                               keyEquivalent:entry.keyEquivalent.toNSString()];
        item.state = entry.checked ? NSControlStateValueOn : NSControlStateValueOff;
        if (entry.action) {
            RavlinMenuTarget* target = [[RavlinMenuTarget alloc] init];
            target.action = &entry.action;
            [targets addObject:target];
            item.target = target;
            item.action = @selector(chosen:);
        }
        if (!entry.submenu.empty())
            item.submenu = buildMenu(entry.submenu, targets, rightToLeft);
        [menu addItem:item];
    }
    return menu;
}

class MacStatusItem final : public StatusItem {
public:
    MacStatusItem(double length, const QString& autosaveName)
    {
        m_item = [NSStatusBar.systemStatusBar statusItemWithLength:length];
        m_item.autosaveName = autosaveName.toNSString();
        // The core finds its own items in the menu bar's accessibility tree by this name
        // (on systems where status items have no windows of their own).
        m_item.button.identifier = autosaveName.toNSString();
        m_item.button.accessibilityIdentifier = autosaveName.toNSString();
        m_target = [[RavlinStatusTarget alloc] init];
        m_target.action = &m_action;
        m_item.button.target = m_target;
        m_item.button.action = @selector(clicked:);
        [m_item.button sendActionOn:NSEventMaskLeftMouseUp | NSEventMaskRightMouseUp];
    }
    ~MacStatusItem() override { [NSStatusBar.systemStatusBar removeStatusItem:m_item]; }

    QString autosaveName() const override { return QString::fromNSString(m_item.autosaveName); }
    double length() const override { return m_item.length; }
    void setLength(double length) override { m_item.length = length; }
    void setImage(const QString& symbolName, bool isTemplate) override
    {
        NSImage* image = symbolImage(symbolName);
        [image setTemplate:isTemplate]; // `template` is a keyword in Objective-C++
        m_item.button.image = image;
    }
    void setTitle(const QString& title) override { m_item.button.title = title.toNSString(); }
    void setToolTip(const QString& toolTip) override
    {
        m_item.button.toolTip = toolTip.toNSString();
    }
    void setAppearsDisabled(bool disabled) override { m_item.button.appearsDisabled = disabled; }
    void setAction(std::function<void()> action) override { m_action = std::move(action); }
    std::optional<ScreenRect> windowFrame() const override
    {
        NSWindow* window = m_item.button.window;
        if (!window)
            return std::nullopt;
        const NSRect f = window.frame; // AppKit's screen coordinates: origin bottom left
        return ScreenRect{f.origin.x, f.origin.y, f.size.width, f.size.height};
    }
    void popUpMenu(const MenuModel& model) override
    {
        // A menu item holds its target weakly: the item keeps the targets (and the model
        // whose actions they point to) until the next menu, not just until the local
        // variables' last use, which is all ARC promises for a local.
        m_menuModel = std::make_unique<MenuModel>(model);
        m_menuTargets = [NSMutableArray array];
        // An action may remove this very item: the status item is held locally for the end.
        NSStatusItem* item = m_item;
        item.menu = buildMenu(m_menuModel->entries, m_menuTargets, m_menuModel->rightToLeft);
        [item.button performClick:nil]; // returns when the menu closes
        item.menu = nil;
    }

private:
    NSStatusItem* m_item = nil;
    RavlinStatusTarget* m_target = nil;
    std::function<void()> m_action;
    std::unique_ptr<MenuModel> m_menuModel;
    NSMutableArray* m_menuTargets = nil;
};

} // namespace

std::unique_ptr<StatusItem> MacStatusBar::createItem(double length, const QString& autosaveName)
{
    return std::make_unique<MacStatusItem>(length, autosaveName);
}

CurrentEvent MacStatusBar::currentEvent() const
{
    CurrentEvent event;
    NSEvent* current = NSApp.currentEvent;
    if (!current)
        return event;
    event.type = current.type == NSEventTypeRightMouseUp  ? CurrentEvent::RightMouseUp
                 : current.type == NSEventTypeLeftMouseUp ? CurrentEvent::LeftMouseUp
                                                          : CurrentEvent::Other;
    event.modifierFlags = current.modifierFlags;
    return event;
}

bool MacStatusBar::symbolExists(const QString& symbolName) const
{
    return [NSImage imageWithSystemSymbolName:symbolName.toNSString()
                     accessibilityDescription:nil] != nil;
}

} // namespace ravlin
