#include "BarPlacement.h"

#include <algorithm>
#include <cmath>

namespace ravlin::BarPlacement {

double menuBarHeight(const ScreenInfo& screen)
{
    return std::max(screen.frame.maxY() - screen.visibleFrame.maxY(), 24.0);
}

ScreenRect frame(const ScreenRect& anchor, const ScreenInfo& screen, double contentWidth)
{
    const ScreenRect& display = screen.frame;
    const double room = std::max(1.0, std::floor(display.width - 2 * screenMargin));
    const double width = std::clamp(std::ceil(contentWidth), 1.0, room);
    const double height = menuBarHeight(screen);
    const double right = anchor.width < 1 ? anchor.x + width / 2 : anchor.maxX();
    double x = std::max(display.x + screenMargin, right - width);
    x = std::min(x, display.maxX() - width - screenMargin);
    const double top = display.maxY() - height - gapBelowMenuBar;
    return {x, top - height, width, height};
}

} // namespace ravlin::BarPlacement
