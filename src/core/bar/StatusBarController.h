#pragma once

#include "ArrangementStore.h"
#include "BarEntry.h"
#include "BarWishes.h"
#include "HidingTechnique.h"
#include "LayoutLibrary.h"
#include "QuietMoment.h"
#include "NewItemTracker.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/MenuBarItemInfo.h"
#include "core/tiles/BarGroup.h"
#include "core/tiles/BarItem.h"
#include "foundation/Geometry.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Scheduler.h"
#include "platform/EventMonitors.h"
#include "platform/Screens.h"
#include "platform/Workspace.h"

#include <QDateTime>
#include <QHash>
#include <QObject>
#include <QSet>

#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace ravlin {

class ApplicationControl;
class ArrangeGuide;
class AXResolver;
class BarGrouping;
class BarItemFactory;
class CaptureEngine;
class Events;
class LanguageManager;
class MenuBarApps;
class MenuBarHideEngine;
class MenuBarReader;
class MenuBarScanner;
class MenuBarSystem;
class MoveEngine;
class Preferences;
class ScannerModel;
class Screens;
class SettingsPresenter;
class SoftwareUpdate;
class StatusBar;
class StatusItem;
class TilePanel;
struct ArrangementMove;
struct MenuEntry;
struct PlatformError;
struct MenuModel;
struct Stat;

// What the controller works with; the application object owns all of it.
struct StatusBarServices {
    Scheduler& scheduler;
    Preferences& preferences;
    LanguageManager& language;
    NotificationCenter& notifications;
    StatusBar& statusBar;
    EventMonitors& monitors;
    Screens& screens;
    Workspace& workspace;
    Events& events;
    ApplicationControl& application;
    MenuBarHideEngine& hideEngine;
    CaptureEngine& capture;
    MenuBarScanner& scanner;
    MenuBarReader& reader;
    MenuBarSystem& system;
    MenuBarApps& apps;
    ScannerModel& scannerModel;
    BarItemFactory& factory;
    BarGrouping& grouping;
    MoveEngine& moveEngine;
    AXResolver& resolver;
    TilePanel* panel = nullptr;
    ArrangeGuide* guide = nullptr;
    SettingsPresenter* settings = nullptr;
    SoftwareUpdate* updates = nullptr;
    QString bundleIdentifier;
};

// The spine of the application: owns its status items, decides the separators'
// lengths, keeps the expand/collapse state, reacts to clicks and settings, keeps
// the cache of the bar's items and activates hidden items.
class StatusBarController : public QObject {
    Q_OBJECT
public:
    static constexpr double normalLength = 24.0;
    static inline const QString mainName = QStringLiteral("Ravlin.Main");

    explicit StatusBarController(StatusBarServices services);
    ~StatusBarController() override;

    // State, for observers and the sandbox.
    // The technique that hides items now; the rest of the program never asks which it is.
    const HidingTechnique& hiding() const { return *m_hiding; }
    bool usesEngine() const { return m_hiding->kind() == HidingTechnique::Kind::HideEngine; }
    bool expanded() const { return m_expanded; }
    bool revealingAlways() const { return m_revealingAlways; }
    bool tileOpen() const { return m_tileOpen; }
    bool arranging() const { return m_arranging; }
    bool engineRevealed() const { return usesEngine() && m_expanded; }
    bool buildingCache() const { return m_buildingCache; }
    bool didFullBuild() const { return m_didFullBuild; }
    QString lastBarSignature() const { return m_lastBarSignature; }
    bool rehideTimerArmed() const { return m_rehideTimer.isValid(); }
    bool revealSafetyTimerArmed() const { return m_revealSafetyTimer.isValid(); }
    bool watchTimerArmed() const { return m_watchTimer.isValid(); }
    // A look at the bar that had to wait (the bar was revealed, the panel open, …).
    bool barCheckPending() const { return m_barCheckPending; }
    bool hoverMonitorInstalled() const { return bool(m_hoverMonitor); }
    bool revealCollapseMonitorInstalled() const { return bool(m_revealCollapseMonitor); }
    StatusItem* mainItem() const { return m_mainItem.get(); }
    // Where a section begins in the bar (its separator), where the technique marks it now.
    const StatusItem* hiddenSeparator() const;
    const StatusItem* alwaysSeparator() const;
    // False while nothing is hidden that should be (the bar dropped a separator, the engine
    // refused).
    bool collapseHolds() const { return m_hiding->holds(); }

    // The items of other applications in the bar now, left to right, named where they can be.
    // An item no look has named yet is named now (asking its application) unless `nameNew`
    // is false, as for an observer that must not cost the applications anything.
    std::vector<BarEntry> barEntries(bool nameNew = true) const;
    // Those and the items of running applications that the bar does not list now.
    std::vector<BarEntry> knownEntries(bool nameNew = true) const;
    // Why the user cannot see the item now; null while it is in sight.
    std::optional<HiddenBy> hiddenBy(const BarEntry& entry) const;
    std::vector<std::optional<HiddenBy>> hiddenBy(const std::vector<BarEntry>& entries) const;
    const BarWishes& wishes() const { return m_wishes; }

    // Items and their states.
    void applyLayout();
    void collapseToResting();
    void ensureCollapsed();
    void showInBar();
    void toggleAlwaysReveal();
    void shrinkOwnItems();
    void restoreOwnItems();
    void updateChevron();
    void mainClicked();

    // Reveal periods, auto-rehide and hover.
    void scheduleRehideIfNeeded();
    void setupHover();
    void handleHover();
    void armRevealCollapse();
    void disarmRevealCollapse();
    void bumpRevealSafety();
    bool clickIsInMenuBar() const;
    void finishReveal();

    // The arrangement the user made: recorded, noticed when changed by hand, restored after
    // the system moved items.
    BarArrangement seenArrangement() const;
    void recordArrangement();
    void recordPlacement(const QString& key, ItemPlacement placement);
    void watchDragsByHand();
    void noteWhereItStands(const QString& key);
    BarArrangement seenByUser(const BarArrangement& seen) const;
    void noticeArrangement();
    void restoreArrangement(const QString& occasion);
    // A restore waits for the user's hands to rest before it takes the pointer.
    bool restoreWaiting() const { return m_quietWait && m_quietWait->isWaiting(); }
    // The items the system moved that could not be put back (keys).
    const QStringList& movedBySystem() const { return m_movedBySystem; }
    const ArrangementStore& arrangements() const { return m_arrangements; }

    // Items seen for the first time.
    void noticeNewItems(const std::vector<BarItem>& items);
    std::vector<BarGroup> markedNew(std::vector<BarGroup> groups) const;
    std::optional<MenuEntry> newItemsEntry();
    void openItemByKey(const QString& key);
    QString itemName(const QString& key) const;
    const NewItemTracker& newItems() const { return m_newItems; }

    // Named layouts.
    SavedLayout currentLayout(const QString& name);
    bool saveLayout(const QString& name, QString* error = nullptr);
    bool switchLayout(const QString& name, const QString& occasion);
    bool deleteLayout(const QString& name);
    bool exportLayout(const QString& name, const QString& path, QString* error = nullptr);
    // The imported layout's name.
    std::optional<QString> importLayout(const QString& path, QString* error = nullptr);
    LayoutLibrary& layouts() { return m_layouts; }
    const LayoutLibrary& layouts() const { return m_layouts; }
    MenuEntry layoutsEntry();

    // Moments: an item shown in the bar for a while (where the technique can bring it into
    // sight; `done` hears whether it came), the hidden items shown for a while.
    void showForAMoment(const QString& key, double seconds, std::function<void(bool shown)> done);
    void revealForAWhile(double seconds);
    // Whether the user sees the item in the bar now (one look at the bar).
    bool inSight(const QString& key) const;
    // What other parts of the program add to the panel: sections in front of the others, a
    // line after its own note, and who hears that the user has seen it.
    struct PanelExtras {
        std::function<std::vector<BarGroup>(std::vector<BarGroup>)> arrange;
        std::function<QString()> note;
        std::function<void()> seen;
    };
    void setPanelExtras(PanelExtras extras) { m_panelExtras = std::move(extras); }

    // The running system's menu bar.
    void lookAtSystem();
    void displaysChanged();
    void verifyCollapse();
    std::optional<ScreenRect> frameOf(const StatusItem* item) const;
    // What the panel offers: every item out of sight, by section, and what it says about them.
    struct OutOfSight {
        std::vector<BarGroup> groups;
        QStringList cannotBringIntoSight; // placed in the bar, out of sight, cannot be moved
        QStringList engineCannotShow;     // placed in the bar, kept out by the assessment mode
        QStringList keptWithApplication;  // in sight only for another item of its application
        QStringList inOverflow;           // waiting in the overflow menu for lack of room
    };
    OutOfSight outOfSight() const;
    // The line the panel shows under its tiles, and what a click on it does.
    struct Footnote {
        enum class Action { None, Restore, Arrange };
        QString text;
        Action action = Action::None;
    };
    Footnote footnoteFor(const OutOfSight& sight) const;
    // Whether the bar shows Ravlin's icon on a display (the system's list of applications
    // allowed in the menu bar can take all of Ravlin's items out of it).
    bool mainItemShown() const;
    QString panelFootnote() const;
    void footnoteClicked();
    void keepChevronClearOfNotch();

    // The cache of the bar.
    QString barSignature() const;
    void startAutoRefresh();
    void appsChanged();
    void checkForBarChanges();
    void refreshCache();
    void rebuildFullCache();
    void invisibleRefresh();
    std::vector<MenuBarItemInfo> hiddenCandidates() const;
    // Items the camera housing of a notched display covers: hidden, whatever the separators do.
    std::vector<MenuBarItemInfo> itemsBehindNotch() const;
    void applyItemFilter();
    // Where the user wants the item: the placement, and the record's side of the separators.
    void placeItem(const QString& key, ItemPlacement placement);
    void setItemPinned(const QString& key, bool pinned);
    void reHideEscapedItems();

    // The status menu and its commands.
    void showMenu();
    MenuModel buildMenu();
    void menuToggle();
    void menuArrange();
    void menuAlways();
    void menuPickStyle(const QString& rawStyle);
    void menuSettings();
    void menuAbout();
    void menuQuit();

    // Arrange mode.
    void enterArrangeMode();
    void exitArrangeMode();

    // The menu bar's reveal gestures (MenuBarGestures decides what an event means): an empty
    // spot clicked, the pointer rested on it, scrolling up or down.
    void menuBarClicked(ScreenPoint spot);
    void menuBarHovered();
    void menuBarScrolled(bool up);
    // Open an item as a click on its tile does, whether it is out of sight or not.
    void openItem(const BarItem& item);

    // The tile panel and the activation of hidden items.
    void toggleTile();
    void toggleTileFromKeyboard();
    void openTile();
    void presentTile();
    void closeTile();
    ScreenRect toggleScreenRect() const;
    void activateItem(const BarItem& item);
    void toggleInBar();
    void activateStat(const Stat& stat);
    // The window it had to move into view to reach the item, if any.
    std::optional<std::uint32_t> clickHiddenItem(const BarItem& item, double threshold,
                                                 double limit);
    void activate(const QString& key, double x, double y);
    void pressElementOf(const BarItem& item);
    void postClick(double x, double y);
    static const QStringList& syntheticClickHints();
    static bool prefersSyntheticClick(const QString& key);

private:
    void buildItems();
    HidingContext makeHidingContext();
    // The one place that decides how items are hidden: the technique the system's findings
    // choose takes over, with every placement as it was.
    void chooseHiding();
    void handOver(const QString& why);
    void readEngineListsOnce();
    HidingState hidingState() const;
    bool keepsArrangement() const;
    QHash<std::int64_t, QString> keysOf(const std::vector<CaptureEngine::Raw>& raws) const;
    void performMove(const ArrangementMove& move);
    void waitToRestore(const QString& occasion, const std::vector<ArrangementMove>& moves,
                       const QString& why);
    std::vector<ArrangementMove> movesBetween(const BarArrangement& seen,
                                              const BarArrangement& wanted) const;
    void seedDefaultPositionsIfNeeded();
    void configureToggleButton();
    void prefsChanged();
    void appendApplicationEntries(std::vector<MenuEntry>& entries);
    void placeNewItem(const QString& key);
    void bringPlacedInBar(const SavedLayout& layout);
    void panelSeen();
    // Layout: what stood on the hidden side when a reveal began goes back there afterwards;
    // nothing else moves but items placed off.
    struct HiddenSide {
        QSet<std::int64_t> windows;
        QSet<QString> keys;
        QSet<std::int64_t> alwaysWindows; // left of the always-hidden separator
        QSet<std::int64_t> movedOut;      // brought into view by Ravlin itself (an activation)
    };
    void beginReveal();
    void putBack(const HiddenSide& side);
    void hideItemsPlacedOff(const HiddenSide& side);
    void moveLeftOfSeparators(
        const HiddenSide& side,
        const std::function<bool(const CaptureEngine::Raw&, const QString&)>& belongsHidden);
    bool revealUnderWay() const;
    void revealEnded();
    // Every item's key by window, as far as any look at the bar detected it.
    QHash<std::int64_t, QString> detectedKeysByWindow() const;
    void publishDetected(std::vector<BarItem> items);
    QSet<std::int64_t> windowsRightOfHiddenSeparator() const;
    void storeArrangedPlacements();
    // A look at the bar that was skipped runs once nothing stands in its way.
    void resumeBarCheck();
    double hiddenSeparatorLimit() const;
    void openWithinReach(const BarItem& item);
    // Whether a click at that point was on the chevron (in any display's menu bar).
    bool onChevron(ScreenPoint point) const;
    BarEntry entryOf(const BarItem& item) const;
    std::vector<BarEntry> absentEntries(const std::vector<BarEntry>& present) const;
    struct Running {
        QSet<std::int32_t> pids;
        QHash<QString, std::int32_t> pidOf; // by bundle identifier
        // The item's process, if it still runs; 0 otherwise.
        std::int32_t pidFor(const BarItem& item) const;
    };
    Running running() const;
    std::vector<MenuBarItemInfo> hiddenCandidates(double limit) const;
    std::vector<BarItem> mergeDetected(std::vector<BarItem> fresh) const;
    // Runs fn later on the main queue unless the controller is gone by then.
    Timer later(double seconds, std::function<void()> fn);
    std::function<void()> weakly(std::function<void()> fn);

    // First of all members: the callbacks made while the others are built hold it.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    StatusBarServices m_s;
    std::unique_ptr<StatusItem> m_mainItem;
    ArrangementStore m_arrangements;
    BarWishes m_wishes;
    HidingContext m_hidingContext;
    std::unique_ptr<HidingTechnique> m_hiding;
    std::unique_ptr<HidingTechnique> m_retiredHiding; // handed over from its own call
    std::optional<BarEntry> m_reaching; // the item an activation brings within reach
    Footnote m_footnote;                // of the panel as last shown
    NewItemTracker m_newItems;
    LayoutLibrary m_layouts;
    PanelExtras m_panelExtras;
    Timer m_momentTimer;
    std::optional<ScreenPoint> m_clickPoint; // of the last click on the chevron
    std::optional<ScreenRect> m_spot;        // the empty menu bar the open panel hangs under
    QStringList m_movedBySystem;
    QSet<QString> m_notWhereWanted; // placed where Ravlin could not bring them
    bool m_restoring = false;
    std::unique_ptr<QuietMoment> m_quietWait;
    Screens::ObserverToken m_screensToken;
    bool m_expanded = true;
    bool m_revealingAlways = false;
    Timer m_rehideTimer;
    std::unique_ptr<EventMonitors::Monitor> m_hoverMonitor;
    // Sees the user press on the bar with the command key held: a drag by hand.
    std::unique_ptr<EventMonitors::Monitor> m_dragWatch;
    bool m_draggedByHand = false; // since the last look at the arrangement
    bool m_tileOpen = false;
    double m_lastTileClose = -std::numeric_limits<double>::infinity();
    std::unique_ptr<EventMonitors::Monitor> m_revealCollapseMonitor;
    Timer m_revealSafetyTimer;
    bool m_arranging = false;
    Timer m_watchTimer;
    QString m_lastBarSignature;
    bool m_buildingCache = false;
    bool m_didFullBuild = false;
    std::optional<HiddenSide> m_revealHidden; // while a reveal is under way, and until re-hiding
    QSet<std::int64_t> m_arrangeVisible;      // right of the hidden separator when arranging began
    QHash<std::int64_t, QString> m_knownKeys; // the detected list may hold only hidden items
    bool m_barCheckPending = false;

    NotificationCenter::Token m_prefsToken;
    Workspace::ObserverToken m_launchToken;
    Workspace::ObserverToken m_terminateToken;
    Workspace::ObserverToken m_wakeToken;
    std::vector<Timer> m_deferred;
};

} // namespace ravlin
