#include "TileFlow.h"

#include <algorithm>

namespace ravlin {

TileFlow::Walk TileFlow::walk(double width, const std::vector<QSizeF>& ideal) const
{
    Walk result;
    result.positions.reserve(ideal.size());
    double x = 0, y = 0, lineHeight = 0;
    for (const QSizeF& size : ideal) {
        if (x + size.width() > width && x > 0) {
            y += lineHeight + lineSpacing;
            x = 0;
            lineHeight = 0;
        }
        result.positions.emplace_back(x, y);
        x += size.width() + spacing;
        lineHeight = std::max(lineHeight, size.height());
    }
    result.height = ideal.empty() ? 0 : y + lineHeight;
    return result;
}

QSizeF TileFlow::sizeThatFits(std::optional<double> proposedWidth,
                              const std::vector<QSizeF>& ideal) const
{
    const double width = proposedWidth.value_or(unspecifiedWidth);
    return {width, walk(width, ideal).height};
}

std::vector<QPointF> TileFlow::placeSubviews(const QRectF& bounds,
                                             const std::vector<QSizeF>& ideal) const
{
    std::vector<QPointF> positions = walk(bounds.width(), ideal).positions;
    for (QPointF& p : positions)
        p += bounds.topLeft();
    return positions;
}

} // namespace ravlin
