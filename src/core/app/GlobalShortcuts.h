#pragma once

#include "core/settings/ShortcutRules.h"
#include "foundation/NotificationCenter.h"

#include <QMap>

#include <functional>
#include <optional>

namespace ravlin {

class HotKeys;
class Preferences;

// The application's system-wide shortcuts: one opens and closes the tile panel, one
// shows and hides the hidden section, and any item may have one that opens it. It
// registers the chords the preferences hold, again whenever they change, and remembers
// which chord the system refused because another application holds it.
class GlobalShortcuts {
public:
    struct Actions {
        std::function<void()> togglePanel;
        std::function<void()> toggleHiddenSection;
        std::function<void(const QString& itemKey)> openItem;
    };
    // Items' shortcuts are registered under ids from this one on.
    static constexpr std::uint32_t firstItemId = 100;

    // Without hot keys (a platform that has none) nothing is registered.
    GlobalShortcuts(HotKeys* hotKeys, Preferences& preferences, NotificationCenter& center,
                    Actions actions);
    ~GlobalShortcuts();
    GlobalShortcuts(const GlobalShortcuts&) = delete;
    GlobalShortcuts& operator=(const GlobalShortcuts&) = delete;

    // The chord that works now (registered with the system), if any.
    std::optional<KeyChord> active(Shortcut which) const;
    // Why the stored chord does not work: the text key of the system's refusal, if any.
    std::optional<QString> problem(Shortcut which) const;
    // Whether a chord the user just recorded may become the shortcut: the text key of
    // the reason it may not, or nothing.
    std::optional<QString> check(Shortcut which, const KeyChord& chord) const;
    // An item's shortcut that works now, and why its stored chord does not.
    std::optional<KeyChord> activeItem(const QString& itemKey) const;
    std::optional<QString> itemProblem(const QString& itemKey) const;
    // While the user records a new chord the shortcuts are let go, so that pressing one of
    // them records it rather than setting it off; afterwards they are registered again.
    void setSuspended(bool suspended);
    bool suspended() const { return m_suspended; }

private:
    struct Slot {
        std::optional<KeyChord> chord;
        std::optional<QString> problem;
    };
    void apply();
    void apply(Shortcut which);
    void applyItems();
    void releaseItems();
    void pressed(std::uint32_t id);
    Slot& slot(Shortcut which) { return which == Shortcut::Panel ? m_panel : m_hidden; }
    const Slot& slot(Shortcut which) const
    {
        return which == Shortcut::Panel ? m_panel : m_hidden;
    }

    HotKeys* m_hotKeys;
    Preferences& m_preferences;
    Actions m_actions;
    Slot m_panel;
    Slot m_hidden;
    struct ItemSlot {
        std::uint32_t id = 0;
        KeyChord chord;
        std::optional<QString> problem;
    };
    QMap<QString, ItemSlot> m_items;
    std::uint32_t m_nextItemId = firstItemId;
    bool m_suspended = false;
    NotificationCenter::Token m_prefsToken;
};

} // namespace ravlin
