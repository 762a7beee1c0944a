// The picture of the bar: its signature, the watch over launches and quits, the
// cache of detected items and the placement of single items.
#include "StatusBarController.h"

#include "MenuBarDisplays.h"
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

#include <algorithm>
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

QString signatureOf(const std::vector<CaptureEngine::Raw>& raws)
{
    std::map<QString, int> counts; // sorted by owner
    for (const CaptureEngine::Raw& raw : raws) {
        if (!leftOutOfSignature(raw.owner, raw.name))
            ++counts[raw.owner];
    }
    QStringList parts;
    for (const auto& [owner, count] : counts)
        parts.append(owner + u':' + QString::number(count));
    return parts.join(u',');
}

// What the background part of a full rebuild hands back.
struct Rebuilt {
    std::vector<BarItem> items;
    QString signature; // of the bar the items were captured from
};

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
    return signatureOf(m_s.capture.scanAll());
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

void StatusBarController::appsChanged()
{
    // What hides items by application learns of the new one at once.
    applyLayout();
    // A burst of launches leads to one look at the bar, after the last of them.
    m_watchTimer.invalidate();
    m_watchTimer = m_s.scheduler.after(1.5, weakly([this] { checkForBarChanges(); }));
}

void StatusBarController::checkForBarChanges()
{
    // Not now, but not forgotten either: a launch while the bar is revealed or the panel
    // is open must still reach the panel.
    if (m_buildingCache || m_arranging || m_expanded || m_tileOpen) {
        m_barCheckPending = true;
        return;
    }
    m_barCheckPending = false;
    noticeArrangement();
    const QString signature = barSignature();
    if (signature == m_lastBarSignature)
        return;
    m_lastBarSignature = signature;
    invisibleRefresh();
}

void StatusBarController::resumeBarCheck()
{
    if (!m_barCheckPending)
        return;
    later(0.0, [this] {
        if (m_barCheckPending)
            checkForBarChanges();
    });
}

void StatusBarController::refreshCache()
{
    if (!m_expanded)
        return;
    publishDetected(allItems(m_s.grouping.makeGroups(hiddenCandidates())));
}

void StatusBarController::rebuildFullCache()
{
    if (m_buildingCache)
        return;
    beginReveal();
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
    scheduler.background<Rebuilt>(
        [&capture, &scheduler, alive, referenceX] {
            if (alive.expired() || !*alive.lock())
                return Rebuilt{}; // the application is gone, and with it the capture engine
            scheduler.sleepBlocking(0.65);
            const std::vector<CaptureEngine::Raw> raws = capture.scanAll();
            double menuBarY = 12.0;
            for (const CaptureEngine::Raw& raw : raws) {
                if (raw.x >= 0) {
                    menuBarY = raw.info().centerY();
                    break;
                }
            }
            // The signature of the bar as captured: an application that comes or goes
            // while the capture runs still counts as a change afterwards.
            return Rebuilt{capture.captureAll(referenceX - 40.0, menuBarY, referenceX),
                           signatureOf(raws)};
        },
        [this, alive](Rebuilt rebuilt) {
            if (alive.expired() || !*alive.lock())
                return;
            const bool firstLook = !m_didFullBuild;
            m_buildingCache = false;
            restoreOwnItems();
            m_expanded = false;
            m_revealingAlways = false;
            applyLayout();
            if (!rebuilt.items.empty()) {
                publishDetected(std::move(rebuilt.items));
                noticeNewItems(m_s.scannerModel.detected());
                applyItemFilter();
            }
            m_lastBarSignature = rebuilt.signature;
            m_didFullBuild = true;
            // A start is when the system may have forgotten where the items stood.
            if (firstLook)
                restoreArrangement(QStringLiteral("the start"));
            later(0.45, [this] { reHideEscapedItems(); });
            resumeBarCheck();
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
    publishDetected(mergeDetected(std::move(fresh)));
    noticeNewItems(m_s.scannerModel.detected());
    applyItemFilter();
    // What hides items by name learns of the new ones.
    applyLayout();
    // An item placed off is hidden wherever it turns up, also when its application starts
    // (unless the end of a reveal is about to look, once the bar has settled).
    if (!m_revealHidden)
        reHideEscapedItems();
}

double StatusBarController::hiddenSeparatorLimit() const
{
    if (auto frame = frameOf(hiddenSeparator()))
        return frame->x;
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
    QSet<std::int64_t> listed;
    for (const MenuBarItemInfo& info : m_s.scanner.scan()) {
        if (info.owner != u"Ravlin" && info.x + info.width <= limit + 2.0) {
            candidates.push_back(info);
            listed.insert(info.id);
        }
    }
    // So does an item the camera housing covers, wherever it stands.
    for (const MenuBarItemInfo& info : itemsBehindNotch())
        if (!listed.contains(info.id))
            candidates.push_back(info);
    std::stable_sort(candidates.begin(), candidates.end(),
                     [](const MenuBarItemInfo& a, const MenuBarItemInfo& b) { return a.x < b.x; });
    return candidates;
}

// The panel shows what is out of sight when it opens; an open one shows it anew.
void StatusBarController::applyItemFilter()
{
    if (m_tileOpen)
        presentTile();
}

} // namespace ravlin
