#pragma once

#include "foundation/PlistValue.h"

#include <QImage>

#include <cstdint>
#include <optional>

namespace ravlin {

// The window list options the core asks for (the values of the platform's option set).
enum class WindowListOption : std::uint32_t {
    AllWindows = 0, // off-screen windows included
    OnScreenOnly = 1,
};

// Keys of one window's dictionary in the window list, as the window server names them.
namespace WindowKey {
inline const QString layer = QStringLiteral("kCGWindowLayer");
inline const QString number = QStringLiteral("kCGWindowNumber");
inline const QString ownerPID = QStringLiteral("kCGWindowOwnerPID");
inline const QString bounds =
    QStringLiteral("kCGWindowBounds"); // {X, Y, Width, Height}, window-server coordinates
inline const QString ownerName = QStringLiteral("kCGWindowOwnerName");
inline const QString name = QStringLiteral("kCGWindowName");
inline const QString isOnscreen = QStringLiteral("kCGWindowIsOnscreen");
} // namespace WindowKey

// Window levels (kCGWindowLayer values) as the window server numbers them.
namespace WindowLevel {
// A menu that is open: an application's, a status item's, a context menu.
constexpr std::int64_t popUpMenu = 101;
} // namespace WindowLevel

// The window server as the operating system exposes it. It only translates:
// which windows matter, and what an image means, is for the core to decide.
class WindowServer {
public:
    virtual ~WindowServer() = default;

    // The window list relative to no window, one dictionary per window, in the
    // window server's order; nothing when the list cannot be had.
    virtual std::optional<PlistArray> windowList(WindowListOption option) = 0;

    // The image of one window within its own bounds, one pixel per point, framing
    // ignored. A window that is not on screen yields a 1×1 image; an unknown one a null image.
    virtual QImage windowImage(std::uint32_t windowNumber) = 0;
};

} // namespace ravlin
