#pragma once

#include <QImage>

#include <cstdint>
#include <optional>

namespace ravlin {

class PermissionManager;
class WindowServer;

// Pictures of status-item windows. No picture also means "not on screen": the
// window server answers a window outside every display with a single pixel.
class ItemCapture {
public:
    ItemCapture(WindowServer& windowServer, const PermissionManager& permissions);

    std::optional<QImage> image(std::int64_t windowId) const;

private:
    WindowServer& m_windowServer;
    const PermissionManager& m_permissions;
};

} // namespace ravlin
