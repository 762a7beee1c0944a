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
    releaseItems();
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
        releaseItems();
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
    applyItems();
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
    if (id >= firstItemId) {
        for (auto it = m_items.cbegin(); it != m_items.cend(); ++it) {
            if (it.value().id == id && m_actions.openItem) {
                const QString key = it.key(); // the action may change the shortcuts
                m_actions.openItem(key);
                return;
            }
        }
        return;
    }
    const std::function<void()>& action =
        id == idOf(Shortcut::Panel) ? m_actions.togglePanel : m_actions.toggleHiddenSection;
    if (action)
        action();
}

// Items keep their registration while their chord stays; a changed or new one is
// registered under an id of its own.
void GlobalShortcuts::applyItems()
{
    const QMap<QString, KeyChord> wanted = m_preferences.itemShortcuts();
    for (auto it = m_items.begin(); it != m_items.end();) {
        if (wanted.value(it.key()) == it.value().chord && wanted.contains(it.key())) {
            ++it;
            continue;
        }
        if (!it.value().problem)
            m_hotKeys->unregisterHotKey(it.value().id);
        it = m_items.erase(it);
    }
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it) {
        if (m_items.contains(it.key()))
            continue;
        ItemSlot item{m_nextItemId++, it.value(), std::nullopt};
        const int status = m_hotKeys->registerHotKey(item.id, item.chord.virtualKeyCode(),
                                                     item.chord.hotKeyModifiers());
        if (status != 0) {
            item.problem = ShortcutRules::takenKey;
            qCWarning(lcApp).noquote()
                << QStringLiteral("the shortcut %1 of the item %2 could not be registered "
                                  "(error %3); another application may hold it")
                       .arg(item.chord.storedText(), it.key())
                       .arg(status);
        }
        m_items.insert(it.key(), item);
    }
}

void GlobalShortcuts::releaseItems()
{
    for (const ItemSlot& item : std::as_const(m_items))
        if (!item.problem)
            m_hotKeys->unregisterHotKey(item.id);
    m_items.clear();
}

std::optional<KeyChord> GlobalShortcuts::activeItem(const QString& itemKey) const
{
    const auto it = m_items.constFind(itemKey);
    if (it == m_items.cend() || it.value().problem)
        return std::nullopt;
    return it.value().chord;
}

std::optional<QString> GlobalShortcuts::itemProblem(const QString& itemKey) const
{
    const auto it = m_items.constFind(itemKey);
    return it == m_items.cend() ? std::nullopt : it.value().problem;
}

} // namespace ravlin
