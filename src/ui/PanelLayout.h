#pragma once

#include "core/settings/TileStyle.h"
#include "core/tiles/PanelSection.h"

#include <QRectF>

#include <optional>
#include <vector>

namespace ravlin {

// Where every part of the tile panel stands, in the panel's own coordinates.
// Sizes are fixed per style, so the layout needs no fonts and is cheap to redo
// whenever a figure changes.
struct PanelLayout {
    struct PlacedTile {
        std::size_t section = 0;
        std::size_t index = 0;
        QRectF rect;
    };
    struct PlacedHeader {
        std::size_t section = 0;
        QRectF rect;
    };

    static constexpr double padding = 12;
    static constexpr double sectionGap = 14;
    static constexpr double headerHeight = 15;
    static constexpr double headerGap = 6;
    static constexpr double searchFieldHeight = 28;
    static constexpr double settingsButtonSize = 22;

    std::vector<PlacedTile> tiles;
    std::vector<PlacedHeader> headers;
    std::optional<QRectF> emptyNote; // "no hidden items", when there are none
    std::optional<QRectF> footnote;  // a line under everything else, when there is one
    std::optional<QRectF> searchField;    // above everything while the user types
    std::optional<QRectF> settingsButton; // the gear, at the trailing end of the last line
    double height = 0;

    // Lays the sections out for a panel `width` wide; right-to-left mirrors every rectangle.
    static PanelLayout make(const std::vector<PanelSection>& sections, TileStyle style,
                            double width, bool rightToLeft, bool noteEmpty,
                            bool withFootnote = false, bool withSearchField = false,
                            bool withSettingsButton = false);

    // The tile under a point, if any.
    const PlacedTile* tileAt(const QPointF& point) const;
};

} // namespace ravlin
