// What the user can see of the bar, and what the panel offers of the rest: every item out of
// sight, whatever keeps it there, and never one in sight or one placed nowhere.
#include "StatusBarController.h"

#include "MenuBarDisplays.h"
#include "MenuBarHideEngine.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/ItemTitles.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "core/tiles/BarGrouping.h"
#include "core/tiles/BarItemFactory.h"
#include "platform/MenuExtras.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace ravlin {
namespace {

bool isFixed(const CaptureEngine::Raw& raw)
{
    return raw.name == ItemTitles::clock || raw.name == ItemTitles::controlCentre;
}

QString displayName(const BarItem& item)
{
    return item.label.isEmpty() ? item.info.owner : item.label;
}

QString joined(const QStringList& names)
{
    return names.join(QStringLiteral(", "));
}

} // namespace

std::vector<BarEntry> StatusBarController::barEntries(bool nameNew) const
{
    const std::vector<CaptureEngine::Raw> raws = m_s.capture.scanAll();
    const QHash<std::int64_t, QString> keys = nameNew ? keysOf(raws) : detectedKeysByWindow();
    QHash<std::int32_t, QString> bundles;
    for (const RunningApplication& app : m_s.workspace.runningApplications())
        bundles.insert(app.pid, app.bundleIdentifier.value_or(QString()));
    std::vector<BarEntry> entries;
    entries.reserve(raws.size());
    for (const CaptureEngine::Raw& raw : raws) {
        BarEntry entry;
        entry.raw = raw;
        entry.key = keys.value(std::int64_t(raw.id));
        entry.bundleId = bundles.value(raw.pid);
        entry.systemItem = MenuExtras::systemItemNumber(raw.name, entry.bundleId);
        entry.fixed = isFixed(raw);
        entries.push_back(std::move(entry));
    }
    return entries;
}

// The processes that run now, and the one of each application.
StatusBarController::Running StatusBarController::running() const
{
    Running now;
    for (const RunningApplication& app : m_s.workspace.runningApplications()) {
        now.pids.insert(app.pid);
        if (app.bundleIdentifier)
            now.pidOf.insert(*app.bundleIdentifier, app.pid);
    }
    return now;
}

std::int32_t StatusBarController::Running::pidFor(const BarItem& item) const
{
    const std::int32_t pid = item.bundleId.isEmpty() ? item.pid : pidOf.value(item.bundleId, 0);
    return pid > 0 && pids.contains(pid) ? pid : 0;
}

// An item whose application still runs but that the bar does not list now: where hiding takes
// items out of the bar, it is hidden, not gone.
std::vector<BarEntry> StatusBarController::absentEntries(const std::vector<BarEntry>& present) const
{
    QSet<QString> listed;
    for (const BarEntry& e : present)
        listed.insert(e.key);
    const Running now = running();
    std::vector<BarEntry> absent;
    for (const BarItem& item : m_s.scannerModel.detected()) {
        const std::int32_t pid = now.pidFor(item);
        if (listed.contains(item.key) || pid == 0)
            continue;
        BarEntry entry;
        entry.raw = {std::uint32_t(item.info.id), pid, item.info.x, item.info.y,
                     item.info.width, item.info.height, item.info.owner, item.info.name};
        entry.key = item.key;
        entry.bundleId = item.bundleId;
        entry.systemItem = MenuExtras::systemItemNumber(item.info.name, item.bundleId);
        entry.inBar = false;
        listed.insert(item.key);
        absent.push_back(std::move(entry));
    }
    return absent;
}

std::vector<BarEntry> StatusBarController::knownEntries(bool nameNew) const
{
    std::vector<BarEntry> entries = barEntries(nameNew);
    std::vector<BarEntry> absent = absentEntries(entries);
    entries.insert(entries.end(), std::make_move_iterator(absent.begin()),
                   std::make_move_iterator(absent.end()));
    return entries;
}

// The hide engine once kept lists of its own (applications and system items hidden); they
// become placements, once, for the items in the bar now, so that every technique reads them.
void StatusBarController::readEngineListsOnce()
{
    DefaultsStore& defaults = m_s.preferences.defaults();
    const bool hasLists = !defaults.persistentValue(PrefKey::hiddenBundleIDs).isNull() ||
                          !defaults.persistentValue(PrefKey::hiddenSystemItems).isNull() ||
                          !defaults.persistentValue(PrefKey::hideSpotlight).isNull();
    if (!hasLists || defaults.boolForKey(PrefKey::engineListsRead))
        return;
    const QSet<QString> hiddenApps = m_s.preferences.hiddenBundleIDs();
    const std::set<std::int64_t> hiddenSystem = m_s.preferences.hiddenSystemItemIDs();
    const bool hideSpotlight = m_s.preferences.hideSpotlight();
    const BarWishes::Now wishes = m_wishes.now();
    QHash<QString, ItemPlacement> placements;
    for (const BarEntry& entry : barEntries()) {
        if (entry.fixed || entry.key.isEmpty() || wishes.inBar.contains(entry.key) ||
            wishes.off.contains(entry.key))
            continue;
        const bool hidden =
            entry.systemItem
                ? hiddenSystem.count(*entry.systemItem) > 0
                : hiddenApps.contains(entry.bundleId) ||
                      (hideSpotlight &&
                       MenuBarHideEngine::spotlightBundleIDs().contains(entry.bundleId));
        placements.insert(entry.key, hidden ? ItemPlacement::Panel : ItemPlacement::Bar);
    }
    qCInfo(lcBar) << "the hide engine's lists became placements for" << placements.size()
                  << "items";
    defaults.set(PrefKey::engineListsRead, true);
    m_s.preferences.setPlacements(placements);
}

std::optional<HiddenBy> StatusBarController::hiddenBy(const BarEntry& entry) const
{
    return hiddenBy(std::vector<BarEntry>{entry}).front();
}

// What the camera housing covers is hidden whatever the technique does; what the technique
// does not hide but the bar has no room for waits in the overflow menu. One look at the bar
// and the displays for all the items.
std::vector<std::optional<HiddenBy>>
StatusBarController::hiddenBy(const std::vector<BarEntry>& entries) const
{
    std::vector<std::optional<HiddenBy>> reasons = m_hiding->hiddenBy(entries);
    const std::vector<ScreenInfo> screens = m_s.screens.screens();
    const bool notched = std::any_of(screens.begin(), screens.end(),
                                     [](const ScreenInfo& s) { return s.notch.has_value(); });
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const BarEntry& entry = entries[i];
        if (!entry.inBar)
            continue; // out of the bar: only the technique can say why
        if (notched && MenuBarDisplays::behindNotch(
                           Geometry::toScreen(entry.raw.info().frame(),
                                              screens.front().frame.height),
                           screens))
            reasons[i] = HiddenBy::Notch;
        else if (entry.fixed)
            reasons[i].reset();
        else if (!reasons[i] && !entry.onScreen())
            reasons[i] = HiddenBy::Overflow;
    }
    return reasons;
}

StatusBarController::OutOfSight StatusBarController::outOfSight() const
{
    OutOfSight result;
    const BarWishes::Now wishes = m_wishes.now();
    QHash<QString, const BarItem*> known;
    for (const BarItem& item : m_s.scannerModel.detected())
        known.insert(item.key, &item);
    std::vector<BarItem> items, always;
    QSet<QString> listed;
    QSet<QString> bundlesKeptForOthers; // applications in the bar for one item's sake
    std::vector<const BarEntry*> inSightUnwanted;
    const std::vector<BarEntry> entries = knownEntries();
    const std::vector<std::optional<HiddenBy>> reasons = hiddenBy(entries);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const BarEntry& entry = entries[i];
        const std::optional<HiddenBy>& why = reasons[i];
        if (!why && !entry.inBar)
            continue; // gone from the bar, and not by being hidden
        if (!why) {
            if (!entry.fixed && !wishes.wantsInSight(entry.key))
                inSightUnwanted.push_back(&entry);
            if (!entry.fixed && wishes.wantsInSight(entry.key))
                bundlesKeptForOthers.insert(entry.bundleId);
            continue;
        }
        std::optional<BarItem> item;
        if (const BarItem* k = known.value(entry.key, nullptr))
            item = *k;
        else
            item = m_s.factory.makeItem(entry.raw.info());
        if (!item || listed.contains(item->key))
            continue;
        const ItemPlacement placement = wishes.placement(item->key);
        if (placement == ItemPlacement::Off)
            continue;
        listed.insert(item->key);
        item->info = entry.raw.info();
        item->placedInBar = wishes.wantsInSight(item->key);
        if (item->placedInBar)
            (*why == HiddenBy::Engine ? result.engineCannotShow : result.cannotBringIntoSight)
                .append(displayName(*item));
        // Where the bar drops long items, whatever a separator pushes out or the bar has no
        // room for waits in the system's overflow menu.
        if (m_s.system.capabilities().hasOverflowMenu() && *why != HiddenBy::Engine &&
            *why != HiddenBy::Notch)
            result.inOverflow.append(displayName(*item));
        const bool alwaysHidden =
            *why == HiddenBy::AlwaysSeparator ||
            (*why == HiddenBy::Engine && wishes.inAlwaysHiddenSection(item->key));
        (alwaysHidden ? always : items).push_back(std::move(*item));
    }
    // Where hiding goes by application, an item placed in the panel may stay in sight
    // because another item of its application is placed in the bar.
    if (m_hiding->hidesWholeApplications()) {
        for (const BarEntry* entry : inSightUnwanted)
            if (!entry->bundleId.isEmpty() && bundlesKeptForOthers.contains(entry->bundleId))
                result.keptWithApplication.append(itemName(entry->key));
    }
    result.groups = m_s.grouping.group(items);
    if (!always.empty())
        result.groups.push_back(
            {m_s.language.L(QStringLiteral("bar.alwaysHiddenSection")), std::move(always)});
    return result;
}

// One line under the tiles, the most useful first, with what a click on it does.
StatusBarController::Footnote StatusBarController::footnoteFor(const OutOfSight& sight) const
{
    const LanguageManager& lm = m_s.language;
    if (!m_movedBySystem.isEmpty()) {
        QStringList names;
        for (const QString& key : m_movedBySystem)
            names.append(itemName(key));
        const bool canMove = m_s.system.techniques().canMoveItems();
        return {lm.L(canMove ? QStringLiteral("bar.movedNote")
                             : QStringLiteral("bar.movedNote.arrange"),
                     joined(names)),
                canMove ? Footnote::Action::Restore : Footnote::Action::Arrange};
    }
    if (!sight.cannotBringIntoSight.isEmpty())
        return {lm.L(QStringLiteral("bar.placedNote.arrange"), joined(sight.cannotBringIntoSight)),
                Footnote::Action::Arrange};
    if (!sight.engineCannotShow.isEmpty())
        return {lm.L(QStringLiteral("bar.placedNote.engine"), joined(sight.engineCannotShow)),
                Footnote::Action::None};
    if (!sight.keptWithApplication.isEmpty())
        return {lm.L(QStringLiteral("bar.wholeAppsNote"), joined(sight.keptWithApplication)),
                Footnote::Action::None};
    if (!sight.inOverflow.isEmpty())
        return {lm.L(QStringLiteral("bar.overflowNote")), Footnote::Action::None};
    return {};
}

QString StatusBarController::panelFootnote() const
{
    return m_footnote.text;
}

// The one button of the note: put moved items back, or where Ravlin cannot move items, open
// arrange mode so that the user can.
void StatusBarController::footnoteClicked()
{
    const Footnote::Action action = m_footnote.action;
    if (action == Footnote::Action::None)
        return;
    closeTile();
    if (action == Footnote::Action::Restore)
        restoreArrangement(QStringLiteral("the user's request"));
    else
        enterArrangeMode();
}

std::vector<MenuBarItemInfo> StatusBarController::itemsBehindNotch() const
{
    std::vector<MenuBarItemInfo> covered;
    const std::vector<ScreenInfo> screens = m_s.screens.screens();
    if (std::none_of(screens.begin(), screens.end(),
                     [](const ScreenInfo& s) { return s.notch.has_value(); }))
        return covered;
    const double mainHeight = screens.front().frame.height;
    for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
        const MenuBarItemInfo info = raw.info();
        if (MenuBarDisplays::behindNotch(Geometry::toScreen(info.frame(), mainHeight), screens))
            covered.push_back(info);
    }
    return covered;
}

} // namespace ravlin
