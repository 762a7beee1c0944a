#include "GlobalShortcuts.h"

#include "core/settings/Preferences.h"
#include "foundation/Logging.h"
#include "platform/HotKeys.h"

namespace ravlin {
namespace {

constexpr std::uint32_t idOf(Shortcut which)
{
    return which == Shortcut::Panel ? 1 : 2;
}

QString nameOf(Shortcut which)
{
    return which == Shortcut::Panel ? QStringLiteral("panel") : QStringLiteral("hidden section");
}

} // namespace

GlobalShortcuts::GlobalShortcuts(HotKeys* hotKeys, Preferences& preferences,
                                 NotificationCenter& center, Actions actions)
    : m_hotKeys(hotKeys), m_preferences(preferences), m_actions(std::move(actions))
{
    if (!m_hotKeys)
        return;
    m_hotKeys->onPressed = [this](std::uint32_t id) { pressed(id); };
    m_prefsToken = center.addObserver(ravlinPrefsChanged, [this] { apply(); });
    apply();
}

GlobalShortcuts::~GlobalShortcuts()
{
    if (!m_hotKeys)
        return;
    m_hotKeys->onPressed = nullptr;
    for (Shortcut which : {Shortcut::Panel, Shortcut::HiddenSection})
        if (slot(which).chord && !slot(which).problem)
            m_hotKeys->unregisterHotKey(idOf(which));
}

void GlobalShortcuts::setSuspended(bool suspended)
{
    if (!m_hotKeys || suspended == m_suspended)
        return;
    m_suspended = suspended;
    if (suspended) {
        for (Shortcut which : {Shortcut::Panel, Shortcut::HiddenSection}) {
            m_hotKeys->unregisterHotKey(idOf(which));
            slot(which) = Slot{};
        }
        return;
    }
    apply();
}

void GlobalShortcuts::apply()
{
    if (m_suspended)
        return;
    apply(Shortcut::Panel);
    apply(Shortcut::HiddenSection);
}

// Registers again only what changed, so that other settings leave the system's
// registrations alone.
void GlobalShortcuts::apply(Shortcut which)
{
    const std::optional<KeyChord> wanted = m_preferences.shortcut(which);
    Slot& s = slot(which);
    if (wanted == s.chord)
        return;
    m_hotKeys->unregisterHotKey(idOf(which));
    s = Slot{wanted, std::nullopt};
    if (!wanted)
        return;
    const int status =
        m_hotKeys->registerHotKey(idOf(which), wanted->virtualKeyCode(), wanted->hotKeyModifiers());
    if (status == 0)
        return;
    s.problem = ShortcutRules::takenKey;
    qCWarning(lcApp).noquote() << QStringLiteral("the %1 shortcut %2 could not be registered "
                                                 "(error %3); another application may hold it")
                                      .arg(nameOf(which), wanted->storedText())
                                      .arg(status);
}

std::optional<KeyChord> GlobalShortcuts::active(Shortcut which) const
{
    const Slot& s = slot(which);
    return s.problem ? std::nullopt : s.chord;
}

std::optional<QString> GlobalShortcuts::problem(Shortcut which) const
{
    return slot(which).problem;
}

std::optional<QString> GlobalShortcuts::check(Shortcut which, const KeyChord& chord) const
{
    const Shortcut other = which == Shortcut::Panel ? Shortcut::HiddenSection : Shortcut::Panel;
    return ShortcutRules::refusal(chord, m_preferences.shortcut(other));
}

void GlobalShortcuts::pressed(std::uint32_t id)
{
    const std::function<void()>& action =
        id == idOf(Shortcut::Panel) ? m_actions.togglePanel : m_actions.toggleHiddenSection;
    if (action)
        action();
}

} // namespace ravlin
