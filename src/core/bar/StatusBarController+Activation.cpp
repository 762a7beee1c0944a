// The tile panel, and what a click on a tile does: the hidden item is brought
// on screen and opened for the user, and the bar hides itself again afterwards.
#include "StatusBarController.h"

#include "MenuBarDisplays.h"
#include "MoveEngine.h"
#include "TilePanel.h"
#include "core/discovery/AXResolver.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/sysinfo/Stat.h"
#include "core/tiles/BarGrouping.h"
#include "core/tiles/BarItemFactory.h"
#include "foundation/Logging.h"
#include "platform/Events.h"
#include "platform/Screens.h"
#include "platform/StatusBar.h"

namespace ravlin {
namespace {

// How long an activation waits for the user's hands to rest before it drags an item out.
constexpr double activationPatience = 3.0;

std::optional<MenuBarItemInfo> findInGroups(const std::vector<BarGroup>& groups,
                                            const BarItem& wanted)
{
    auto find = [&](auto&& matches) -> std::optional<MenuBarItemInfo> {
        for (const BarGroup& group : groups)
            for (const BarItem& item : group.items)
                if (matches(item))
                    return item.info;
        return std::nullopt;
    };
    if (auto hit = find([&](const BarItem& i) { return i.key == wanted.key; }))
        return hit;
    if (auto hit = find([&](const BarItem& i) { return i.info.id == wanted.info.id; }))
        return hit;
    return find([&](const BarItem& i) {
        return i.info.owner == wanted.info.owner && i.info.name == wanted.info.name;
    });
}

std::optional<CaptureEngine::Raw> findRaw(const std::vector<CaptureEngine::Raw>& raws,
                                          const BarItem& wanted)
{
    for (const auto& raw : raws)
        if (std::int64_t(raw.id) == wanted.info.id)
            return raw;
    for (const auto& raw : raws)
        if (raw.owner == wanted.info.owner && raw.name == wanted.info.name)
            return raw;
    return std::nullopt;
}

} // namespace

void StatusBarController::toggleTile()
{
    if (m_s.panel && m_s.panel->isVisible()) {
        closeTile();
        return;
    }
    // A click that closed the panel must not reopen it at once.
    if (m_s.scheduler.now() - m_lastTileClose > 0.25)
        openTile();
}

// The shortcut works from any application: the panel opens on the display the pointer is on,
// and a close just before does not hold it back as it holds back a second click.
void StatusBarController::toggleTileFromKeyboard()
{
    if (m_s.panel && m_s.panel->isVisible()) {
        closeTile();
        return;
    }
    const ScreenPoint pointer = m_s.screens.mouseLocation();
    m_clickPoint.reset();
    if (const std::optional<ScreenInfo> display =
            MenuBarDisplays::displayAt(pointer, m_s.screens.screens()))
        m_clickPoint = ScreenPoint{display->frame.x + display->frame.width / 2,
                                   display->frame.maxY() - 1};
    openTile();
}

void StatusBarController::openTile()
{
    ensureCollapsed();
    // A look at the bar that waited for the panel or a reveal: the panel opens with it.
    if (m_barCheckPending)
        checkForBarChanges();
    presentTile();
}

void StatusBarController::presentTile()
{
    noticeArrangement();
    const OutOfSight sight = outOfSight();
    m_footnote = footnoteFor(sight);
    if (const QString extra = m_panelExtras.note ? m_panelExtras.note() : QString(); !extra.isEmpty())
        m_footnote.text = m_footnote.text.isEmpty() ? extra : m_footnote.text + u' ' + extra;
    std::vector<BarGroup> groups = markedNew(sight.groups);
    if (m_panelExtras.arrange)
        groups = m_panelExtras.arrange(std::move(groups));
    if (m_s.panel) {
        std::weak_ptr<bool> alive = m_alive;
        auto onItem = [this, alive](const BarItem& item) {
            if (auto a = alive.lock(); a && *a)
                activateItem(item);
        };
        auto onStat = [this, alive](const Stat& stat) {
            if (auto a = alive.lock(); a && *a)
                activateStat(stat);
        };
        m_s.panel->show(groups, toggleScreenRect(), onItem, onStat);
    }
    m_tileOpen = true;
}

void StatusBarController::closeTile()
{
    if (m_s.panel)
        m_s.panel->hide();
    if (m_tileOpen)
        panelSeen();
    m_tileOpen = false;
    m_spot.reset();
    m_lastTileClose = m_s.scheduler.now();
    resumeBarCheck();
}

ScreenRect StatusBarController::toggleScreenRect() const
{
    if (m_spot)
        return *m_spot;
    if (auto frame = frameOf(m_mainItem.get())) {
        // Clicked in another display's menu bar: the panel opens under the chevron there.
        const std::vector<ScreenInfo> screens = m_s.screens.screens();
        const ScreenPoint pointer = m_clickPoint.value_or(m_s.screens.mouseLocation());
        const std::optional<ScreenInfo> clicked = MenuBarDisplays::displayAt(pointer, screens);
        const std::optional<ScreenInfo> home = MenuBarDisplays::displayAt(
            {frame->x + frame->width / 2, frame->y + frame->height / 2}, screens);
        if (clicked && home && clicked->frame != home->frame &&
            MenuBarDisplays::inMenuBar(pointer, *clicked))
            return MenuBarDisplays::onDisplay(*frame, *home, *clicked);
        return *frame;
    }
    // No window: the top right corner of the main screen, where the item would stand.
    const std::optional<ScreenInfo> screen = m_s.screens.mainScreen();
    const ScreenRect f = screen ? screen->frame : ScreenRect{0, 0, 1440, 900};
    return {f.maxX() - 40.0, f.maxY() - 24.0, normalLength, 24.0};
}

// The technique brings the item within reach (the separators shrink, or the assessment mode
// lets its application in); then, as the bar settles, the item is found and opened.
void StatusBarController::activateItem(const BarItem& item)
{
    closeTile();
    beginReveal();
    m_expanded = true;
    m_reaching = entryOf(item);
    armRevealCollapse();
    std::weak_ptr<bool> alive = m_alive;
    m_hiding->bringIntoReach(hidingState(), [this, alive, item] {
        if (auto a = alive.lock(); a && *a)
            openWithinReach(item);
    });
    updateChevron();
}

void StatusBarController::openWithinReach(const BarItem& item)
{
    const std::optional<ScreenRect> mainFrame = frameOf(m_mainItem.get());
    const double threshold = mainFrame ? mainFrame->x : 1200.0;
    const double limit = hiddenSeparatorLimit(); // read here: the items live on the main thread
    std::weak_ptr<bool> alive = m_alive;
    Scheduler& scheduler = m_s.scheduler;
    scheduler.background<std::optional<std::uint32_t>>(
        [this, alive, &scheduler, item, threshold, limit]() -> std::optional<std::uint32_t> {
            scheduler.sleepBlocking(0.3);
            if (auto a = alive.lock(); a && *a)
                return clickHiddenItem(item, threshold, limit);
            return std::nullopt;
        },
        [this, alive](std::optional<std::uint32_t> moved) {
            // What Ravlin brought into view goes back when the reveal ends.
            if (auto a = alive.lock(); a && *a && moved && m_revealHidden)
                m_revealHidden->movedOut.insert(*moved);
        });
}

BarEntry StatusBarController::entryOf(const BarItem& item) const
{
    const std::vector<BarEntry> entries = knownEntries();
    auto find = [&](auto&& matches) -> const BarEntry* {
        auto it = std::find_if(entries.begin(), entries.end(), matches);
        return it == entries.end() ? nullptr : &*it;
    };
    const BarEntry* found = find([&](const BarEntry& e) { return e.key == item.key; });
    if (!found)
        found = find([&](const BarEntry& e) { return std::int64_t(e.raw.id) == item.info.id; });
    if (found)
        return *found;
    BarEntry entry;
    entry.key = item.key;
    entry.raw.id = std::uint32_t(item.info.id);
    entry.raw.owner = item.info.owner;
    entry.raw.name = item.info.name;
    return entry;
}

std::optional<std::uint32_t> StatusBarController::clickHiddenItem(const BarItem& item,
                                                                  double threshold, double limit)
{
    if (!m_s.system.techniques().canMoveItems()) {
        pressElementOf(item);
        return std::nullopt;
    }
    const std::vector<BarGroup> groups = m_s.grouping.makeGroups(hiddenCandidates(limit));
    if (const std::optional<MenuBarItemInfo> found = findInGroups(groups, item)) {
        activate(item.key, found->centerX(), found->centerY());
        return std::nullopt;
    }
    const std::optional<CaptureEngine::Raw> raw = findRaw(m_s.capture.scanAll(), item);
    if (!raw)
        return std::nullopt; // gone from the bar: nothing is clicked, the reveal ends by itself
    const MenuBarItemInfo info = raw->info();
    // The user just clicked the tile: the drag waits until their hands rest.
    if (!m_s.moveEngine.guard().waitUntilFree(activationPatience)) {
        qCInfo(lcBar).noquote() << "the item" << item.key
                                << "is not brought out: the user kept using the pointer";
        return std::nullopt;
    }
    // Dropped just left of the main item, it lands in view beside the separators.
    if (!m_s.moveEngine.move(raw->id, raw->pid, threshold - 2.0, info.centerY()))
        return std::nullopt;
    m_s.scheduler.sleepBlocking(0.34);
    if (const std::optional<CaptureEngine::Raw> moved = findRaw(m_s.capture.scanAll(), item)) {
        const MenuBarItemInfo now = moved->info();
        activate(item.key, now.centerX(), now.centerY());
    }
    return raw->id;
}

// Where items have no windows there is nothing to drag or click into: the item's own
// element is pressed where it stands, and its menu opens there.
void StatusBarController::pressElementOf(const BarItem& item)
{
    const std::optional<CaptureEngine::Raw> raw = findRaw(m_s.capture.scanAll(), item);
    const std::optional<AXElement> element =
        raw ? m_s.reader.elementFor(raw->id) : std::optional<AXElement>();
    if (!element) {
        qCInfo(lcBar).noquote() << "the item" << item.key << "is gone from the bar; nothing opened";
        return;
    }
    if (!m_s.resolver.press(*element))
        qCWarning(lcBar).noquote() << "the item" << item.key << "did not answer the press";
}

const QStringList& StatusBarController::syntheticClickHints()
{
    static const QStringList hints = {QStringLiteral("geminimacos"), QStringLiteral("chatgpt")};
    return hints;
}

bool StatusBarController::prefersSyntheticClick(const QString& key)
{
    for (const QString& hint : syntheticClickHints())
        if (key.contains(hint, Qt::CaseSensitive))
            return true;
    return false;
}

void StatusBarController::activate(const QString& key, double x, double y)
{
    if (prefersSyntheticClick(key) || !m_s.resolver.press(x, y))
        postClick(x, y);
}

void StatusBarController::postClick(double x, double y)
{
    const EventSource source = m_s.events.createCombinedSessionSource();
    const WindowServerPoint point{x, y};
    m_s.events.warpCursor(point);
    m_s.scheduler.sleepBlocking(0.03);
    MouseEvent down;
    down.type = MouseEventType::LeftMouseDown;
    down.location = point;
    m_s.events.post(source, down, EventTap::HID);
    m_s.scheduler.sleepBlocking(0.06);
    MouseEvent up = down;
    up.type = MouseEventType::LeftMouseUp;
    m_s.events.post(source, up, EventTap::HID);
}

void StatusBarController::activateStat(const Stat& stat)
{
    closeTile();
    if (stat.key == u"sys.batt") {
        m_s.workspace.openURL(
            QStringLiteral("x-apple.systempreferences:com.apple.Battery-Settings.extension"));
        return;
    }
    if (const std::optional<QString> url =
            m_s.workspace.urlForApplication(QStringLiteral("com.apple.ActivityMonitor")))
        m_s.workspace.openApplication(*url, true);
}

} // namespace ravlin
