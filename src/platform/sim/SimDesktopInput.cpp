#include "SimDesktop.h"

#include <algorithm>

namespace ravlin {

namespace {

std::optional<std::int64_t> routedWindow(const MouseEvent& event)
{
    auto it = event.integerFields.find(EventField::windowNumber);
    if (it == event.integerFields.end() || it->second == 0)
        return std::nullopt;
    return it->second;
}

} // namespace

// The platform keeps the pointer on some display whatever point an event names.
WindowServerPoint SimDesktop::clampToScreens(WindowServerPoint point) const
{
    const std::vector<SimScreen> all = screens();
    const WindowServerRect last = screenFrame(all.size() - 1);
    double maxHeight = 0;
    for (const SimScreen& s : all)
        maxHeight = std::max(maxHeight, s.height);
    return {std::clamp(point.x, 0.0, last.maxX() - 1), std::clamp(point.y, 0.0, maxHeight - 1)};
}

void SimDesktop::postMouseEvent(const MouseEvent& event, EventTap tap)
{
    m_events.push_back({SimPostedEvent::Kind::Mouse, event, tap});
    m_cursor = clampToScreens(event.location);
    // Without a window per item there is nothing to route a drag to, and the bar
    // opens an item for a person's click only, not for a synthesised one.
    if (!itemsAreWindows())
        return;
    if (event.flags & EventFlag::command ||
        (m_dragging && event.type == MouseEventType::LeftMouseUp))
        handleCommandDrag(event);
    else
        handlePlainClick(event, tap);
}

// A command-mouse-down on an item (where it stands, or routed to its window by
// the window fields) picks it up; the next mouse-up drops it at its x.
void SimDesktop::handleCommandDrag(const MouseEvent& event)
{
    if (event.type == MouseEventType::LeftMouseDown) {
        std::optional<std::int64_t> window = routedWindow(event);
        if (!window) {
            if (auto hit = itemAt(event.location))
                window = hit->item.window;
        }
        m_dragging = window && placed(*window) ? window : std::nullopt;
        return;
    }
    if (event.type != MouseEventType::LeftMouseUp || !m_dragging)
        return;
    const std::int64_t window = *std::exchange(m_dragging, std::nullopt);
    const std::optional<std::int64_t> routed = routedWindow(event);
    if (routed && *routed != window)
        return;
    dragItem(window, event.location.x);
}

// A plain click posted to the HID tap reaches whatever item stands under it.
void SimDesktop::handlePlainClick(const MouseEvent& event, EventTap tap)
{
    m_dragging.reset();
    if (tap != EventTap::HID)
        return;
    if (event.type != MouseEventType::LeftMouseDown && event.type != MouseEventType::RightMouseDown)
        return;
    if (auto hit = itemAt(event.location); hit && !hit->item.own)
        recordActivation(hit->item, QStringLiteral("click"));
}

void SimDesktop::warpCursor(WindowServerPoint point)
{
    SimPostedEvent warp;
    warp.kind = SimPostedEvent::Kind::Warp;
    warp.event.location = point;
    m_events.push_back(warp);
    m_cursor = point;
}

// What the click lands on is settled when it happens, whatever its listeners (the global
// monitors) then do; they hear it while a menu it closes still stands.
void SimDesktop::userClick(const SimUserClick& click)
{
    m_cursor = click.point;
    const std::optional<SimPlacedItem> hit = itemAt(click.point);
    const bool onMenus = !hit && onAppMenus(click.point);
    for (const ClickListener& listener : std::vector<ClickListener>(m_clickListeners))
        listener(click);
    m_openMenu.reset();
    if (!hit) {
        if (onMenus)
            openMenuAt(click.point, 0, QStringLiteral("Finder"));
        return;
    }
    if (hit->item.own) {
        if (m_ownClick)
            m_ownClick(hit->item, click);
        return;
    }
    recordActivation(hit->item, QStringLiteral("click"));
    openMenuAt({hit->frame.x, click.point.y}, hit->pid, hit->item.owner);
}

bool SimDesktop::onAppMenus(WindowServerPoint point) const
{
    if (m_appMenusWidth <= 0 || point.y < 0)
        return false;
    const std::vector<SimScreen> all = screens();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const WindowServerRect display = screenFrame(i);
        if (point.x >= display.x && point.x < display.x + m_appMenusWidth &&
            point.y < all[i].menuBarHeight)
            return true;
    }
    return false;
}

void SimDesktop::openMenuAt(WindowServerPoint point, std::int32_t pid, const QString& owner)
{
    double menuBarHeight = 24;
    for (std::size_t i = 0; i < screens().size(); ++i)
        if (screenFrame(i).contains({point.x, 1}))
            menuBarHeight = screens()[i].menuBarHeight;
    m_openMenu = OpenMenu{pid, owner, {point.x, menuBarHeight, 220, 160}};
}

} // namespace ravlin
