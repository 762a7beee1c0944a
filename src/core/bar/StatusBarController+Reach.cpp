// Reaching items the way each user works: the menu bar's reveal gestures (a click on an
// empty spot, resting the pointer, scrolling), and opening one item by its shortcut or a URL.
#include "StatusBarController.h"

#include "MenuBarDisplays.h"
#include "TilePanel.h"
#include "core/discovery/CaptureEngine.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/settings/Preferences.h"
#include "foundation/Logging.h"

#include <algorithm>

namespace ravlin {

// As a click on the chevron, but the panel (or the bar style's row) hangs under the spot.
void StatusBarController::menuBarClicked(ScreenPoint spot)
{
    if (m_arranging)
        return;
    m_clickPoint = spot;
    if (m_s.preferences.clickShowsInBar()) {
        toggleInBar();
        return;
    }
    if (m_s.panel && m_s.panel->isVisible()) {
        closeTile();
        return;
    }
    const std::optional<ScreenInfo> display =
        MenuBarDisplays::displayAt(spot, m_s.screens.screens());
    const double top = display ? display->frame.maxY() : spot.y;
    const double bar =
        display ? std::max(display->frame.maxY() - display->visibleFrame.maxY(), 24.0) : 24.0;
    m_spot = ScreenRect{spot.x, top - bar, 0, bar};
    toggleTile();
    if (!m_tileOpen)
        m_spot.reset();
}

bool StatusBarController::onChevron(ScreenPoint point) const
{
    const std::optional<ScreenRect> frame = frameOf(m_mainItem.get());
    if (!frame)
        return true;
    const std::vector<ScreenInfo> screens = m_s.screens.screens();
    const std::optional<ScreenInfo> clicked = MenuBarDisplays::displayAt(point, screens);
    const std::optional<ScreenInfo> home = MenuBarDisplays::displayAt(
        {frame->x + frame->width / 2, frame->y + frame->height / 2}, screens);
    const ScreenRect chevron =
        clicked && home ? MenuBarDisplays::onDisplay(*frame, *home, *clicked) : *frame;
    return point.x >= chevron.x && point.x <= chevron.maxX();
}

// The panel opens under the chevron of the display the pointer rests on.
void StatusBarController::menuBarHovered()
{
    if (m_arranging || m_tileOpen)
        return;
    toggleTileFromKeyboard();
}

// Up shows the hidden items in the bar (for the auto-rehide interval, as the chevron's click
// setting does); down hides them again.
void StatusBarController::menuBarScrolled(bool up)
{
    if (m_arranging)
        return;
    if (up) {
        if (!m_expanded)
            toggleInBar();
        else
            scheduleRehideIfNeeded();
        return;
    }
    if (m_expanded)
        menuToggle();
}

// An item out of sight is brought within reach and opened as its tile would; one in sight is
// pressed where it stands (nothing is revealed, nothing moved).
void StatusBarController::openItem(const BarItem& item)
{
    if (m_arranging)
        return;
    if (hiddenBy(entryOf(item))) {
        activateItem(item);
        return;
    }
    closeTile();
    std::weak_ptr<bool> alive = m_alive;
    m_s.scheduler.background<bool>(
        [this, alive, item] {
            const auto a = alive.lock();
            if (!a || !*a)
                return false;
            if (!m_s.system.techniques().canMoveItems()) {
                pressElementOf(item);
                return true;
            }
            const std::vector<CaptureEngine::Raw> raws = m_s.capture.scanAll();
            auto it = std::find_if(raws.begin(), raws.end(), [&](const CaptureEngine::Raw& r) {
                return std::int64_t(r.id) == item.info.id ||
                       (r.owner == item.info.owner && r.name == item.info.name);
            });
            if (it == raws.end()) {
                qCInfo(lcBar).noquote() << "the item" << item.key << "is gone from the bar";
                return false;
            }
            const MenuBarItemInfo info = it->info();
            activate(item.key, info.centerX(), info.centerY());
            return true;
        },
        [](bool) {});
}

} // namespace ravlin
