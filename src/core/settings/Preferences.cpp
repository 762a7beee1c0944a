#include "Preferences.h"

#include "ItemShortcuts.h"
#include "LaunchAtLogin.h"
#include "PrefKey.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "foundation/NotificationCenter.h"

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

PlistValue sortedList(const QSet<QString>& set)
{
    QStringList list(set.cbegin(), set.cend());
    list.sort();
    return PlistValue::fromStringList(list);
}

// A list element counts when it is a number (its integer value) or text that
// parses as a decimal integer.
std::optional<std::int64_t> integerElement(const PlistValue& element)
{
    if (element.isBool())
        return *element.asBool() ? 1 : 0;
    if (auto i = element.asInteger())
        return i;
    if (auto s = element.asString()) {
        bool ok = false;
        const qlonglong value = s->trimmed().toLongLong(&ok, 10);
        if (ok)
            return value;
    }
    return std::nullopt;
}

} // namespace

Preferences::Preferences(DefaultsStore& defaults, NotificationCenter& center,
                         LoginItems* loginItems)
    : m_defaults(defaults), m_center(center), m_loginItems(loginItems)
{}

void Preferences::registerDefaults()
{
    m_defaults.registerDefaults({
        {PrefKey::launchAtLogin, false},
        {PrefKey::autoRehide, true},
        {PrefKey::rehideInterval, 15},
        {PrefKey::enableAlwaysHidden, false},
        {PrefKey::revealOnHover, false},
        {PrefKey::clickShowsInBar, false},
        {PrefKey::appLanguage, QString()},
        {PrefKey::tileStyle, tileStyleRawValue(TileStyle::Dashboard)},
        {PrefKey::showSystemTiles, true},
        {PrefKey::showWeather, true},
        {PrefKey::newItemPlacement, itemPlacementName(ItemPlacement::Panel)},
        {PrefKey::revealOnMenuBarClick, false},
        {PrefKey::revealOnMenuBarScroll, false},
        {PrefKey::revealOnMenuBarHover, false},
        {PrefKey::barShowsStatistics, false},
    });
}

void Preferences::changed()
{
    m_defaults.noteUserChange();
    Q_EMIT willChange();
    m_center.post(ravlinPrefsChanged);
}

void Preferences::writeBool(const QString& key, bool on)
{
    m_defaults.set(key, on);
    changed();
}

bool Preferences::launchAtLogin() const
{
    return m_defaults.boolForKey(PrefKey::launchAtLogin);
}

void Preferences::setLaunchAtLogin(bool on)
{
    m_defaults.set(PrefKey::launchAtLogin, on);
    if (m_loginItems)
        LaunchAtLogin::setEnabled(*m_loginItems, on);
    changed();
}

bool Preferences::autoRehide() const
{
    return m_defaults.boolForKey(PrefKey::autoRehide);
}
void Preferences::setAutoRehide(bool on)
{
    writeBool(PrefKey::autoRehide, on);
}

int Preferences::rehideInterval() const
{
    const std::int64_t stored = m_defaults.integerForKey(PrefKey::rehideInterval);
    const int interval = int(std::clamp<std::int64_t>(stored, 1, longestRehideInterval));
    // A real that is not a number, or infinite, reads as 0 but is logged as what it is.
    const PlistValue raw = m_defaults.object(PrefKey::rehideInterval);
    const std::optional<double> real = raw.isReal() ? raw.asDouble() : std::nullopt;
    const bool odd = real && !std::isfinite(*real);
    const QString shown = odd ? QString::number(*real) : QString::number(stored);
    if ((interval != stored || odd) && m_reportedInterval != shown) {
        m_reportedInterval = shown;
        qCWarning(lcDefaults).noquote()
            << QStringLiteral("the setting rehideInterval holds %1 seconds, outside 1 to %2; "
                              "Ravlin uses %3")
                   .arg(shown)
                   .arg(longestRehideInterval)
                   .arg(interval);
    }
    return interval;
}

void Preferences::setRehideInterval(std::int64_t seconds)
{
    m_defaults.set(PrefKey::rehideInterval, seconds);
    changed();
}

bool Preferences::enableAlwaysHidden() const
{
    return m_defaults.boolForKey(PrefKey::enableAlwaysHidden);
}
void Preferences::setEnableAlwaysHidden(bool on)
{
    writeBool(PrefKey::enableAlwaysHidden, on);
}
bool Preferences::revealOnHover() const
{
    return m_defaults.boolForKey(PrefKey::revealOnHover);
}
void Preferences::setRevealOnHover(bool on)
{
    writeBool(PrefKey::revealOnHover, on);
}

bool Preferences::clickShowsInBar() const
{
    return m_defaults.boolForKey(PrefKey::clickShowsInBar);
}

void Preferences::setClickShowsInBar(bool on)
{
    writeBool(PrefKey::clickShowsInBar, on);
}

QString Preferences::appLanguage() const
{
    return m_defaults.stringForKey(PrefKey::appLanguage).value_or(QString());
}

void Preferences::setAppLanguage(const QString& code)
{
    m_defaults.set(PrefKey::appLanguage, code);
    changed();
}

TileStyle Preferences::tileStyle() const
{
    const QString raw = m_defaults.stringForKey(PrefKey::tileStyle).value_or(QString());
    return tileStyleFromRawValue(raw).value_or(TileStyle::Dashboard);
}

void Preferences::setTileStyle(TileStyle style)
{
    m_defaults.set(PrefKey::tileStyle, tileStyleRawValue(style));
    changed();
}

ItemPlacement Preferences::newItemPlacement() const
{
    const QString raw = m_defaults.stringForKey(PrefKey::newItemPlacement).value_or(QString());
    const std::optional<ItemPlacement> placement = itemPlacementFromName(raw);
    if (!placement)
        qCWarning(lcDefaults).noquote()
            << PrefKey::newItemPlacement << "holds" << raw
            << "- not bar, panel or off; new items go to the panel";
    return placement.value_or(ItemPlacement::Panel);
}

void Preferences::setNewItemPlacement(ItemPlacement placement)
{
    m_defaults.set(PrefKey::newItemPlacement, itemPlacementName(placement));
    changed();
}

bool Preferences::showSystemTiles() const
{
    return m_defaults.boolForKey(PrefKey::showSystemTiles);
}
void Preferences::setShowSystemTiles(bool on)
{
    writeBool(PrefKey::showSystemTiles, on);
}
bool Preferences::showWeather() const
{
    return m_defaults.boolForKey(PrefKey::showWeather);
}
void Preferences::setShowWeather(bool on)
{
    writeBool(PrefKey::showWeather, on);
}
bool Preferences::hideSpotlight() const
{
    return m_defaults.boolForKey(PrefKey::hideSpotlight);
}
void Preferences::setHideSpotlight(bool on)
{
    writeBool(PrefKey::hideSpotlight, on);
}

QSet<QString> Preferences::stringSet(const QString& key) const
{
    const QStringList list = m_defaults.stringArrayForKey(key).value_or(QStringList());
    return QSet<QString>(list.cbegin(), list.cend());
}

void Preferences::writeStringSet(const QString& key, const QSet<QString>& set)
{
    m_defaults.set(key, sortedList(set));
    changed();
}

std::optional<KeyChord> Preferences::defaultShortcut(Shortcut which) const
{
    if (which == Shortcut::Panel)
        return ShortcutRules::defaultPanelChord();
    return std::nullopt;
}

static const QString& shortcutKey(Shortcut which)
{
    return which == Shortcut::Panel ? PrefKey::panelShortcut : PrefKey::hiddenSectionShortcut;
}

// Absent: the default; empty text: none; anything else must be a chord the rules accept.
std::optional<KeyChord> Preferences::storedShortcut(Shortcut which) const
{
    const QString& key = shortcutKey(which);
    const PlistValue stored = m_defaults.persistentValue(key);
    if (stored.isNull())
        return defaultShortcut(which);
    const std::optional<QString> text = stored.asString();
    if (text && text->trimmed().isEmpty())
        return std::nullopt;
    std::optional<KeyChord> chord = text ? KeyChord::parse(*text) : std::nullopt;
    std::optional<QString> refused;
    if (chord)
        refused = ShortcutRules::refusal(*chord, std::nullopt);
    if (chord && !refused)
        return chord;
    const QString seen = text ? QStringLiteral("\"%1\"").arg(*text) : QStringLiteral("a value");
    if (m_reportedShortcuts.value(key) != seen) {
        m_reportedShortcuts.insert(key, seen);
        const QString why = !text   ? QStringLiteral("not text")
                            : chord ? QStringLiteral("not allowed (%1)").arg(*refused)
                                    : QStringLiteral("not a key chord");
        const std::optional<KeyChord> fallback = defaultShortcut(which);
        qCWarning(lcDefaults).noquote()
            << QStringLiteral("the setting %1 holds %2, which is %3; Ravlin uses %4")
                   .arg(key, seen, why,
                        fallback ? fallback->storedText() : QStringLiteral("none"));
    }
    return defaultShortcut(which);
}

std::optional<KeyChord> Preferences::shortcut(Shortcut which) const
{
    std::optional<KeyChord> chord = storedShortcut(which);
    // Both the same, by a hand-edited file: the panel keeps it.
    if (which == Shortcut::HiddenSection && chord && chord == storedShortcut(Shortcut::Panel)) {
        const QString key = PrefKey::hiddenSectionShortcut;
        const QString seen = QStringLiteral("the panel's chord ") + chord->storedText();
        if (m_reportedShortcuts.value(key) != seen) {
            m_reportedShortcuts.insert(key, seen);
            qCWarning(lcDefaults).noquote()
                << QStringLiteral("the setting %1 holds %2, which is not allowed (%3); "
                                  "Ravlin uses none")
                       .arg(key, chord->storedText(), ShortcutRules::sameAsOtherKey);
        }
        return std::nullopt;
    }
    return chord;
}

void Preferences::setShortcut(Shortcut which, const std::optional<KeyChord>& chord)
{
    m_defaults.set(shortcutKey(which), chord ? chord->storedText() : QString());
    changed();
}

QSet<QString> Preferences::hiddenItemKeys() const
{
    return stringSet(PrefKey::hiddenItems);
}
void Preferences::setHiddenItemKeys(const QSet<QString>& keys)
{
    writeStringSet(PrefKey::hiddenItems, keys);
}
QSet<QString> Preferences::barPinnedKeys() const
{
    return stringSet(PrefKey::barPinnedItems);
}
void Preferences::setBarPinnedKeys(const QSet<QString>& keys)
{
    writeStringSet(PrefKey::barPinnedItems, keys);
}
QSet<QString> Preferences::hiddenBundleIDs() const
{
    return stringSet(PrefKey::hiddenBundleIDs);
}
void Preferences::setHiddenBundleIDs(const QSet<QString>& ids)
{
    writeStringSet(PrefKey::hiddenBundleIDs, ids);
}

std::set<std::int64_t> Preferences::hiddenSystemItemIDs() const
{
    std::set<std::int64_t> ids;
    const PlistArray list =
        m_defaults.arrayForKey(PrefKey::hiddenSystemItems).value_or(PlistArray());
    for (const PlistValue& element : list) {
        if (auto id = integerElement(element))
            ids.insert(*id);
    }
    return ids;
}

void Preferences::setHiddenSystemItemIDs(const std::set<std::int64_t>& ids)
{
    PlistArray list;
    for (std::int64_t id : ids)
        list.emplace_back(id);
    m_defaults.set(PrefKey::hiddenSystemItems, PlistValue(std::move(list)));
    changed();
}

void Preferences::setItem(const QString& key, bool hidden)
{
    QSet<QString> set = hiddenItemKeys();
    hidden ? void(set.insert(key)) : void(set.remove(key));
    setHiddenItemKeys(set);
}

void Preferences::setBundle(const QString& bundleID, bool hidden)
{
    QSet<QString> set = hiddenBundleIDs();
    hidden ? void(set.insert(bundleID)) : void(set.remove(bundleID));
    setHiddenBundleIDs(set);
}

void Preferences::setSystemItem(std::int64_t id, bool hidden)
{
    std::set<std::int64_t> set = hiddenSystemItemIDs();
    hidden ? void(set.insert(id)) : void(set.erase(id));
    setHiddenSystemItemIDs(set);
}

ItemPlacement Preferences::placement(const QString& key) const
{
    if (isPinned(key))
        return ItemPlacement::Bar;
    if (isItemHidden(key))
        return ItemPlacement::Off;
    return ItemPlacement::Panel;
}

void Preferences::setPlacement(const QString& key, ItemPlacement placement)
{
    setPlacements({{key, placement}});
}

void Preferences::setPlacements(const QHash<QString, ItemPlacement>& placements)
{
    if (placements.isEmpty())
        return;
    QSet<QString> pinned = barPinnedKeys();
    QSet<QString> hidden = hiddenItemKeys();
    for (auto it = placements.cbegin(); it != placements.cend(); ++it) {
        const QString& key = it.key();
        switch (it.value()) {
        case ItemPlacement::Bar:
            pinned.insert(key);
            hidden.remove(key);
            break;
        case ItemPlacement::Panel:
            pinned.remove(key);
            hidden.remove(key);
            break;
        case ItemPlacement::Off:
            pinned.remove(key);
            hidden.insert(key);
            break;
        }
    }
    m_defaults.set(PrefKey::barPinnedItems, sortedList(pinned));
    m_defaults.set(PrefKey::hiddenItems, sortedList(hidden));
    changed();
}

bool Preferences::revealOnMenuBarClick() const
{
    return m_defaults.boolForKey(PrefKey::revealOnMenuBarClick);
}
void Preferences::setRevealOnMenuBarClick(bool on)
{
    writeBool(PrefKey::revealOnMenuBarClick, on);
}
bool Preferences::revealOnMenuBarScroll() const
{
    return m_defaults.boolForKey(PrefKey::revealOnMenuBarScroll);
}
void Preferences::setRevealOnMenuBarScroll(bool on)
{
    writeBool(PrefKey::revealOnMenuBarScroll, on);
}
bool Preferences::revealOnMenuBarHover() const
{
    return m_defaults.boolForKey(PrefKey::revealOnMenuBarHover);
}
void Preferences::setRevealOnMenuBarHover(bool on)
{
    writeBool(PrefKey::revealOnMenuBarHover, on);
}
bool Preferences::barShowsStatistics() const
{
    return m_defaults.boolForKey(PrefKey::barShowsStatistics);
}
void Preferences::setBarShowsStatistics(bool on)
{
    writeBool(PrefKey::barShowsStatistics, on);
}

QMap<QString, KeyChord> Preferences::itemShortcuts() const
{
    std::vector<KeyChord> global;
    for (Shortcut which : {Shortcut::Panel, Shortcut::HiddenSection})
        if (const std::optional<KeyChord> chord = shortcut(which))
            global.push_back(*chord);
    return ItemShortcuts::decode(
        m_defaults.persistentValue(PrefKey::itemShortcuts), global,
        [this](const QString& key, const QString& why) {
            const QString seen = PrefKey::itemShortcuts + u'/' + key;
            if (m_reportedShortcuts.value(seen) == why)
                return;
            m_reportedShortcuts.insert(seen, why);
            qCWarning(lcDefaults).noquote()
                << QStringLiteral("the setting %1 holds for \"%2\" what is %3; Ravlin leaves it out")
                       .arg(PrefKey::itemShortcuts, key, why);
        });
}

void Preferences::setItemShortcut(const QString& key, const std::optional<KeyChord>& chord)
{
    QMap<QString, KeyChord> shortcuts = itemShortcuts();
    if (chord)
        shortcuts.insert(key, *chord);
    else
        shortcuts.remove(key);
    m_defaults.set(PrefKey::itemShortcuts, ItemShortcuts::encode(shortcuts));
    changed();
}

} // namespace ravlin
