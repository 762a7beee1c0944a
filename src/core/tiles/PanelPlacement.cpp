#include "PanelPlacement.h"

#include <algorithm>
#include <cmath>

namespace ravlin::PanelPlacement {
namespace {

bool overlaps(const ScreenRect& a, const ScreenRect& b)
{
    return a.x < b.maxX() && b.x < a.maxX() && a.y < b.maxY() && b.y < a.maxY();
}

} // namespace

std::optional<ScreenInfo> screenFor(const ScreenRect& anchor,
                                    const std::vector<ScreenInfo>& screens,
                                    const std::optional<ScreenInfo>& mainScreen)
{
    for (const ScreenInfo& screen : screens)
        if (overlaps(screen.frame, anchor))
            return screen;
    return mainScreen;
}

double widthOn(const ScreenRect& screenFrame)
{
    const double room = std::floor(screenFrame.width - 2 * screenMargin);
    return std::clamp(room, 1.0, panelWidth);
}

ScreenPoint origin(const ScreenRect& anchor, const ScreenRect& screenFrame, double height,
                   double width)
{
    // Under an item the panel's right edge stands on the item's; under a spot of empty menu
    // bar (an anchor without width) the panel is centred on it.
    const double right = anchor.width < 1 ? anchor.x + width / 2 : anchor.maxX();
    double x = std::max(screenFrame.x + screenMargin, right - width);
    x = std::min(x, screenFrame.maxX() - width - screenMargin);
    return {x, anchor.y - height - gapBelowAnchor};
}

double maximumHeight(const ScreenRect& anchor, const ScreenInfo& screen)
{
    const double top = anchor.y - gapBelowAnchor;
    const double bottom = screen.visibleFrame.y + screenMargin;
    return std::max(1.0, std::floor(top - bottom));
}

double fittedHeight(double contentHeight, double maximum)
{
    const double wanted = std::isfinite(contentHeight)
                              ? std::max(minimumHeight, std::ceil(contentHeight))
                              : minimumHeight;
    return std::isnan(maximum) ? wanted : std::min(wanted, std::max(1.0, maximum));
}

std::optional<ScreenRect> refit(const ScreenRect& current, double contentHeight, double maximum)
{
    const double height = fittedHeight(contentHeight, maximum);
    if (std::abs(current.height - height) <= refitTolerance)
        return std::nullopt;
    return ScreenRect{current.x, current.maxY() - height, current.width, height};
}

} // namespace ravlin::PanelPlacement
