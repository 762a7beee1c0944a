#include "ItemCapture.h"

#include "PermissionManager.h"
#include "foundation/Logging.h"
#include "platform/WindowServer.h"

#include <limits>

namespace ravlin {

ItemCapture::ItemCapture(WindowServer& windowServer, const PermissionManager& permissions)
    : m_windowServer(windowServer), m_permissions(permissions)
{}

std::optional<QImage> ItemCapture::image(std::int64_t windowId) const
{
    if (!m_permissions.hasScreenRecording() || windowId <= 0)
        return std::nullopt;
    if (windowId > std::numeric_limits<std::uint32_t>::max()) {
        qCWarning(lcDiscovery) << "window number" << windowId
                               << "is outside the unsigned 32-bit range; no image";
        return std::nullopt;
    }
    QImage image = m_windowServer.windowImage(std::uint32_t(windowId));
    if (image.isNull() || image.width() < 2 || image.height() < 2)
        return std::nullopt;
    // One pixel per point.
    image.setDevicePixelRatio(1.0);
    return image;
}

} // namespace ravlin
