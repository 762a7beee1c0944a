// The picture of the bar: its signature, the watch over launches and quits, the
// cache of detected items and the placement of single items.
#include "StatusBarController.h"

#include "MenuBarHideEngine.h"
#include "MoveEngine.h"
#include "TilePanel.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/MenuBarApps.h"
#include "core/discovery/MenuBarScanner.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/Preferences.h"
#include "core/tiles/BarGrouping.h"
#include "core/tiles/BarItemFactory.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

#include <QHash>

#include <map>

namespace ravlin {
namespace {

// Entries that never count: our own items, the statistics application's items,
// the clock and the control centre.
bool leftOutOfSignature(const QString& owner, const QString& title)
{
    return owner == u"Ravlin" || title.startsWith(u"Ravlin") ||
           title.startsWith(u"com.bjango.istatmenus.") || title == u"Clock" ||
           title == u"BentoBox-0";
}

std::vector<BarItem> allItems(const std::vector<BarGroup>& groups)
{
    std::vector<BarItem> items;
    for (const BarGroup& group : groups)
        items.insert(items.end(), group.items.begin(), group.items.end());
    return items;
}

} // namespace

QString StatusBarController::barSignature() const
{
    std::map<QString, int> counts; // sorted by owner
    for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
        if (!leftOutOfSignature(raw.owner, raw.name))
            ++counts[raw.owner];
    }
    QStringList parts;
    for (const auto& [owner, count] : counts)
        parts.append(owner + u':' + QString::number(count));
    return parts.join(u',');
}

void StatusBarController::startAutoRefresh()
{
    m_lastBarSignature = barSignature();
    auto changed = weakly([this] { appsChanged(); });
    m_launchToken = m_s.workspace.addObserver(WorkspaceNotification::DidLaunchApplication,
                                              [changed](const RunningApplication&) { changed(); });
    m_terminateToken =
        m_s.workspace.addObserver(WorkspaceNotification::DidTerminateApplication,
                                  [changed](const RunningApplication&) { changed(); });
}

void StatusBarController::startEngineWatch()
{
    auto changed = weakly([this] { engineAppsChanged(); });
    m_launchToken = m_s.workspace.addObserver(WorkspaceNotification::DidLaunchApplication,
                                              [changed](const RunningApplication&) { changed(); });
    m_terminateToken =
        m_s.workspace.addObserver(WorkspaceNotification::DidTerminateApplication,
                                  [changed](const RunningApplication&) { changed(); });
}

void StatusBarController::appsChanged()
{
    // A burst of launches leads to one look at the bar, after the last of them.
    m_watchTimer.invalidate();
    m_watchTimer = m_s.scheduler.after(1.5, weakly([this] { checkForBarChanges(); }));
}

void StatusBarController::engineAppsChanged()
{
    m_watchTimer.invalidate();
    m_watchTimer = m_s.scheduler.after(1.2, weakly([this] {
                                           if (!m_engineRevealed)
                                               applyEngineAllowList();
                                       }));
}

void StatusBarController::checkForBarChanges()
{
    if (m_buildingCache || m_arranging || m_expanded || m_tileOpen)
        return;
    const QString signature = barSignature();
    if (signature == m_lastBarSignature)
        return;
    m_lastBarSignature = signature;
    invisibleRefresh();
}

void StatusBarController::refreshCache()
{
    if (!m_expanded)
        return;
    m_cachedGroups = m_s.grouping.makeGroups(hiddenCandidates());
    m_s.scannerModel.setDetected(allItems(m_cachedGroups));
}

void StatusBarController::rebuildFullCache()
{
    if (m_buildingCache)
        return;
    m_buildingCache = true;
    m_expanded = true;
    m_revealingAlways = true;
    applyLayout();
    shrinkOwnItems();
    const std::optional<ScreenRect> mainFrame = frameOf(m_mainItem.get());
    const double referenceX =
        mainFrame ? mainFrame->x : 1200.0; // x reads the same in both coordinate systems

    std::weak_ptr<bool> alive = m_alive;
    CaptureEngine& capture = m_s.capture;
    Scheduler& scheduler = m_s.scheduler;
    scheduler.background<std::vector<BarItem>>(
        [&capture, &scheduler, referenceX] {
            scheduler.sleepBlocking(0.65);
            double menuBarY = 12.0;
            for (const CaptureEngine::Raw& raw : capture.scanAll()) {
                if (raw.x >= 0) {
                    menuBarY = raw.info().centerY();
                    break;
                }
            }
            return capture.captureAll(referenceX - 40.0, menuBarY, referenceX);
        },
        [this, alive](std::vector<BarItem> items) {
            if (alive.expired() || !*alive.lock())
                return;
            m_buildingCache = false;
            restoreOwnItems();
            m_expanded = false;
            m_revealingAlways = false;
            applyLayout();
            if (!items.empty()) {
                m_s.scannerModel.setDetected(std::move(items));
                applyItemFilter();
            }
            m_lastBarSignature = barSignature();
            m_didFullBuild = true;
            later(0.45, [this] { reHideEscapedItems(); });
        });
}

std::vector<BarItem> StatusBarController::mergeDetected(std::vector<BarItem> fresh) const
{
    // An item keeps the key (and so the placement) it was detected under. Off screen
    // an item may not be identified the way it was on screen, so it is found by its
    // window first and by its key second; an image it had is kept when none can be taken now.
    QHash<std::int64_t, const BarItem*> byWindow;
    QHash<QString, const BarItem*> byKey;
    for (const BarItem& old : m_s.scannerModel.detected()) {
        byWindow.insert(old.info.id, &old);
        byKey.insert(old.key, &old);
    }
    for (BarItem& item : fresh) {
        const BarItem* old = byWindow.value(item.info.id, nullptr);
        const bool sameWindow = old != nullptr;
        if (!old)
            old = byKey.value(item.key, nullptr);
        if (!old)
            continue;
        item.key = old->key;
        if ((sameWindow || item.label.isEmpty()) && !old->label.isEmpty())
            item.label = old->label;
        if (!item.image && old->image)
            item.image = old->image;
    }
    return fresh;
}

void StatusBarController::invisibleRefresh()
{
    QHash<std::int64_t, BarItem> known;
    for (const BarItem& old : m_s.scannerModel.detected())
        known.insert(old.info.id, old);
    std::vector<BarItem> fresh;
    QSet<QString> seen;
    for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
        if (leftOutOfSignature(raw.owner, raw.name))
            continue;
        std::optional<BarItem> item = m_s.factory.makeItem(raw.info());
        // Off screen a generic item may not be identified at all; one detected before
        // stays, where it stands now.
        if (!item && known.contains(raw.info().id)) {
            item = known.value(raw.info().id);
            item->info = raw.info();
        }
        if (item && !seen.contains(item->key)) {
            seen.insert(item->key);
            fresh.push_back(std::move(*item));
        }
    }
    m_s.scannerModel.setDetected(mergeDetected(std::move(fresh)));
    applyItemFilter();
}

double StatusBarController::hiddenSeparatorLimit() const
{
    if (m_hiddenSep) {
        if (auto frame = frameOf(m_hiddenSep.get()))
            return frame->x;
    }
    return std::numeric_limits<double>::max();
}

std::vector<MenuBarItemInfo> StatusBarController::hiddenCandidates() const
{
    return hiddenCandidates(hiddenSeparatorLimit());
}

std::vector<MenuBarItemInfo> StatusBarController::hiddenCandidates(double limit) const
{
    // An item that touches the separator still counts as hidden: two points of slack.
    std::vector<MenuBarItemInfo> candidates;
    for (const MenuBarItemInfo& info : m_s.scanner.scan()) {
        if (info.owner != u"Ravlin" && info.x + info.width <= limit + 2.0)
            candidates.push_back(info);
    }
    return candidates;
}

void StatusBarController::applyItemFilter()
{
    std::vector<BarItem> kept;
    for (const BarItem& item : m_s.scannerModel.detected()) {
        if (!m_s.preferences.isItemHidden(item.key) && !m_s.preferences.isPinned(item.key))
            kept.push_back(item);
    }
    m_cachedGroups = m_s.grouping.group(kept);
    if (m_tileOpen)
        presentTile();
}

void StatusBarController::applyEngineAllowList()
{
    const QSet<QString> hidden = m_s.preferences.hiddenBundleIDs();
    QStringList keep;
    for (const QString& id : m_s.apps.scanBundleIDs()) {
        if (!hidden.contains(id))
            keep.append(id);
    }
    if (!m_s.bundleIdentifier.isEmpty())
        keep.append(m_s.bundleIdentifier);
    if (!m_s.preferences.hideSpotlight())
        keep.append(MenuBarHideEngine::spotlightBundleIDs());
    const std::vector<int> allowed =
        MenuBarHideEngine::allowedSystemItems(m_s.preferences.hiddenSystemItemIDs());
    m_s.hideEngine.restrict(keep, allowed, [](std::optional<PlatformError> error) {
        if (error)
            qCWarning(lcBar).noquote()
                << "the allow list could not be applied:" << error->description;
    });
}

void StatusBarController::setItemPinned(const QString& key, bool pinned)
{
    const ItemPlacement placement = pinned ? ItemPlacement::Bar : ItemPlacement::Panel;
    std::optional<std::int64_t> window;
    for (const BarItem& item : m_s.scannerModel.detected()) {
        if (item.key == key)
            window = item.info.id;
    }
    if (m_hiddenSep && window && !m_s.system.techniques().canMoveItems())
        qCInfo(lcBar).noquote() << "items cannot be moved on this system;" << key
                                << "keeps its place until the user drags it";
    else if (m_hiddenSep && window) {
        shrinkOwnItems();
        const std::optional<ScreenRect> separator = frameOf(m_hiddenSep.get());
        for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
            if (std::int64_t(raw.id) != *window || !separator)
                continue;
            // Just right of the separator is the visible side, just left of it the hidden one.
            const double target = pinned ? separator->maxX() + 1.0 : separator->x - 1.0;
            m_s.moveEngine.move(raw.id, raw.pid, target, raw.info().centerY());
            break;
        }
        restoreOwnItems();
    }
    m_s.preferences.setPlacement(key, placement);
}

void StatusBarController::reHideEscapedItems()
{
    if (!m_hiddenSep || !m_s.system.techniques().canMoveItems())
        return;
    QHash<std::int64_t, QString> keys;
    for (const BarItem& item : m_s.scannerModel.detected())
        keys.insert(item.info.id, item.key);

    auto escaped = [&]() -> std::optional<CaptureEngine::Raw> {
        const std::optional<ScreenRect> separator = frameOf(m_hiddenSep.get());
        if (!separator)
            return std::nullopt;
        for (const CaptureEngine::Raw& raw : m_s.capture.scanAll()) {
            const QString key = keys.value(std::int64_t(raw.id));
            if (!key.isEmpty() && raw.x >= separator->maxX() &&
                m_s.preferences.placement(key) != ItemPlacement::Bar)
                return raw;
        }
        return std::nullopt;
    };
    if (!escaped())
        return;
    // With the separators one point wide every item stands where it can be moved.
    shrinkOwnItems();
    for (int moves = 0; moves < 64; ++moves) {
        const std::optional<CaptureEngine::Raw> raw = escaped();
        const std::optional<ScreenRect> separator = frameOf(m_hiddenSep.get());
        if (!raw || !separator)
            break;
        qCInfo(lcBar).noquote() << "hiding" << raw->name << "of" << raw->owner << "again";
        m_s.moveEngine.move(raw->id, raw->pid, separator->x - 1.0, raw->info().centerY());
        if (auto after = escaped(); after && after->id == raw->id)
            break; // it does not move; leave it rather than loop
    }
    restoreOwnItems();
}

} // namespace ravlin
