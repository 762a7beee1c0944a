#pragma once

#include "ArrangementStore.h"
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
    QString bundleIdentifier;
    // Whether the Mac runs on battery now (absent: unknown, or no battery).
    std::function<std::optional<bool>()> onBattery;
};

// The spine of the application: owns its status items, decides the separators'
// lengths, keeps the expand/collapse state, reacts to clicks and settings, keeps
// the cache of the bar's items and activates hidden items.
class StatusBarController : public QObject {
    Q_OBJECT
public:
    static constexpr double normalLength = 24.0;
    static constexpr double sepLength = 10.0;
    static constexpr double collapsedLength = 10000.0;
    static inline const QString mainName = QStringLiteral("Ravlin.Main");
    static inline const QString hiddenName = QStringLiteral("Ravlin.HiddenSeparator");
    static inline const QString alwaysName = QStringLiteral("Ravlin.AlwaysHiddenSeparator");

    explicit StatusBarController(StatusBarServices services);
    ~StatusBarController() override;

    // State, for observers and the sandbox.
    bool usesEngine() const { return m_usesEngine; }
    bool expanded() const { return m_expanded; }
    bool revealingAlways() const { return m_revealingAlways; }
    bool tileOpen() const { return m_tileOpen; }
    bool arranging() const { return m_arranging; }
    bool engineRevealed() const { return m_engineRevealed; }
    bool buildingCache() const { return m_buildingCache; }
    bool didFullBuild() const { return m_didFullBuild; }
    QString lastBarSignature() const { return m_lastBarSignature; }
    bool rehideTimerArmed() const { return m_rehideTimer.isValid(); }
    bool revealSafetyTimerArmed() const { return m_revealSafetyTimer.isValid(); }
    bool watchTimerArmed() const { return m_watchTimer.isValid(); }
    bool engineRetryArmed() const { return m_engineRetry.isValid(); }
    // A look at the bar that had to wait (the bar was revealed, the panel open, …).
    bool barCheckPending() const { return m_barCheckPending; }
    // Engine mode: every item shows, because the user revealed them or the engine refused.
    bool engineShowsAll() const { return m_engineRevealed || m_engineRefused; }
    bool hoverMonitorInstalled() const { return bool(m_hoverMonitor); }
    bool revealCollapseMonitorInstalled() const { return bool(m_revealCollapseMonitor); }
    const std::vector<BarGroup>& cachedGroups() const { return m_cachedGroups; }
    StatusItem* mainItem() const { return m_mainItem.get(); }
    StatusItem* hiddenSeparator() const { return m_hiddenSep.get(); }
    StatusItem* alwaysSeparator() const { return m_alwaysSep.get(); }
    // The extra items a separator spans where the bar keeps no item long enough alone.
    const std::vector<std::unique_ptr<StatusItem>>& hiddenSpan() const { return m_hiddenSpan; }
    const std::vector<std::unique_ptr<StatusItem>>& alwaysSpan() const { return m_alwaysSpan; }
    // False while a collapse did not take (the bar dropped a separator): nothing is hidden.
    bool collapseHolds() const { return m_collapseHolds; }

    // Items and their states.
    void applyLayout();
    void collapseToResting();
    void ensureCollapsed();
    void showInBar();
    void toggleAlwaysReveal();
    // Switched on while running, it is placed just left of the hidden separator.
    void addAlwaysSeparator(bool whileRunning = false);
    void removeAlwaysSeparator();
    void shrinkOwnItems();
    void restoreOwnItems();
    void updateChevron();
    void mainClicked();

    // Engine mode.
    void engineToggle();
    void engineReveal();
    void engineCollapse();

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
    void switchForDisplays();
    void armPowerWatch();
    void checkPower();
    MenuEntry layoutsEntry();

    // The running system's menu bar.
    void lookAtSystem();
    void displaysChanged();
    void verifyCollapse();
    std::optional<ScreenRect> frameOf(const StatusItem* item) const;
    // What the panel says under its tiles about where the rest of the items are.
    QString panelFootnote() const;
    void footnoteClicked();
    void keepChevronClearOfNotch();

    // The cache of the bar.
    QString barSignature() const;
    void startAutoRefresh();
    void startEngineWatch();
    void appsChanged();
    void engineAppsChanged();
    void checkForBarChanges();
    void refreshCache();
    void rebuildFullCache();
    void invisibleRefresh();
    std::vector<MenuBarItemInfo> hiddenCandidates() const;
    // Items the camera housing of a notched display covers: hidden, whatever the separators do.
    std::vector<MenuBarItemInfo> itemsBehindNotch() const;
    void applyItemFilter();
    void applyEngineAllowList();
    void setItemPinned(const QString& key, bool pinned);
    void reHideEscapedItems();

    // The status menu and its commands.
    void showMenu();
    MenuModel buildMenu();
    MenuModel buildEngineMenu();
    void menuToggle();
    void menuArrange();
    void menuAlways();
    void menuPickStyle(const QString& rawStyle);
    void menuSettings();
    void menuAbout();
    void menuQuit();
    void menuEngineToggle();

    // Arrange mode.
    void enterArrangeMode();
    void exitArrangeMode();

    // The tile panel and the activation of hidden items.
    void toggleTile();
    void toggleTileFromKeyboard();
    void openTile();
    void presentTile();
    void closeTile();
    ScreenRect toggleScreenRect() const;
    void activateItem(const BarItem& item);
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
    void rebuildSeparators();
    void fillSpans();
    void fillSpan(std::vector<std::unique_ptr<StatusItem>>& span, const QString& separatorName,
                  int wanted);
    double collapsedSeparatorLength() const;
    bool separatorsKept() const;
    bool keepsArrangement() const;
    QHash<std::int64_t, QString> keysOf(const std::vector<CaptureEngine::Raw>& raws) const;
    void performMove(const ArrangementMove& move);
    void waitToRestore(const QString& occasion, const std::vector<ArrangementMove>& moves,
                       const QString& why);
    std::vector<ArrangementMove> movesBetween(const BarArrangement& seen,
                                              const BarArrangement& wanted) const;
    void seedDefaultPositionsIfNeeded();
    void configureToggleButton();
    std::unique_ptr<StatusItem> makeSeparator(const QString& autosaveName, bool dimmed);
    void prefsChanged();
    void appendApplicationEntries(std::vector<MenuEntry>& entries);
    void placeNewItem(const QString& key);
    void occasionBegins(const QString& layout, const QString& occasion);
    void bringPlacedInBar(const SavedLayout& layout);
    void occasionEnds(const QString& layout, const QString& occasion);
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
    // null: granted.
    void engineAllowListAnswered(const PlatformError* error);
    double hiddenSeparatorLimit() const;
    std::vector<MenuBarItemInfo> hiddenCandidates(double limit) const;
    std::vector<BarItem> mergeDetected(std::vector<BarItem> fresh) const;
    // Runs fn later on the main queue unless the controller is gone by then.
    Timer later(double seconds, std::function<void()> fn);
    std::function<void()> weakly(std::function<void()> fn);

    StatusBarServices m_s;
    std::unique_ptr<StatusItem> m_mainItem;
    std::unique_ptr<StatusItem> m_hiddenSep;
    std::unique_ptr<StatusItem> m_alwaysSep;
    std::vector<std::unique_ptr<StatusItem>> m_hiddenSpan;
    std::vector<std::unique_ptr<StatusItem>> m_alwaysSpan;
    bool m_collapseHolds = true;
    ArrangementStore m_arrangements;
    NewItemTracker m_newItems;
    LayoutLibrary m_layouts;
    int m_displayCount = 0;
    std::optional<ScreenPoint> m_clickPoint; // of the last click on the chevron
    Timer m_powerTimer;
    std::optional<bool> m_onBattery;
    QStringList m_movedBySystem;
    bool m_restoring = false;
    std::unique_ptr<QuietMoment> m_quietWait;
    Screens::ObserverToken m_screensToken;
    bool m_expanded = true;
    bool m_revealingAlways = false;
    Timer m_rehideTimer;
    std::unique_ptr<EventMonitors::Monitor> m_hoverMonitor;
    bool m_tileOpen = false;
    std::vector<BarGroup> m_cachedGroups;
    double m_lastTileClose = -std::numeric_limits<double>::infinity();
    std::unique_ptr<EventMonitors::Monitor> m_revealCollapseMonitor;
    Timer m_revealSafetyTimer;
    bool m_arranging = false;
    Timer m_watchTimer;
    QString m_lastBarSignature;
    bool m_usesEngine = false;
    bool m_engineRevealed = false;
    bool m_buildingCache = false;
    bool m_didFullBuild = false;
    std::optional<HiddenSide> m_revealHidden; // while a reveal is under way, and until re-hiding
    QSet<std::int64_t> m_arrangeVisible;      // right of the hidden separator when arranging began
    QHash<std::int64_t, QString> m_knownKeys; // the detected list may hold only hidden items
    bool m_barCheckPending = false;
    bool m_engineRefused = false; // the engine's last answer was a refusal: nothing is hidden
    Timer m_engineRetry;
    double m_engineRetryDelay = 0;

    NotificationCenter::Token m_prefsToken;
    Workspace::ObserverToken m_launchToken;
    Workspace::ObserverToken m_terminateToken;
    Workspace::ObserverToken m_wakeToken;
    std::vector<Timer> m_deferred;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
