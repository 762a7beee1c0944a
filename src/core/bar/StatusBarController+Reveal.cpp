// Reveal periods, the auto-rehide timer and the hover reveal.
#include "StatusBarController.h"

#include "core/settings/Preferences.h"
#include "platform/Screens.h"
#include "platform/StatusBar.h"

#include <algorithm>

namespace ravlin {

void StatusBarController::scheduleRehideIfNeeded()
{
    m_rehideTimer.invalidate();
    if (m_arranging || !m_expanded || !m_s.preferences.autoRehide())
        return;
    m_rehideTimer = m_s.scheduler.after(double(m_s.preferences.rehideInterval()),
                                        weakly([this] { ensureCollapsed(); }));
}

void StatusBarController::setupHover()
{
    m_hoverMonitor.reset();
    if (!m_s.preferences.revealOnHover())
        return;
    m_hoverMonitor = m_s.monitors.addGlobalMonitor(
        EventMonitors::MouseMoved,
        [guard = weakly([this] { handleHover(); })](EventMonitors::Kind) { guard(); });
}

void StatusBarController::handleHover()
{
    if (!m_s.preferences.revealOnHover() || m_tileOpen || m_arranging)
        return;
    const std::optional<ScreenRect> frame = frameOf(m_mainItem.get());
    if (!frame)
        return;
    // The pointer may stand up to three points off the item on any side, edges included.
    const double slack = 3.0;
    const ScreenPoint p = m_s.screens.mouseLocation();
    const bool inside = p.x >= frame->x - slack && p.x <= frame->maxX() + slack &&
                        p.y >= frame->y - slack && p.y <= frame->maxY() + slack;
    if (inside)
        openTile();
}

void StatusBarController::armRevealCollapse()
{
    disarmRevealCollapse();
    auto onClick = weakly([this] {
        if (clickIsInMenuBar())
            bumpRevealSafety();
        else
            later(0.05, [this] { finishReveal(); });
    });
    m_revealCollapseMonitor =
        m_s.monitors.addGlobalMonitor(EventMonitors::LeftMouseDown | EventMonitors::RightMouseDown,
                                      [onClick](EventMonitors::Kind) { onClick(); });
    bumpRevealSafety();
}

void StatusBarController::disarmRevealCollapse()
{
    m_revealCollapseMonitor.reset();
    m_revealSafetyTimer.invalidate();
    m_revealSafetyTimer = Timer();
}

void StatusBarController::bumpRevealSafety()
{
    m_revealSafetyTimer.invalidate();
    m_revealSafetyTimer = m_s.scheduler.after(10.0, weakly([this] { finishReveal(); }));
}

bool StatusBarController::clickIsInMenuBar() const
{
    const ScreenPoint p = m_s.screens.mouseLocation();
    const std::vector<ScreenInfo> screens = m_s.screens.screens();
    auto screen = std::find_if(screens.begin(), screens.end(),
                               [&](const ScreenInfo& s) { return s.frame.contains(p); });
    std::optional<ScreenInfo> chosen =
        screen != screens.end() ? std::optional(*screen) : m_s.screens.mainScreen();
    if (!chosen)
        return false;
    const double menuBarHeight = std::max(chosen->frame.maxY() - chosen->visibleFrame.maxY(), 24.0);
    return p.y >= chosen->frame.maxY() - menuBarHeight;
}

void StatusBarController::finishReveal()
{
    disarmRevealCollapse();
    restoreOwnItems();
    ensureCollapsed();
    later(0.2, [this] { reHideEscapedItems(); });
}

} // namespace ravlin
