#pragma once

#include "foundation/Geometry.h"

#include <QString>

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace ravlin {

// One entry of a menu popped up from a status item.
struct MenuEntry {
    QString title;
    bool separator = false;
    bool checked = false;
    QString keyEquivalent; // "," or "q": with the command key
    std::function<void()> action;
    std::vector<MenuEntry> submenu;

    // The key equivalent as a menu shows it, after the command key's sign ("⌘Q").
    QString shownKeyEquivalent() const
    {
        return keyEquivalent.isEmpty() ? QString() : QStringLiteral("⌘") + keyEquivalent.toUpper();
    }

    static MenuEntry separatorEntry()
    {
        MenuEntry e;
        e.separator = true;
        return e;
    }
};

struct MenuModel {
    std::vector<MenuEntry> entries;
    // Laid out for a language read from right to left: mirrored, submenus open leftwards.
    bool rightToLeft = false;
};

// The event being handled while a status item's action runs.
struct CurrentEvent {
    enum Type { LeftMouseUp = 2, RightMouseUp = 4, Other = 0 };
    int type = LeftMouseUp;
    std::uint64_t modifierFlags = 0;
    static constexpr std::uint64_t controlKeyMask = 1ull << 18;
    static constexpr std::uint64_t commandKeyMask = 1ull << 20;
};

// One of the application's own items in the system status bar. Destroying it
// removes it from the bar.
class StatusItem {
public:
    virtual ~StatusItem() = default;

    virtual QString autosaveName() const = 0;
    virtual double length() const = 0;
    virtual void setLength(double length) = 0;
    // A symbol image by name (empty: no image), drawn as a template when asked.
    virtual void setImage(const QString& symbolName, bool isTemplate) = 0;
    virtual void setTitle(const QString& title) = 0;
    virtual void setToolTip(const QString& toolTip) = 0;
    virtual void setAppearsDisabled(bool disabled) = 0;
    // Called on left and on right mouse up.
    virtual void setAction(std::function<void()> action) = 0;
    // The frame of the item's window in screen coordinates (origin bottom left), if it has one.
    virtual std::optional<ScreenRect> windowFrame() const = 0;
    // Attaches the menu, opens it as a click on the item would, and detaches it again.
    virtual void popUpMenu(const MenuModel& menu) = 0;
};

// The system status bar. Items are created with their autosave name, so that the
// platform puts them at the position remembered under
// "NSStatusItem Preferred Position <autosave name>".
class StatusBar {
public:
    virtual ~StatusBar() = default;
    virtual std::unique_ptr<StatusItem> createItem(double length, const QString& autosaveName) = 0;
    virtual CurrentEvent currentEvent() const = 0;
    virtual bool symbolExists(const QString& symbolName) const = 0;
};

} // namespace ravlin
