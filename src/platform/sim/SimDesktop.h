#pragma once

#include "SimTypes.h"
#include "SimUserHands.h"
#include "foundation/PlistValue.h"

#include <QSet>

#include <algorithm>
#include <functional>
#include <map>
#include <optional>
#include <utility>
#include <vector>

namespace ravlin {

class DefaultsStore;
class Scheduler;

// A deterministic model of the macOS desktop that the simulated platform services
// read and act on: displays, running applications, the menu bar's row of status
// items, permissions and the pointer. It records what it was asked to do (events
// posted, actions performed, URLs opened) and lets tests and scripts set its state.
//
// The row lays items out from the right edge of the main display leftwards without
// gaps, fixed items first; an item is on screen while its x ≥ 0.
//
// The menu bar behaves like that of one macOS release (its generation):
// - 15: every item is a window of its own, owned by its application; a long item pushes
//   the items on its left off screen.
// - 26: the same windows, but the window list names Control Center as every item's owner;
//   each application's extras menu bar still lists its items with their frames.
// - 27: no window per item. One menu-bar window per display, owned by a system agent,
//   holds them; each item is a slot of the agent's accessibility tree whose child belongs to
//   the creating process. An item of half the narrowest display's width or more is
//   discarded; items pushed past the left edge wait in the system's overflow menu. Items
//   cannot be captured or moved by routed events, and a synthesised click opens nothing:
//   an item opens when its element is pressed (or when a person clicks it).
class SimDesktop {
public:
    static inline const QString ownBundleId = QStringLiteral("de.vexa.Ravlin");
    static inline const QString ownName = QStringLiteral("Ravlin");
    static constexpr std::int32_t ownPid = 100;
    static inline const QString controlCenterBundleId = QStringLiteral("com.apple.controlcenter");
    static inline const QString agentBundleId = QStringLiteral("com.apple.MenuBarAgent");

    SimDesktop();

    // 15 (the default), 26 or 27; false for any other number.
    bool setGeneration(int generation);
    int generation() const { return m_generation; }
    bool itemsAreWindows() const { return m_generation < 27; }
    bool windowOwnersAreSystem() const { return m_generation == 26; }
    // The longest item the bar keeps (27); infinite where long items are clamped.
    double longestItem() const;
    // The process the window list names as every item's owner (26) or that holds the bar (27).
    const SimApp& menuBarOwner();
    // The identifier an item's accessibility element carries where items are elements only.
    static QString identifierOf(const SimItem& item);

    // Own items read and write their preferred positions here; hung applications
    // let virtual time pass while a request to them waits.
    void setDefaults(DefaultsStore* defaults) { m_defaults = defaults; }
    void setScheduler(Scheduler* scheduler)
    {
        m_scheduler = scheduler;
        m_hands.setScheduler(scheduler);
    }
    // Lets a request to a hung application take its time.
    void blockFor(double seconds);

    // Displays. Adding or removing one (also while the application runs) tells the listeners.
    void addScreen(const SimScreen& screen);
    // A display plugged in beside the ones there are (the default one included).
    void plugInScreen(const SimScreen& screen);
    bool removeScreen(std::size_t index);
    void addScreenListener(std::function<void()> listener)
    {
        m_screenListeners.push_back(std::move(listener));
    }
    std::vector<SimScreen> screens() const; // one 1440×900 display when none was added
    SimScreen mainScreen() const { return screens().front(); }
    WindowServerRect screenFrame(std::size_t index) const;
    // The part of a display's menu bar its notch covers, if it has one.
    std::optional<WindowServerRect> notchFrame(std::size_t index) const;
    // Where the same point of the bar stands on another display's menu bar: the bar
    // shows the same items on every display, at the same distance from its right edge.
    WindowServerPoint onDisplay(WindowServerPoint mainBarPoint, std::size_t index) const;

    // Applications. A pid of 0 or less is assigned unless `keepPid` asks for it as given.
    std::int32_t addApp(SimApp app, bool keepPid = false);
    SimApp* app(const QString& bundleId);
    const SimApp* app(const QString& bundleId) const;
    const SimApp* appByPid(std::int32_t pid) const;
    const std::vector<SimApp>& apps() const { return m_apps; }
    // Applications every Mac has installed (Activity Monitor, Weather, System Settings).
    // They take no part in the desktop until something launches them.
    static const std::vector<SimApp>& preinstalledApps();
    static inline const QString systemSettingsId = QStringLiteral("com.apple.systempreferences");
    // A declared application, or else a preinstalled one; running or not.
    const SimApp* installedApp(const QString& bundleId) const;
    // Starts or ends an application; its items appear or vanish, listeners hear of it.
    // A preinstalled application joins the desktop when it is first launched.
    bool launch(const QString& bundleId);
    bool terminate(const QString& bundleId);
    using LifecycleListener = std::function<void(const SimApp&, bool launched)>;
    void addLifecycleListener(LifecycleListener listener)
    {
        m_lifecycle.push_back(std::move(listener));
    }

    // Status items of other applications. Declared right to left: each new item goes
    // to the left end of the items declared so far (fixed items to the left end of the fixed).
    std::int64_t addItem(SimItem item);
    // One of this application's own items, placed by its preferred position.
    std::int64_t addOwnItem(const QString& autosaveName, double length);
    bool setItemWidth(std::int64_t window, double width);
    bool removeItem(std::int64_t window);
    const SimItem* item(std::int64_t window) const;
    SimItem* item(std::int64_t window);
    // The first item in the bar, left to right, with that title.
    std::optional<SimPlacedItem> placedByTitle(const QString& title) const;
    std::optional<SimPlacedItem> placed(std::int64_t window) const;
    // The item a click at that point reaches: only a point on a display reaches one.
    std::optional<SimPlacedItem> itemAt(WindowServerPoint point) const;
    // The part of an item that stands on the main display, if any.
    std::optional<WindowServerRect> visibleStretch(std::int64_t window) const;
    // Every item of a running application, left to right.
    std::vector<SimPlacedItem> bar() const;
    // The command-drag: the item lands in the slot nearest the release x.
    bool dragItem(std::int64_t window, double releaseX);
    // The system forgets where the items stood: its own and this application's items keep
    // their places at the right, every other item follows left of them in the order the
    // items first appeared.
    void resetPositions();
    // Other applications' items change places among themselves, in an order the seed gives.
    void shufflePositions(std::uint32_t seed);
    static QString preferredPositionKey(const QString& autosaveName);

    // Items the assessment mode hides leave the bar: they take no room and are not on screen.
    using ItemHider = std::function<bool(const SimItem&)>;
    void setItemHider(ItemHider hider) { m_hider = std::move(hider); }
    // The system's "Allow in the Menu Bar" list (macOS 26 and later): the items of an
    // application switched off there leave the bar as hidden items do, Ravlin's own too.
    void setAllowedInMenuBar(const QString& bundleId, bool allowed);
    bool allowedInMenuBar(const QString& bundleId) const { return !m_notAllowed.contains(bundleId); }

    // Entries the window list carries besides the desktop's own windows (odd ones for tests).
    void addRawWindow(PlistValue entry) { m_rawWindows.push_back(std::move(entry)); }
    const PlistArray& rawWindows() const { return m_rawWindows; }
    bool windowListFails = false;

    // The pointer, in window-server coordinates.
    WindowServerPoint cursor() const { return m_cursor; }
    void setCursor(WindowServerPoint point) { m_cursor = point; }
    bool cursorReadable = true;
    // What the person's hands do; only sandbox commands and tests change it.
    SimUserHands& hands() { return m_hands; }
    const SimUserHands& hands() const { return m_hands; }
    bool eventSourceFails = false;
    void postMouseEvent(const MouseEvent& event, EventTap tap);
    void warpCursor(WindowServerPoint point);
    // The person clicks: own items go to the click handler, other items are activated.
    void userClick(const SimUserClick& click);
    using OwnItemClickHandler = std::function<void(const SimItem&, const SimUserClick&)>;
    void setOwnItemClickHandler(OwnItemClickHandler handler) { m_ownClick = std::move(handler); }
    // The front application's menus ("File", "Edit", …) take the left of every display's
    // menu bar, this wide (0, the default: they are not modelled). A person's click on them,
    // or on another application's item, opens a menu: a pop-up window stands in the window
    // list until the person's next click closes it.
    void setAppMenusWidth(double width) { m_appMenusWidth = std::max(0.0, width); }
    double appMenusWidth() const { return m_appMenusWidth; }
    bool onAppMenus(WindowServerPoint point) const;
    struct OpenMenu {
        std::int32_t pid = 0; // 0: the front application's menus
        QString owner;
        WindowServerRect frame;
    };
    const std::optional<OpenMenu>& openMenu() const { return m_openMenu; }
    static constexpr std::int64_t openMenuWindow = 8000;
    using ClickListener = std::function<void(const SimUserClick&)>;
    void addClickListener(ClickListener listener)
    {
        m_clickListeners.push_back(std::move(listener));
    }

    // Permissions; a prompt never grants by itself.
    bool screenRecording = true;
    bool accessibilityTrusted = true;
    int screenRecordingPrompts = 0;
    int accessibilityPrompts = 0;

    // What an item shows now: its badge and its element's value, moved on while it is busy.
    int badgeOf(const SimItem& item) const;
    std::optional<QString> valueOf(const SimItem& item) const;
    // What looks at the desktop cost, since the start or the last reset.
    const SimCosts& costs() const { return m_costs; }
    void resetCosts() { m_costs = {}; }
    void countAXRequest(std::int32_t pid);
    void countWindowImage() { ++m_costs.windowImages; }
    void countWindowList() { ++m_costs.windowLists; }

    // What happened.
    void recordActivation(const SimItem& item, const QString& how);
    void recordOpened(const QString& what) { m_opened.push_back(what); }
    const std::vector<SimPostedEvent>& events() const { return m_events; }
    const std::vector<SimActivation>& activations() const { return m_activations; }
    const QStringList& opened() const { return m_opened; }
    std::vector<SimPostedEvent> takeEvents() { return std::exchange(m_events, {}); }
    std::vector<SimActivation> takeActivations() { return std::exchange(m_activations, {}); }
    QStringList takeOpened() { return std::exchange(m_opened, {}); }
    bool terminateRequested = false;

private:
    struct Slot {
        std::size_t index;
        double x;
        double distanceFromRightEnd;
    };
    bool isPresent(const SimItem& item) const;
    // Present, but kept out of the bar by the assessment mode or the allow list.
    bool isTakenOut(const SimItem& item) const;
    double itemHeight(const SimItem& item) const;
    double movableRightEnd() const;
    std::vector<Slot> slotsFor(double width) const;
    std::int64_t assignWindow(std::int64_t wanted);
    void writePreferredPosition(const SimItem& item, double distance);
    // Where the bar drops long items for good, an own item that grew too long goes.
    void discardIfTooLong(SimItem& item) const;
    const SimApp& ensureSystemApp(const QString& bundleId, const QString& name);
    void handleCommandDrag(const MouseEvent& event);
    void handlePlainClick(const MouseEvent& event, EventTap tap);
    WindowServerPoint clampToScreens(WindowServerPoint point) const;
    void openMenuAt(WindowServerPoint point, std::int32_t pid, const QString& owner);

    DefaultsStore* m_defaults = nullptr;
    Scheduler* m_scheduler = nullptr;
    int m_generation = 15;
    std::vector<SimScreen> m_screens;
    std::vector<std::function<void()>> m_screenListeners;
    std::vector<SimApp> m_apps;
    std::int32_t m_nextPid = 500;
    std::vector<SimItem> m_fixed;   // rightmost first
    std::vector<SimItem> m_movable; // rightmost first
    std::int64_t m_nextWindow = 1000;
    PlistArray m_rawWindows;
    WindowServerPoint m_cursor{720, 450};
    SimUserHands m_hands;
    std::optional<std::int64_t> m_dragging; // after a command-mouse-down on an item
    std::vector<LifecycleListener> m_lifecycle;
    OwnItemClickHandler m_ownClick;
    ItemHider m_hider;
    QSet<QString> m_notAllowed;
    std::vector<ClickListener> m_clickListeners;
    double m_appMenusWidth = 0;
    std::optional<OpenMenu> m_openMenu;
    std::vector<SimPostedEvent> m_events;
    std::vector<SimActivation> m_activations;
    QStringList m_opened;
    SimCosts m_costs;
};

} // namespace ravlin
