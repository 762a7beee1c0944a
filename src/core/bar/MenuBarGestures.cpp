#include "MenuBarGestures.h"

#include <cmath>

#include "MenuBarDisplays.h"
#include "StatusBarController.h"
#include "core/settings/Preferences.h"
#include "foundation/Logging.h"
#include "platform/Accessibility.h"
#include "platform/Events.h"
#include "platform/WindowServer.h"

namespace ravlin {
namespace {

// A click with a modifier is not a plain click: ⌘ drags items, ⌃ is a right click.
constexpr std::uint64_t modifierFlags =
    EventFlag::shift | EventFlag::control | EventFlag::option | EventFlag::command;

} // namespace

MenuBarGestures::MenuBarGestures(MenuBarGestureServices services, StatusBarController& controller)
    : m_s(services), m_controller(controller)
{
    std::weak_ptr<bool> alive = m_alive;
    m_prefsToken = m_s.notifications.addObserver(ravlinPrefsChanged, [this, alive] {
        if (auto a = alive.lock(); a && *a)
            install();
    });
    install();
}

MenuBarGestures::~MenuBarGestures()
{
    *m_alive = false;
    m_dwell.invalidate();
}

std::function<void(const EventMonitors::Event&)>
MenuBarGestures::weakly(std::function<void(const EventMonitors::Event&)> fn)
{
    return [alive = std::weak_ptr<bool>(m_alive), fn = std::move(fn)](const EventMonitors::Event& e) {
        if (auto a = alive.lock(); a && *a)
            fn(e);
    };
}

// Each monitor lives while its setting is on; the hover's also hears clicks, which end a
// rest on the menu bar (the user went for a menu or an item).
void MenuBarGestures::install()
{
    const Preferences& p = m_s.preferences;
    const bool click = p.revealOnMenuBarClick(), scroll = p.revealOnMenuBarScroll(),
               hover = p.revealOnMenuBarHover();
    if (click != bool(m_clickMonitor))
        m_clickMonitor = click ? m_s.monitors.watch(EventMonitors::LeftMouseDown,
                                                    weakly([this](const auto& e) { clicked(e); }))
                               : nullptr;
    if (scroll != bool(m_scrollMonitor)) {
        auto heard = [this](const EventMonitors::Event& e) { scrolled(e); };
        m_scrollMonitor = scroll ? m_s.monitors.watch(EventMonitors::ScrollWheel, weakly(heard))
                                 : nullptr;
        m_ownScrollMonitor =
            scroll ? m_s.monitors.watchOwn(EventMonitors::ScrollWheel, weakly(heard)) : nullptr;
    }
    if (hover != bool(m_hoverMonitor)) {
        m_hoverMonitor =
            hover ? m_s.monitors.watch(
                        EventMonitors::MouseMoved | EventMonitors::LeftMouseDown |
                            EventMonitors::RightMouseDown,
                        weakly([this](const EventMonitors::Event& e) {
                            if (e.kind == EventMonitors::MouseMoved) {
                                moved();
                            } else {
                                m_dwell.invalidate();
                                m_dwell = Timer();
                            }
                        }))
                  : nullptr;
        m_pointerInBar = false;
        m_dwell.invalidate();
        m_dwell = Timer();
    }
}

QString MenuBarGestures::spotName(Spot spot)
{
    switch (spot) {
    case Spot::Outside:
        return QStringLiteral("outside");
    case Spot::Empty:
        return QStringLiteral("empty");
    case Spot::Item:
        return QStringLiteral("item");
    case Spot::Menu:
        return QStringLiteral("menu");
    case Spot::Notch:
        return QStringLiteral("notch");
    }
    return QStringLiteral("outside");
}

bool MenuBarGestures::inMenuBar(ScreenPoint point) const
{
    const std::optional<ScreenInfo> display =
        MenuBarDisplays::displayAt(point, m_s.screens.screens());
    return display && MenuBarDisplays::inMenuBar(point, *display);
}

bool MenuBarGestures::userDrags() const
{
    return m_s.events.mouseButtonDown();
}

// Any pop-up window stands for an open menu: an application's, a status item's, a context
// menu. The click that closes one is meant for it.
bool MenuBarGestures::menuOpen() const
{
    const std::optional<PlistArray> windows = m_s.windowServer.windowList(WindowListOption::OnScreenOnly);
    for (const PlistValue& w : windows.value_or(PlistArray()))
        if (w[WindowKey::layer].asInteger() == WindowLevel::popUpMenu)
            return true;
    return false;
}

// An item or a menu title under the point, by the accessibility interface where it answers
// (only the menu bar itself is empty space); the items' frames as the bar lists them; and,
// without accessibility, the left half of the display, where the front application's menus
// may reach.
MenuBarGestures::Spot MenuBarGestures::spotAt(ScreenPoint point) const
{
    const std::vector<ScreenInfo> screens = m_s.screens.screens();
    const std::optional<ScreenInfo> display = MenuBarDisplays::displayAt(point, screens);
    if (screens.empty() || !display || !MenuBarDisplays::inMenuBar(point, *display))
        return Spot::Outside;
    if (display->notch && display->notch->contains(point))
        return Spot::Notch;
    const double mainHeight = screens.front().frame.height;
    const WindowServerPoint at = Geometry::toWindowServer(point, mainHeight);
    const bool trusted = m_s.accessibility.isProcessTrusted();
    if (trusted) {
        const AXResult<AXElement> hit = m_s.accessibility.elementAtPosition(
            m_s.accessibility.systemWideElement(), float(at.x), float(at.y));
        if (hit.ok()) {
            const AXResult<AXValue> role = m_s.accessibility.copyAttributeValue(
                hit.value, QStringLiteral("AXRole"));
            if (!role.ok() || role.value.text != u"AXMenuBar")
                return Spot::Item;
        }
    }
    for (const BarEntry& entry : m_controller.barEntries(false)) {
        if (!entry.onScreen())
            continue;
        const ScreenRect onMain = Geometry::toScreen(
            WindowServerRect{entry.raw.x, entry.raw.y, entry.raw.w, entry.raw.h}, mainHeight);
        if (MenuBarDisplays::onDisplay(onMain, screens.front(), *display).contains(point))
            return Spot::Item;
    }
    if (!trusted && point.x < display->frame.x + display->frame.width / 2)
        return Spot::Menu;
    return Spot::Empty;
}

void MenuBarGestures::clicked(const EventMonitors::Event& event)
{
    if (event.kind != EventMonitors::LeftMouseDown || (event.modifierFlags & modifierFlags))
        return;
    const ScreenPoint point = m_s.screens.mouseLocation();
    const Spot spot = spotAt(point);
    if (spot != Spot::Empty)
        return;
    if (menuOpen()) {
        qCDebug(lcBar) << "a click on the menu bar closes a menu; no reveal";
        return;
    }
    m_controller.menuBarClicked(point);
}

void MenuBarGestures::scrolled(const EventMonitors::Event& event)
{
    const ScreenPoint point = m_s.screens.mouseLocation();
    if (!inMenuBar(point)) {
        m_scroll.reset();
        return;
    }
    const std::optional<ScrollIntent::Direction> direction =
        m_scroll.feed(event, m_s.scheduler.now());
    if (!direction || userDrags() || menuOpen())
        return;
    m_controller.menuBarScrolled(*direction == ScrollIntent::Direction::Up);
}

// The rest begins when the pointer comes to a stop on a menu bar: a pointer sliding along it on
// its way to a menu starts the wait again with every move, so only a pointer that stays
// opens the panel. Leaving the bar ends the wait.
void MenuBarGestures::moved()
{
    const ScreenPoint at = m_s.screens.mouseLocation();
    const bool inBar = inMenuBar(at);
    const bool stillResting = std::abs(at.x - m_restPoint.x) < restTolerance &&
                              std::abs(at.y - m_restPoint.y) < restTolerance;
    if (inBar == m_pointerInBar && (!inBar || stillResting || !m_dwell.isValid()))
        return;
    m_pointerInBar = inBar;
    m_restPoint = at;
    m_dwell.invalidate();
    m_dwell = Timer();
    if (!inBar)
        return;
    std::weak_ptr<bool> alive = m_alive;
    m_dwell = m_s.scheduler.after(hoverDwell, [this, alive] {
        if (auto a = alive.lock(); a && *a)
            dwelt();
    });
}

void MenuBarGestures::dwelt()
{
    m_dwell = Timer();
    if (!inMenuBar(m_s.screens.mouseLocation()) || userDrags() || menuOpen())
        return;
    m_controller.menuBarHovered();
}

} // namespace ravlin
