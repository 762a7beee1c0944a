#include "StatusBarController.h"

#include "ArrangeGuide.h"
#include "MenuBarHideEngine.h"
#include "TilePanel.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

namespace ravlin {

StatusBarController::StatusBarController(StatusBarServices services)
    : m_s(std::move(services)), m_arrangements(m_s.preferences.defaults()),
      m_newItems(m_s.preferences.defaults()), m_layouts(m_s.preferences.defaults())
{
    m_usesEngine = m_s.hideEngine.isAvailable();
    buildItems();
    lookAtSystem();
    m_screensToken = m_s.screens.addChangeObserver(weakly([this] { displaysChanged(); }));
    setupHover();
    m_displayCount = int(m_s.screens.screens().size());
    armPowerWatch();
    m_prefsToken =
        m_s.notifications.addObserver(ravlinPrefsChanged, weakly([this] { prefsChanged(); }));

    if (m_usesEngine) {
        updateChevron();
        later(0.8, [this] {
            lookAtSystem();
            engineCollapse();
            startEngineWatch();
        });
        return;
    }
    applyLayout();
    if (m_s.panel) {
        m_s.panel->onClose = weakly([this] {
            m_tileOpen = false;
            m_lastTileClose = m_s.scheduler.now();
            resumeBarCheck();
        });
        m_s.panel->footnote = [this, alive = std::weak_ptr<bool>(m_alive)] {
            const auto a = alive.lock();
            return a && *a ? panelFootnote() : QString();
        };
        m_s.panel->onFootnote = weakly([this] { footnoteClicked(); });
    }
    // After a sleep the system may have laid the bar out anew; a moment later it has settled.
    m_wakeToken = m_s.workspace.addObserver(
        WorkspaceNotification::DidWake,
        [wake = weakly([this] {
             later(1.0, [this] {
                 restoreArrangement(QStringLiteral("a wake"));
                 checkPower();
             });
         })](const RunningApplication&) { wake(); });
    later(0.7, [this] {
        // By now the bar has laid the items out: a second look sees where they stand.
        lookAtSystem();
        keepChevronClearOfNotch();
        fillSpans();
        refreshCache();
        collapseToResting();
        later(0.6, [this] {
            rebuildFullCache();
            startAutoRefresh();
        });
    });
}

StatusBarController::~StatusBarController()
{
    *m_alive = false;
    for (Timer& t : m_deferred)
        t.invalidate();
    m_rehideTimer.invalidate();
    m_revealSafetyTimer.invalidate();
    m_watchTimer.invalidate();
    m_engineRetry.invalidate();
    if (m_s.panel) {
        m_s.panel->onClose = nullptr;
        m_s.panel->footnote = nullptr;
        m_s.panel->onFootnote = nullptr;
    }
    if (m_s.guide)
        m_s.guide->onDone = nullptr;
}

std::function<void()> StatusBarController::weakly(std::function<void()> fn)
{
    std::weak_ptr<bool> alive = m_alive;
    return [alive, fn = std::move(fn)] {
        if (auto a = alive.lock(); a && *a)
            fn();
    };
}

Timer StatusBarController::later(double seconds, std::function<void()> fn)
{
    std::erase_if(m_deferred, [](const Timer& t) { return !t.isValid(); });
    Timer timer = m_s.scheduler.after(seconds, weakly(std::move(fn)));
    m_deferred.push_back(timer);
    return timer;
}

// --- items ---------------------------------------------------------------------------

void StatusBarController::seedDefaultPositionsIfNeeded()
{
    DefaultsStore& defaults = m_s.preferences.defaults();
    if (defaults.boolForKey(PrefKey::seededPositions))
        return;
    const std::pair<QString, int> positions[] = {{mainName, 0}, {hiddenName, 32}, {alwaysName, 64}};
    for (const auto& [name, position] : positions)
        defaults.set(QStringLiteral("NSStatusItem Preferred Position ") + name, position);
    defaults.set(PrefKey::seededPositions, true);
}

void StatusBarController::buildItems()
{
    seedDefaultPositionsIfNeeded();
    m_mainItem = m_s.statusBar.createItem(normalLength, mainName);
    configureToggleButton();
    if (m_usesEngine)
        return;
    m_hiddenSep = makeSeparator(hiddenName, false);
    if (m_s.preferences.enableAlwaysHidden())
        addAlwaysSeparator();
}

void StatusBarController::configureToggleButton()
{
    updateChevron();
    m_mainItem->setToolTip(QStringLiteral("Ravlin"));
    m_mainItem->setAction(weakly([this] { mainClicked(); }));
}

std::unique_ptr<StatusItem> StatusBarController::makeSeparator(const QString& autosaveName,
                                                               bool dimmed)
{
    auto item = m_s.statusBar.createItem(sepLength, autosaveName);
    item->setImage(QString(), true);
    item->setAppearsDisabled(dimmed);
    item->setAction(weakly([this] { mainClicked(); }));
    return item;
}

void StatusBarController::addAlwaysSeparator(bool whileRunning)
{
    if (m_alwaysSep)
        return;
    if (!m_hiddenSep || !whileRunning) {
        m_alwaysSep = makeSeparator(alwaysName, true);
        return;
    }
    // Switched on later: the bar places a new item by its preferred position, its distance
    // from the right end. Measured while the hidden separator is narrow, just past it is just
    // left of it, whatever length the collapse gives it.
    DefaultsStore& defaults = m_s.preferences.defaults();
    const QString prefix = QStringLiteral("NSStatusItem Preferred Position ");
    const std::int64_t hiddenAt = defaults.integerForKey(prefix + hiddenName);
    shrinkOwnItems();
    defaults.set(prefix + alwaysName, hiddenAt + 1);
    m_alwaysSep = makeSeparator(alwaysName, true);
    restoreOwnItems();
}

void StatusBarController::removeAlwaysSeparator()
{
    m_alwaysSpan.clear();
    m_alwaysSep.reset();
}

void StatusBarController::updateChevron()
{
    // Open whenever nothing is hidden: revealed, refused by the engine, or a collapse that
    // did not take.
    // Items behind a notch are hidden however far the bar is open.
    const bool open = (m_usesEngine ? engineShowsAll() : m_expanded || !m_collapseHolds) &&
                      itemsBehindNotch().empty();
    const QString symbol = open ? QStringLiteral("chevron.right") : QStringLiteral("chevron.left");
    if (m_s.statusBar.symbolExists(symbol)) {
        m_mainItem->setTitle(QString());
        m_mainItem->setImage(symbol, true);
    } else {
        m_mainItem->setImage(QString(), true);
        m_mainItem->setTitle(QStringLiteral("R"));
    }
}

void StatusBarController::applyLayout()
{
    if (!m_hiddenSep) {
        // Engine mode has no separators; only the chevron follows the state.
        updateChevron();
        return;
    }
    const double collapsed = collapsedSeparatorLength();
    const bool hiddenOpen = m_expanded || m_arranging;
    const bool alwaysOpen = m_revealingAlways || m_arranging;
    m_hiddenSep->setLength(hiddenOpen ? sepLength : collapsed);
    for (const auto& part : m_hiddenSpan)
        part->setLength(hiddenOpen ? 0 : collapsed);
    if (m_alwaysSep) {
        m_alwaysSep->setLength(alwaysOpen ? sepLength : collapsed);
        m_alwaysSep->setImage(QString(), true);
    }
    for (const auto& part : m_alwaysSpan)
        part->setLength(alwaysOpen ? 0 : collapsed);
    updateChevron();
    m_hiddenSep->setImage(m_arranging &&
                                  m_s.statusBar.symbolExists(QStringLiteral("arrow.left.and.right"))
                              ? QStringLiteral("arrow.left.and.right")
                              : QString(),
                          true);
}

void StatusBarController::collapseToResting()
{
    m_expanded = false;
    m_revealingAlways = false;
    applyLayout();
    verifyCollapse();
    // The state follows what is on screen: a panel the user opened in the first moments
    // after start stays open, and is known to be.
    m_tileOpen = m_s.panel && m_s.panel->isVisible();
    resumeBarCheck();
}

void StatusBarController::ensureCollapsed()
{
    if (!m_expanded)
        return;
    m_expanded = false;
    m_revealingAlways = false;
    applyLayout();
    verifyCollapse();
    revealEnded();
}

void StatusBarController::showInBar()
{
    closeTile();
    if (m_expanded)
        return;
    beginReveal();
    m_expanded = true;
    applyLayout();
    later(0.4, [this] { refreshCache(); });
}

void StatusBarController::toggleAlwaysReveal()
{
    m_revealingAlways = !m_revealingAlways;
    if (m_revealingAlways) {
        beginReveal();
        m_expanded = true;
    }
    applyLayout();
    scheduleRehideIfNeeded();
}

void StatusBarController::shrinkOwnItems()
{
    if (!m_hiddenSep)
        return;
    m_hiddenSep->setLength(1.0);
    if (m_alwaysSep)
        m_alwaysSep->setLength(1.0);
    for (const auto* span : {&m_hiddenSpan, &m_alwaysSpan})
        for (const auto& part : *span)
            part->setLength(0);
}

void StatusBarController::restoreOwnItems()
{
    applyLayout();
}

void StatusBarController::mainClicked()
{
    if (m_arranging)
        return;
    // Where the panel or the arrange guide will open: by the time a menu command runs, the
    // pointer is in the menu, no longer in the bar that was clicked.
    m_clickPoint = m_s.screens.mouseLocation();
    const CurrentEvent event = m_s.statusBar.currentEvent();
    if (event.type == CurrentEvent::RightMouseUp ||
        (event.modifierFlags & CurrentEvent::controlKeyMask)) {
        showMenu();
        return;
    }
    if (m_usesEngine)
        engineToggle();
    else
        toggleTile();
}

void StatusBarController::prefsChanged()
{
    if (m_usesEngine) {
        setupHover();
        if (!m_engineRevealed)
            applyEngineAllowList();
        updateChevron();
        return;
    }
    if (m_s.preferences.enableAlwaysHidden())
        addAlwaysSeparator(true);
    else
        removeAlwaysSeparator();
    setupHover();
    applyLayout();
    applyItemFilter();
}

// --- engine mode ---------------------------------------------------------------------

void StatusBarController::engineToggle()
{
    // After a refusal everything shows: the toggle hides, that is, tries again.
    if (engineShowsAll())
        engineCollapse();
    else
        engineReveal();
}

void StatusBarController::engineReveal()
{
    m_engineRevealed = true;
    m_engineRetry.invalidate();
    m_s.hideEngine.release();
    updateChevron();
    armRevealCollapse();
    if (m_s.preferences.autoRehide()) {
        m_rehideTimer.invalidate();
        m_rehideTimer = m_s.scheduler.after(m_s.preferences.rehideInterval(),
                                            weakly([this] { engineCollapse(); }));
    }
}

void StatusBarController::engineCollapse()
{
    m_engineRevealed = false;
    disarmRevealCollapse();
    m_rehideTimer.invalidate();
    applyEngineAllowList();
    updateChevron();
}

} // namespace ravlin
