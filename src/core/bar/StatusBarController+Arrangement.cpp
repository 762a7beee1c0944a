// The arrangement the user made is recorded after every change of theirs and kept: when
// the system reorders or resets the bar (at a start, a wake, a display change), the
// record brings it back; when the user moves an item by hand, that is the new record.
#include "StatusBarController.h"

#include "ArrangementPlanner.h"
#include "MoveEngine.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/ItemTitles.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/settings/Preferences.h"
#include "core/tiles/BarItemFactory.h"
#include "foundation/Logging.h"
#include "platform/Events.h"
#include "platform/StatusBar.h"

namespace ravlin {
namespace {

// How long an automatic restore waits for the user's hands to rest.
constexpr double restorePatience = 20.0;

bool isFixed(const CaptureEngine::Raw& raw)
{
    return raw.name == ItemTitles::clock || raw.name == ItemTitles::controlCentre;
}

// Touching a separator still counts as left of it: two points of slack.
bool leftOf(const CaptureEngine::Raw& raw, const ScreenRect& separator)
{
    return raw.x + raw.w <= separator.x + 2.0;
}

} // namespace

bool StatusBarController::keepsArrangement() const
{
    return m_hiding->keepsArrangement() && hiddenSeparator();
}

// Every item's key by window; an item no look has named yet is named now.
QHash<std::int64_t, QString>
StatusBarController::keysOf(const std::vector<CaptureEngine::Raw>& raws) const
{
    QHash<std::int64_t, QString> keys = detectedKeysByWindow();
    for (const CaptureEngine::Raw& raw : raws) {
        if (keys.contains(raw.id) || isFixed(raw))
            continue;
        if (const std::optional<BarItem> item = m_s.factory.makeItem(raw.info()))
            keys.insert(raw.id, item->key);
    }
    return keys;
}

BarArrangement StatusBarController::seenArrangement() const
{
    const std::optional<ScreenRect> hidden = frameOf(hiddenSeparator());
    const std::optional<ScreenRect> always = frameOf(alwaysSeparator());
    const std::vector<CaptureEngine::Raw> raws = m_s.capture.scanAll();
    const QHash<std::int64_t, QString> keys = keysOf(raws);
    QStringList tokens;
    bool pastAlways = !always, pastHidden = !hidden;
    for (const CaptureEngine::Raw& raw : raws) {
        const QString key = keys.value(std::int64_t(raw.id));
        if (key.isEmpty() || isFixed(raw))
            continue;
        if (!pastAlways && !leftOf(raw, *always)) {
            tokens << BarArrangement::alwaysMarker;
            pastAlways = true;
        }
        if (!pastHidden && !leftOf(raw, *hidden)) {
            tokens << BarArrangement::hiddenMarker;
            pastHidden = true;
        }
        tokens << key;
    }
    if (!pastAlways)
        tokens << BarArrangement::alwaysMarker;
    if (!pastHidden)
        tokens << BarArrangement::hiddenMarker;
    return BarArrangement::fromSequence(tokens);
}

// What the bar shows of the user's own doing: not the items the system moved where Ravlin
// could not put them back, nor those Ravlin could not bring where the user placed them.
BarArrangement StatusBarController::seenByUser(const BarArrangement& seen) const
{
    QStringList keys = seen.allKeys();
    for (const QString& key : m_movedBySystem)
        keys.removeAll(key);
    for (const QString& key : m_notWhereWanted)
        keys.removeAll(key);
    return seen.restrictedTo(keys);
}

void StatusBarController::recordArrangement()
{
    if (!keepsArrangement())
        return;
    const BarArrangement seen = seenArrangement();
    const std::optional<BarArrangement> recorded = m_arrangements.recorded();
    m_arrangements.record(recorded ? BarArrangement::merged(*recorded, seenByUser(seen)) : seen);
}

// After Ravlin did what it can for a placement: an item that still stands on the other side
// (nothing could move it there) is not where the user wants it, and not by the user's hand.
void StatusBarController::noteWhereItStands(const QString& key)
{
    const std::optional<BarArrangement> recorded = m_arrangements.recorded();
    if (!keepsArrangement() || !recorded)
        return;
    const std::optional<BarArrangement::Section> seen = seenArrangement().sectionOf(key);
    if (seen && seen != recorded->sectionOf(key))
        m_notWhereWanted.insert(key);
    else
        m_notWhereWanted.remove(key);
}

// A placement the user chose also says on which side of the separators the item belongs:
// the record follows it, so that every technique reads one answer.
void StatusBarController::recordPlacement(const QString& key, ItemPlacement placement)
{
    const std::optional<BarArrangement> recorded = m_arrangements.recorded();
    if (!recorded)
        return;
    const std::optional<BarArrangement::Section> section = recorded->sectionOf(key);
    const bool visible = placement == ItemPlacement::Bar;
    if (section && (section == BarArrangement::Section::Visible) == visible)
        return;
    QStringList tokens = recorded->sequence();
    tokens.removeAll(key);
    const qsizetype marker = tokens.indexOf(BarArrangement::hiddenMarker);
    tokens.insert(visible ? marker + 1 : marker, key);
    m_arrangements.record(BarArrangement::fromSequence(tokens));
}

// The user rearranges the bar by command-dragging its items; the system reorders it without
// anyone touching it. Only a look after such a drag takes the bar's order for the user's.
void StatusBarController::watchDragsByHand()
{
    m_dragWatch = m_s.monitors.addGlobalMonitor(
        EventMonitors::LeftMouseDown, [noted = weakly([this] {
                                          if (m_s.events.modifierFlagsHeld() & EventFlag::command)
                                              m_draggedByHand = true;
                                      })](EventMonitors::Kind) { noted(); });
}

// An ordinary look at the bar: what differs from the record was moved by the user's hand,
// and items that changed sides change their placement as arrange mode would decide. Items
// the system moved and Ravlin could not put back are not the user's doing: the record keeps
// them where the user had them.
void StatusBarController::noticeArrangement()
{
    if (!keepsArrangement() || revealUnderWay() || m_revealHidden || m_restoring)
        return;
    // While a restore waits for the user's hands, or the panel offers it, the order seen is
    // the system's, not the user's.
    if (restoreWaiting() || (!m_movedBySystem.isEmpty() && m_s.system.techniques().canMoveItems()))
        return;
    const std::optional<BarArrangement> recorded = m_arrangements.recorded();
    const BarArrangement seen = seenArrangement();
    if (!recorded) {
        m_arrangements.record(seen);
        return;
    }
    // Without a drag by hand since the last look, only items new to the record join it, where
    // they stand; every other difference is the system's, for the next restore to undo.
    const bool byHand = std::exchange(m_draggedByHand, false);
    const BarArrangement userSeen = byHand ? seenByUser(seen)
                                           : BarArrangement::restored(*recorded, seenByUser(seen));
    const QStringList byUser = userSeen.allKeys();
    const BarArrangement merged = BarArrangement::merged(*recorded, userSeen);
    if (merged == *recorded)
        return;
    QHash<QString, ItemPlacement> placements;
    for (const QString& key : byUser) {
        const auto was = recorded->sectionOf(key);
        const auto now = userSeen.sectionOf(key);
        if (!was || was == now || m_s.preferences.placement(key) == ItemPlacement::Off)
            continue;
        const bool visibleNow = now == BarArrangement::Section::Visible;
        const ItemPlacement wanted = visibleNow ? ItemPlacement::Bar : ItemPlacement::Panel;
        if (visibleNow != (was == BarArrangement::Section::Visible) &&
            m_s.preferences.placement(key) != wanted)
            placements.insert(key, wanted);
    }
    if (merged.restrictedTo(recorded->allKeys()) == recorded->restrictedTo(merged.allKeys()))
        qCInfo(lcBar) << "items new to the arrangement join it where they stand";
    else
        qCInfo(lcBar) << "the bar was rearranged by hand; that is the arrangement now";
    m_arrangements.record(merged);
    // An item the user dragged back where the record has it is no longer moved.
    m_movedBySystem.removeIf([&](const QString& key) {
        return seen.sectionOf(key) == merged.sectionOf(key);
    });
    m_notWhereWanted.removeIf([&](const QString& key) {
        return seen.sectionOf(key) == merged.sectionOf(key);
    });
    if (!placements.isEmpty())
        m_s.preferences.setPlacements(placements);
}

// A start, a wake or a display change: what the system reordered or reset goes back where
// the record has it. Where items cannot be moved, the panel says which moved.
void StatusBarController::restoreArrangement(const QString& occasion)
{
    if (!keepsArrangement() || revealUnderWay() || m_restoring)
        return;
    const std::optional<BarArrangement> recorded = m_arrangements.recorded();
    if (!recorded) {
        noticeArrangement();
        return;
    }
    const BarArrangement seen = seenArrangement();
    const BarArrangement wanted = BarArrangement::restored(*recorded, seen);
    const std::vector<ArrangementMove> moves =
        movesBetween(seen, wanted);
    m_movedBySystem.clear();
    if (moves.empty()) {
        m_arrangements.record(BarArrangement::merged(*recorded, seen));
        return;
    }
    if (!m_s.system.techniques().canMoveItems()) {
        for (const ArrangementMove& move : moves)
            m_movedBySystem.append(move.key);
        qCWarning(lcBar).noquote() << "after" << occasion << "the system moved"
                                   << m_movedBySystem.join(QStringLiteral(", "))
                                   << "- items cannot be moved here; the panel says so";
        return;
    }
    if (const std::optional<QString> busy = m_s.moveEngine.guard().busy()) {
        waitToRestore(occasion, moves, *busy);
        return;
    }
    m_quietWait.reset();
    qCInfo(lcBar).noquote() << "after" << occasion << "the system moved" << moves.size()
                            << "items; putting them back";
    m_restoring = true;
    shrinkOwnItems();
    for (const ArrangementMove& move : moves)
        performMove(move);
    restoreOwnItems();
    m_restoring = false;
    const BarArrangement after = seenArrangement();
    if (BarArrangement::restored(*recorded, after) != after) {
        const std::vector<ArrangementMove> left =
            movesBetween(after, wanted);
        for (const ArrangementMove& move : left)
            m_movedBySystem.append(move.key);
        qCWarning(lcBar).noquote() << "could not put back" << m_movedBySystem.join(u", ");
    }
}

// The drags would take the pointer from the user's hand: they wait for a quiet moment. If
// none comes in time, nothing moves and the panel offers to put the items back in one click.
void StatusBarController::waitToRestore(const QString& occasion,
                                        const std::vector<ArrangementMove>& moves,
                                        const QString& why)
{
    if (restoreWaiting())
        return;
    qCInfo(lcBar).noquote() << "after" << occasion << "the system moved" << moves.size()
                            << "items; they go back once the user's hands rest -" << why;
    QStringList keys;
    for (const ArrangementMove& move : moves)
        keys.append(move.key);
    m_quietWait = std::make_unique<QuietMoment>(
        m_s.moveEngine.guard(), m_s.scheduler, restorePatience,
        weakly([this, occasion] { restoreArrangement(occasion); }),
        weakly([this, keys] {
            m_movedBySystem = keys;
            qCWarning(lcBar).noquote()
                << "the user kept working for" << restorePatience
                << "s; nothing was moved and the panel offers to put back" << keys.join(u", ");
        }));
}

// Without an always-hidden separator its marker stands for nothing in the bar: an item
// cannot be put next to it.
std::vector<ArrangementMove> StatusBarController::movesBetween(const BarArrangement& seen,
                                                               const BarArrangement& wanted) const
{
    auto tokens = [this](const BarArrangement& a) {
        QStringList sequence = a.sequence();
        if (!alwaysSeparator())
            sequence.removeAll(BarArrangement::alwaysMarker);
        return sequence;
    };
    return ArrangementPlanner::movesFrom(tokens(seen), tokens(wanted));
}

// The item goes next to its anchor. Once it leaves its place the row, which grows leftwards
// from the right edge, closes up: whatever stood left of it moves its width to the right.
void StatusBarController::performMove(const ArrangementMove& move)
{
    const std::vector<CaptureEngine::Raw> raws = m_s.capture.scanAll();
    const QHash<std::int64_t, QString> keys = keysOf(raws);
    std::optional<CaptureEngine::Raw> item;
    std::optional<double> anchorX, anchorMaxX;
    for (const CaptureEngine::Raw& raw : raws) {
        const QString key = keys.value(std::int64_t(raw.id));
        if (key == move.key)
            item = raw;
        if (key == move.anchor) {
            anchorX = raw.x;
            anchorMaxX = raw.x + raw.w;
        }
    }
    if (move.anchor == BarArrangement::hiddenMarker ||
        move.anchor == BarArrangement::alwaysMarker) {
        const StatusItem* separator = move.anchor == BarArrangement::hiddenMarker
                                          ? hiddenSeparator()
                                          : alwaysSeparator();
        if (const std::optional<ScreenRect> frame = frameOf(separator)) {
            anchorX = frame->x;
            anchorMaxX = frame->maxX();
        }
    }
    if (!item || !anchorX) {
        qCDebug(lcBar).noquote() << "cannot move" << move.key << "next to" << move.anchor
                                 << (item ? "- the anchor is not in the bar" : "- not in the bar");
        return;
    }
    const double shift = item->x > *anchorX ? item->w : 0;
    const double centre = (move.rightOfAnchor ? *anchorMaxX : *anchorX) + shift - item->w / 2.0;
    qCDebug(lcBar).noquote() << "moving" << move.key << (move.rightOfAnchor ? "right of" : "left of")
                             << move.anchor << "- from x" << item->x << "to" << centre;
    m_s.moveEngine.move(item->id, item->pid, centre, item->info().centerY());
}

} // namespace ravlin
