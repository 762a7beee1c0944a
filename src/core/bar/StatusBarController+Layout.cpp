// The layout of the bar is the user's: items change sides only by the user's hand
// (arrange mode, a placement in the settings or the status menu). A reveal remembers
// what stood on the hidden side when it began, and only that goes back afterwards;
// an item placed off is hidden wherever it turns up.
#include "StatusBarController.h"

#include "ArrangementPlanner.h"
#include "MoveEngine.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/ItemTitles.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/Preferences.h"
#include "core/tiles/BarItemFactory.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

namespace ravlin {
namespace {

// An item that touches a separator still stands on its left: two points of slack, as
// for the panel's candidates.
bool standsLeftOf(const CaptureEngine::Raw& raw, const ScreenRect& separator)
{
    return raw.x + raw.w <= separator.x + 2.0;
}

} // namespace

void StatusBarController::publishDetected(std::vector<BarItem> items)
{
    // An item the bar does not list while its application runs is hidden by the system, not
    // gone: it stays known, and offered.
    QSet<QString> listed;
    for (const BarItem& item : items)
        listed.insert(item.key);
    for (const BarEntry& entry : barEntries(false))
        listed.insert(entry.key);
    const Running now = running();
    for (const BarItem& old : m_s.scannerModel.detected())
        if (!listed.contains(old.key) && now.pidFor(old) != 0)
            items.push_back(old);
    for (const BarItem& item : items)
        m_knownKeys.insert(item.info.id, item.key);
    m_s.scannerModel.setDetected(std::move(items));
}

QHash<std::int64_t, QString> StatusBarController::detectedKeysByWindow() const
{
    // A refresh while the bar is revealed lists only the hidden items; the key of an item
    // seen before on the visible side is still known by its window.
    QHash<std::int64_t, QString> keys = m_knownKeys;
    for (const BarItem& item : m_s.scannerModel.detected())
        keys.insert(item.info.id, item.key);
    return keys;
}

void StatusBarController::beginReveal()
{
    const std::optional<ScreenRect> hidden = frameOf(hiddenSeparator());
    if (!hidden)
        return;
    const std::optional<ScreenRect> always = frameOf(alwaysSeparator());
    const QHash<std::int64_t, QString> keys = detectedKeysByWindow();
    // Reveals may overlap (a second tile clicked before the first reveal ended): what
    // stood hidden at the start of any of them goes back.
    HiddenSide& side = m_revealHidden ? *m_revealHidden : m_revealHidden.emplace();
    for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
        if (!standsLeftOf(raw, *hidden))
            continue;
        side.windows.insert(raw.id);
        if (const QString key = keys.value(std::int64_t(raw.id)); !key.isEmpty())
            side.keys.insert(key);
        if (always && standsLeftOf(raw, *always))
            side.alwaysWindows.insert(raw.id);
    }
}

bool StatusBarController::revealUnderWay() const
{
    return m_expanded || m_buildingCache || m_arranging || m_revealCollapseMonitor;
}

void StatusBarController::revealEnded()
{
    if (m_revealHidden)
        later(0.2, [this] { reHideEscapedItems(); });
    resumeBarCheck();
}

void StatusBarController::reHideEscapedItems()
{
    if (!hiddenSeparator() || revealUnderWay())
        return; // the end of the reveal under way comes back here
    if (!m_s.system.techniques().canMoveItems()) {
        m_revealHidden.reset(); // nothing can be moved back here: the user's own drag decides
        noticeArrangement();
        return;
    }
    const HiddenSide side = m_revealHidden.value_or(HiddenSide{});
    m_revealHidden.reset();
    // Only what Ravlin itself brought into view goes back, to where it stood: an item the
    // user dragged across meanwhile is the user's decision and becomes the arrangement.
    putBack(side);
    hideItemsPlacedOff(side);
    noticeArrangement();
}

// Where the arrangement has them; without one yet, just left of their section's separator.
void StatusBarController::putBack(const HiddenSide& side)
{
    if (side.movedOut.isEmpty())
        return;
    const std::optional<BarArrangement> recorded = m_arrangements.recorded();
    if (!recorded) {
        moveLeftOfSeparators(side, [&](const CaptureEngine::Raw& raw, const QString&) {
            return side.movedOut.contains(raw.id);
        });
        return;
    }
    const QHash<std::int64_t, QString> keys = detectedKeysByWindow();
    QSet<QString> movedKeys;
    for (std::int64_t window : side.movedOut)
        movedKeys.insert(keys.value(window));
    const BarArrangement seen = seenArrangement();
    const BarArrangement wanted = BarArrangement::restored(*recorded, seen);
    shrinkOwnItems();
    for (const ArrangementMove& move :
         movesBetween(seen, wanted)) {
        if (movedKeys.contains(move.key)) {
            qCInfo(lcBar).noquote() << "putting" << move.key << "back";
            performMove(move);
        }
    }
    restoreOwnItems();
}

void StatusBarController::hideItemsPlacedOff(const HiddenSide& side)
{
    moveLeftOfSeparators(side, [this](const CaptureEngine::Raw&, const QString& key) {
        return !key.isEmpty() && m_s.preferences.placement(key) == ItemPlacement::Off;
    });
}

void StatusBarController::moveLeftOfSeparators(
    const HiddenSide& side,
    const std::function<bool(const CaptureEngine::Raw&, const QString&)>& belongsHidden)
{
    const QHash<std::int64_t, QString> keys = detectedKeysByWindow();
    QSet<std::int64_t> tried;
    auto nextEscaped = [&]() -> std::optional<CaptureEngine::Raw> {
        const std::optional<ScreenRect> separator = frameOf(hiddenSeparator());
        if (!separator)
            return std::nullopt;
        for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
            if (!tried.contains(raw.id) && !standsLeftOf(raw, *separator) &&
                belongsHidden(raw, keys.value(std::int64_t(raw.id))))
                return raw;
        }
        return std::nullopt;
    };
    if (!nextEscaped())
        return;
    // With the separators one point wide every item stands where it can be moved.
    shrinkOwnItems();
    for (int moves = 0; moves < 64; ++moves) {
        const std::optional<CaptureEngine::Raw> raw = nextEscaped();
        if (!raw)
            break;
        tried.insert(raw->id); // one attempt each: an item that does not move is left alone
        const bool always = side.alwaysWindows.contains(raw->id) && alwaysSeparator();
        const std::optional<ScreenRect> separator =
            frameOf(always ? alwaysSeparator() : hiddenSeparator());
        if (!separator)
            continue;
        // The target is where the item's centre should land. Once the item leaves its
        // place right of the separator, the row (which grows leftwards from the right
        // edge) closes up and the separator stands the item's width further right: the
        // place just left of it is then centred half a width right of its x today.
        const double target = separator->x + raw->w / 2.0;
        qCInfo(lcBar).noquote() << "hiding" << raw->name << "of" << raw->owner << "again";
        m_s.moveEngine.move(raw->id, raw->pid, target, raw->info().centerY());
    }
    restoreOwnItems();
}

QSet<std::int64_t> StatusBarController::windowsRightOfHiddenSeparator() const
{
    QSet<std::int64_t> windows;
    const std::optional<ScreenRect> separator = frameOf(hiddenSeparator());
    if (!separator)
        return windows;
    for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
        if (!standsLeftOf(raw, *separator))
            windows.insert(raw.id);
    }
    return windows;
}

// Arrange mode is the user's decision: right of the marker means kept in the bar;
// moved from there to the left means the panel. Items placed off stay off.
void StatusBarController::storeArrangedPlacements()
{
    const std::optional<ScreenRect> separator = frameOf(hiddenSeparator());
    if (!separator)
        return;
    const QHash<std::int64_t, QString> keys = detectedKeysByWindow();
    QHash<QString, ItemPlacement> placements;
    for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
        if (raw.name == ItemTitles::clock || raw.name == ItemTitles::controlCentre)
            continue; // fixed at the right end: nothing to decide
        // An item no look at the bar has named yet (all items are on screen now).
        QString key = keys.value(std::int64_t(raw.id));
        if (key.isEmpty()) {
            if (const std::optional<BarItem> item = m_s.factory.makeItem(raw.info()))
                key = item->key;
        }
        if (key.isEmpty())
            continue;
        const ItemPlacement now = m_s.preferences.placement(key);
        if (now == ItemPlacement::Off)
            continue;
        if (!standsLeftOf(raw, *separator)) {
            if (now != ItemPlacement::Bar)
                placements.insert(key, ItemPlacement::Bar);
        } else if (m_arrangeVisible.contains(raw.id) && now != ItemPlacement::Panel) {
            placements.insert(key, ItemPlacement::Panel);
        }
    }
    if (!placements.isEmpty())
        qCInfo(lcBar) << "arrange mode placed" << placements.size() << "items";
    m_s.preferences.setPlacements(placements);
}

void StatusBarController::placeItem(const QString& key, ItemPlacement placement)
{
    if (placement != ItemPlacement::Off) {
        setItemPinned(key, placement == ItemPlacement::Bar);
        return;
    }
    m_s.preferences.setPlacement(key, placement);
    recordPlacement(key, placement);
    // An item taken off the bar must not stay visible right of the separator.
    reHideEscapedItems();
    m_hiding->placementsChanged();
    noteWhereItStands(key);
}

void StatusBarController::setItemPinned(const QString& key, bool pinned)
{
    const ItemPlacement placement = pinned ? ItemPlacement::Bar : ItemPlacement::Panel;
    if (hiddenSeparator() && m_s.system.techniques().canMoveItems()) {
        // Just right of the separator is the visible side, just left of it the hidden one.
        shrinkOwnItems();
        performMove({key, BarArrangement::hiddenMarker, pinned});
        restoreOwnItems();
    }
    m_s.preferences.setPlacement(key, placement);
    recordPlacement(key, placement);
    m_hiding->placementsChanged();
    noteWhereItStands(key);
    recordArrangement();
}

} // namespace ravlin
