#include "SimScreens.h"

#include "SimDesktop.h"

namespace ravlin {

SimScreens::SimScreens(SimDesktop& desktop) : m_desktop(desktop)
{
    m_desktop.addScreenListener([this] { notifyChanged(); });
}

std::vector<ScreenInfo> SimScreens::screens()
{
    const std::vector<SimScreen> all = m_desktop.screens();
    const double mainHeight = all.front().height;
    std::vector<ScreenInfo> result;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const WindowServerRect frame = m_desktop.screenFrame(i);
        // Every display shows the menu bar along its top edge.
        const WindowServerRect visible{frame.x, frame.y + all[i].menuBarHeight, frame.width,
                                       frame.height - all[i].menuBarHeight};
        ScreenInfo info{Geometry::toScreen(frame, mainHeight), Geometry::toScreen(visible, mainHeight),
                        std::nullopt};
        if (const std::optional<WindowServerRect> notch = m_desktop.notchFrame(i))
            info.notch = Geometry::toScreen(*notch, mainHeight);
        result.push_back(info);
    }
    return result;
}

std::optional<ScreenInfo> SimScreens::mainScreen()
{
    return screens().front();
}

ScreenPoint SimScreens::mouseLocation()
{
    return Geometry::toScreen(m_desktop.cursor(), m_desktop.mainScreen().height);
}

} // namespace ravlin
