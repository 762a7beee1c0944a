#pragma once

#include "foundation/Geometry.h"

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <algorithm>

#include <functional>
#include <optional>

namespace ravlin {

// The floating instruction panel of arrange mode, as the controller sees it.
class ArrangeGuide {
public:
    virtual ~ArrangeGuide() = default;
    // Shows the guide hanging below anchor (screen coordinates, origin bottom left).
    virtual void show(const ScreenRect& anchor) = 0;
    virtual void hide() = 0;
    virtual bool isVisible() const = 0;
    // The guide's frame in screen coordinates while it shows.
    virtual std::optional<ScreenRect> frame() const = 0;

    std::function<void()> onDone;
};

// Where the guide's bottom-left corner goes: 12 points inside the screen's edges,
// centred on the anchor where it fits, its top 8 points below the anchor.
inline QPointF arrangeGuideOrigin(const QRectF& anchor, const QRectF& screen, const QSizeF& size)
{
    const double margin = 12.0;
    double x = std::max(screen.left() + margin, anchor.center().x() - size.width() / 2.0);
    x = std::min(x, screen.right() - size.width() - margin);
    return {x, anchor.top() - size.height() - 8.0};
}

} // namespace ravlin
