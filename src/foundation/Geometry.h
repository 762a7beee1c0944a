#pragma once

namespace ravlin {

// Two coordinate systems meet in a menu-bar tool. Every value keeps the system
// of its source, named in its type, and crosses over only through Geometry.

// Window-server coordinates: origin at the top left of the main display, y grows
// downwards. Window lists, synthesised events and accessibility hit tests use them.
struct WindowServerPoint {
    double x = 0;
    double y = 0;
    bool operator==(const WindowServerPoint&) const = default;
};

struct WindowServerRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    WindowServerPoint center() const { return {x + width / 2, y + height / 2}; }
    bool contains(WindowServerPoint p) const
    {
        return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY();
    }
    bool operator==(const WindowServerRect&) const = default;
};

// Screen coordinates: origin at the bottom left of the main display, y grows
// upwards. Screen frames, status-item frames and the mouse location use them.
struct ScreenPoint {
    double x = 0;
    double y = 0;
    bool operator==(const ScreenPoint&) const = default;
};

struct ScreenRect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    double maxX() const { return x + width; }
    double maxY() const { return y + height; }
    bool contains(ScreenPoint p) const
    {
        return p.x >= x && p.x < maxX() && p.y >= y && p.y < maxY();
    }
    bool operator==(const ScreenRect&) const = default;
};

namespace Geometry {

// The main display's height is the one number that links the two systems.
ScreenPoint toScreen(WindowServerPoint point, double mainDisplayHeight);
WindowServerPoint toWindowServer(ScreenPoint point, double mainDisplayHeight);
ScreenRect toScreen(const WindowServerRect& rect, double mainDisplayHeight);
WindowServerRect toWindowServer(const ScreenRect& rect, double mainDisplayHeight);

} // namespace Geometry
} // namespace ravlin
