#include "Geometry.h"

namespace ravlin::Geometry {

ScreenPoint toScreen(WindowServerPoint point, double mainDisplayHeight)
{
    return {point.x, mainDisplayHeight - point.y};
}

WindowServerPoint toWindowServer(ScreenPoint point, double mainDisplayHeight)
{
    return {point.x, mainDisplayHeight - point.y};
}

// A rectangle's reference corner flips too: its top edge in one system is its
// bottom edge in the other.
ScreenRect toScreen(const WindowServerRect& rect, double mainDisplayHeight)
{
    return {rect.x, mainDisplayHeight - rect.maxY(), rect.width, rect.height};
}

WindowServerRect toWindowServer(const ScreenRect& rect, double mainDisplayHeight)
{
    return {rect.x, mainDisplayHeight - rect.maxY(), rect.width, rect.height};
}

} // namespace ravlin::Geometry
