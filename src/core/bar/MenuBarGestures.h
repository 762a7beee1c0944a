#pragma once

#include "ScrollIntent.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Scheduler.h"
#include "platform/EventMonitors.h"
#include "platform/Screens.h"

#include <memory>
#include <optional>

namespace ravlin {

class Accessibility;
class Events;
class Preferences;
class StatusBarController;
class WindowServer;

// What the gestures read of the system; the application object owns all of it.
struct MenuBarGestureServices {
    Scheduler& scheduler;
    Preferences& preferences;
    NotificationCenter& notifications;
    EventMonitors& monitors;
    Screens& screens;
    Events& events;
    WindowServer& windowServer;
    Accessibility& accessibility;
};

// The reveal gestures on the menu bar, each a setting of its own: a click on an empty part
// of it, scrolling on it, and resting the pointer anywhere on it. They hear the system's
// global monitors (events sent to other applications: what goes to Ravlin's own items and
// windows never reaches them) and decide here what an event means; the controller then does
// what the chevron or the status menu would. They never take a click meant for an item or
// a menu, and never act while a menu is open or while the user drags. A monitor is
// installed only while its setting is on; at rest nothing runs.
class MenuBarGestures {
public:
    // How long the pointer rests on the menu bar before the panel opens.
    static constexpr double hoverDwell = 0.6;
    // A pointer that moves less than this (points) still rests; more, and the wait begins again.
    static constexpr double restTolerance = 4;

    // What stands at a point of a menu bar.
    enum class Spot { Outside, Empty, Item, Menu, Notch };

    MenuBarGestures(MenuBarGestureServices services, StatusBarController& controller);
    ~MenuBarGestures();
    MenuBarGestures(const MenuBarGestures&) = delete;
    MenuBarGestures& operator=(const MenuBarGestures&) = delete;

    // What stands at that point (screen coordinates) now.
    Spot spotAt(ScreenPoint point) const;
    // Whether a menu of any application is open now.
    bool menuOpen() const;

    // For observers and the sandbox.
    bool clickMonitorInstalled() const { return bool(m_clickMonitor); }
    bool scrollMonitorInstalled() const { return bool(m_scrollMonitor); }
    bool hoverMonitorInstalled() const { return bool(m_hoverMonitor); }
    bool hoverPending() const { return m_dwell.isValid(); }
    static QString spotName(Spot spot);

private:
    void install();
    void clicked(const EventMonitors::Event& event);
    void scrolled(const EventMonitors::Event& event);
    void moved();
    void dwelt();
    bool inMenuBar(ScreenPoint point) const;
    bool userDrags() const;
    std::function<void(const EventMonitors::Event&)> weakly(
        std::function<void(const EventMonitors::Event&)> fn);

    MenuBarGestureServices m_s;
    StatusBarController& m_controller;
    std::unique_ptr<EventMonitors::Monitor> m_clickMonitor;
    std::unique_ptr<EventMonitors::Monitor> m_scrollMonitor;
    // Scrolls over Ravlin's own items (a separator stretched over the menu bar) come to
    // Ravlin itself rather than to the global monitor.
    std::unique_ptr<EventMonitors::Monitor> m_ownScrollMonitor;
    std::unique_ptr<EventMonitors::Monitor> m_hoverMonitor;
    ScrollIntent m_scroll;
    bool m_pointerInBar = false;
    ScreenPoint m_restPoint{};
    Timer m_dwell;
    NotificationCenter::Token m_prefsToken;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
