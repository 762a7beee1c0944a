#include "MenuBarDisplays.h"

#include <algorithm>

namespace ravlin::MenuBarDisplays {

namespace {

constexpr double leastMenuBarHeight = 24;

bool overlaps(const ScreenRect& a, const ScreenRect& b)
{
    return a.x < b.maxX() && b.x < a.maxX() && a.y < b.maxY() && b.y < a.maxY();
}

const ScreenInfo* displayHolding(const ScreenRect& item, const std::vector<ScreenInfo>& screens)
{
    for (const ScreenInfo& s : screens)
        if (overlaps(s.frame, item))
            return &s;
    return nullptr;
}

} // namespace

std::optional<ScreenInfo> displayAt(ScreenPoint point, const std::vector<ScreenInfo>& screens)
{
    for (const ScreenInfo& s : screens)
        if (s.frame.contains(point))
            return s;
    return std::nullopt;
}

bool inMenuBar(ScreenPoint point, const ScreenInfo& display)
{
    const double bar =
        std::max(display.frame.maxY() - display.visibleFrame.maxY(), leastMenuBarHeight);
    return display.frame.contains(point) && point.y >= display.frame.maxY() - bar;
}

ScreenRect onDisplay(const ScreenRect& item, const ScreenInfo& from, const ScreenInfo& to)
{
    const double fromRightEdge = from.frame.maxX() - item.x;
    const double fromTop = from.frame.maxY() - item.y;
    return {to.frame.maxX() - fromRightEdge, to.frame.maxY() - fromTop, item.width, item.height};
}

bool behindNotch(const ScreenRect& item, const std::vector<ScreenInfo>& screens)
{
    const ScreenInfo* display = displayHolding(item, screens);
    return display && display->notch && overlaps(*display->notch, item);
}

bool rightOfNotch(const ScreenRect& item, const std::vector<ScreenInfo>& screens)
{
    const ScreenInfo* display = displayHolding(item, screens);
    return !display || !display->notch || item.x >= display->notch->maxX();
}

} // namespace ravlin::MenuBarDisplays
