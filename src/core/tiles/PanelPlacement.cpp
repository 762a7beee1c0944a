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

ScreenPoint origin(const ScreenRect& anchor, const ScreenRect& screenFrame, double height)
{
    double x = std::max(screenFrame.x + screenMargin, anchor.maxX() - panelWidth);
    x = std::min(x, screenFrame.maxX() - panelWidth - screenMargin);
    return {x, anchor.y - height - gapBelowAnchor};
}

double fittedHeight(double contentHeight)
{
    if (!std::isfinite(contentHeight))
        return minimumHeight;
    return std::max(minimumHeight, std::ceil(contentHeight));
}

std::optional<ScreenRect> refit(const ScreenRect& current, double contentHeight)
{
    const double height = fittedHeight(contentHeight);
    if (std::abs(current.height - height) <= refitTolerance)
        return std::nullopt;
    return ScreenRect{current.x, current.maxY() - height, panelWidth, height};
}

} // namespace ravlin::PanelPlacement
