#include "StatusBarController.h"

#include "ArrangeGuide.h"
#include "SeparatorHiding.h"
#include "core/discovery/MenuBarApps.h"
#include "core/discovery/MenuBarSystem.h"
#include "TilePanel.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

namespace ravlin {

StatusBarController::StatusBarController(StatusBarServices services)
    : m_s(std::move(services)), m_arrangements(m_s.preferences.defaults()),
      m_wishes(m_s.preferences, m_arrangements), m_hidingContext(makeHidingContext()),
      m_newItems(m_s.preferences.defaults()), m_layouts(m_s.preferences.defaults())
{
    buildItems();
    lookAtSystem();
    readEngineListsOnce();
    chooseHiding();
    m_screensToken = m_s.screens.addChangeObserver(weakly([this] { displaysChanged(); }));
    setupHover();
    watchDragsByHand();
    m_prefsToken =
        m_s.notifications.addObserver(ravlinPrefsChanged, weakly([this] { prefsChanged(); }));
    if (m_s.panel) {
        m_s.panel->onClose = weakly([this] {
            m_tileOpen = false;
            m_spot.reset();
            m_lastTileClose = m_s.scheduler.now();
            panelSeen();
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
             later(1.0, [this] { restoreArrangement(QStringLiteral("a wake")); });
         })](const RunningApplication&) { wake(); });
    later(0.7, [this] {
        // By now the bar has laid the items out: a second look sees where they stand.
        lookAtSystem();
        keepChevronClearOfNotch();
        refreshCache();
        collapseToResting();
        later(0.6, [this] {
            rebuildFullCache();
            startAutoRefresh();
        });
    });
}

HidingContext StatusBarController::makeHidingContext()
{
    return HidingContext{
        m_s.scheduler,
        m_s.statusBar,
        m_s.reader,
        m_s.system,
        m_s.hideEngine,
        m_s.preferences.defaults(),
        m_wishes,
        m_s.bundleIdentifier,
        [this] { return knownEntries(); },
        [this] { return m_s.apps.scanBundleIDs(); },
        [this] { return frameOf(m_mainItem.get()); },
        [this] { return mainItemShown(); },
        weakly([this] { mainClicked(); }),
        weakly([this] { updateChevron(); }),
        [this](const QString& why) { handOver(why); },
    };
}

StatusBarController::~StatusBarController()
{
    *m_alive = false;
    for (Timer& t : m_deferred)
        t.invalidate();
    m_rehideTimer.invalidate();
    m_revealSafetyTimer.invalidate();
    m_watchTimer.invalidate();
    m_momentTimer.invalidate();
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
    const std::pair<QString, int> positions[] = {
        {mainName, 0}, {SeparatorHiding::hiddenName, 32}, {SeparatorHiding::alwaysName, 64}};
    for (const auto& [name, position] : positions)
        defaults.set(QStringLiteral("NSStatusItem Preferred Position ") + name, position);
    defaults.set(PrefKey::seededPositions, true);
}

void StatusBarController::buildItems()
{
    seedDefaultPositionsIfNeeded();
    m_mainItem = m_s.statusBar.createItem(normalLength, mainName);
    configureToggleButton();
}

void StatusBarController::configureToggleButton()
{
    updateChevron();
    m_mainItem->setToolTip(QStringLiteral("Ravlin"));
    m_mainItem->setAction(weakly([this] { mainClicked(); }));
}

const StatusItem* StatusBarController::hiddenSeparator() const
{
    return m_hiding->marker(BarArrangement::Section::Hidden);
}

const StatusItem* StatusBarController::alwaysSeparator() const
{
    return m_hiding->marker(BarArrangement::Section::AlwaysHidden);
}

void StatusBarController::updateChevron()
{
    // Open whenever nothing is hidden: revealed, or hiding that did not take (the engine
    // refused, the bar dropped a separator). Items behind a notch are hidden however far the
    // bar is open.
    const bool open = (m_expanded || !m_hiding->holds()) && itemsBehindNotch().empty();
    const QString symbol = open ? QStringLiteral("chevron.right") : QStringLiteral("chevron.left");
    if (m_s.statusBar.symbolExists(symbol)) {
        m_mainItem->setTitle(QString());
        m_mainItem->setImage(symbol, true);
    } else {
        m_mainItem->setImage(QString(), true);
        m_mainItem->setTitle(QStringLiteral("R"));
    }
}

HidingState StatusBarController::hidingState() const
{
    return {m_expanded, m_revealingAlways, m_arranging, m_reaching};
}

void StatusBarController::applyLayout()
{
    m_hiding->apply(hidingState());
    updateChevron();
}

void StatusBarController::collapseToResting()
{
    m_expanded = false;
    m_revealingAlways = false;
    m_reaching.reset();
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
    m_reaching.reset();
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
    m_hiding->exposeAll();
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
    // A separator stretched over the menu bar looks like empty menu bar: a click there is one.
    if (m_s.preferences.revealOnMenuBarClick() && !onChevron(*m_clickPoint)) {
        menuBarClicked(*m_clickPoint);
        return;
    }
    if (m_s.preferences.clickShowsInBar())
        toggleInBar();
    else
        toggleTile();
}

void StatusBarController::prefsChanged()
{
    m_hiding->alwaysHiddenSectionChanged(m_s.preferences.enableAlwaysHidden());
    setupHover();
    applyLayout();
    applyItemFilter();
}

// --- the technique -----------------------------------------------------------------------

void StatusBarController::chooseHiding()
{
    const HidingTechnique::Kind wanted = m_s.system.techniques().hiding;
    if (m_hiding && m_hiding->kind() == wanted)
        return;
    if (m_hiding) {
        qCInfo(lcBar).noquote() << MenuBarTechniques::name(wanted) << "take over from"
                                << MenuBarTechniques::name(m_hiding->kind());
        m_hiding->uninstall();
        // It may be the one asking: it goes once its call has returned.
        m_retiredHiding = std::move(m_hiding);
        later(0.0, [this] { m_retiredHiding.reset(); });
    }
    m_hiding = HidingTechnique::make(wanted, m_hidingContext);
    m_hiding->install();
    applyLayout();
}

void StatusBarController::handOver(const QString& why)
{
    qCWarning(lcBar).noquote() << why << "- choosing another way to hide items";
    switch (m_hiding->kind()) {
    case HidingTechnique::Kind::HideEngine:
        m_s.system.engineStoppedWorking();
        break;
    case HidingTechnique::Kind::LongSeparators:
        // Learnt once: the next start hides with short separators from the first moment.
        m_s.preferences.defaults().set(PrefKey::barDropsLongItems, true);
        break;
    case HidingTechnique::Kind::ShortSeparators:
        break;
    }
    chooseHiding();
    if (!m_expanded)
        m_hiding->verify();
}

} // namespace ravlin
