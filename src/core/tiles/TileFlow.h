#pragma once

#include <QPointF>
#include <QRectF>
#include <QSizeF>

#include <optional>
#include <vector>

namespace ravlin {

// Flows tiles of varying width into lines, left to right, each tile at its ideal
// size. A tile wider than the line on an empty line stays there and overflows.
struct TileFlow {
    // Width assumed when the caller proposes none.
    static constexpr double unspecifiedWidth = 320;

    double spacing = 10;     // after every tile in a line
    double lineSpacing = 12; // between lines

    QSizeF sizeThatFits(std::optional<double> proposedWidth,
                        const std::vector<QSizeF>& ideal) const;
    // Top-leading corners of the tiles within bounds.
    std::vector<QPointF> placeSubviews(const QRectF& bounds,
                                       const std::vector<QSizeF>& ideal) const;

private:
    struct Walk {
        std::vector<QPointF> positions;
        double height = 0;
    };
    Walk walk(double width, const std::vector<QSizeF>& ideal) const;
};

} // namespace ravlin
