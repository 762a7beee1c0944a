#pragma once

#include "core/settings/TileStyle.h"
#include "core/tiles/PanelSection.h"

#include <QRectF>

#include <optional>
#include <vector>

namespace ravlin {

// Where every part of the tile panel stands, in the panel's own coordinates.
// Sizes are fixed per style, so the layout needs no fonts and is cheap to redo
// whenever a figure changes. The bar style fills the same description along a row
// (`horizontal`; made by BarStyleLayout).
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
    // The strip is a compact list: it asks for no more than this and scrolls the rest.
    static constexpr double stripMaximumHeight = 640;

    std::vector<PlacedTile> tiles;
    std::vector<PlacedHeader> headers;
    std::optional<QRectF> emptyNote; // "no hidden items", when there are none
    std::optional<QRectF> footnote;  // a line under everything else, when there is one
    std::optional<QRectF> searchField;    // above everything while the user types
    // The gear, at the trailing end of a footer under the content. The footer stays at the
    // bottom of the panel while the content scrolls; the rectangle is where it stands when
    // the panel is as tall as its content.
    std::optional<QRectF> settingsButton;
    double footerHeight = 0; // the footer's share of `height`, the gap above it included
    double height = 0;

    // A row rather than a column: the content is `width` long and scrolls sideways; the
    // footer (the gear) stands at the trailing end and takes `footerWidth` of the row.
    bool horizontal = false;
    double width = 0;
    double footerWidth = 0;
    std::vector<QRectF> dividers; // hairlines between the row's sections

    // Lays the sections out for a panel `width` wide; right-to-left mirrors every rectangle.
    static PanelLayout make(const std::vector<PanelSection>& sections, TileStyle style,
                            double width, bool rightToLeft, bool noteEmpty,
                            int footnoteLines = 0, bool withSearchField = false,
                            bool withSettingsButton = false);

    // The height the panel asks for: the content's, short of the strip's limit.
    double preferredHeight(TileStyle style) const;

    // The tile under a point, if any.
    const PlacedTile* tileAt(const QPointF& point) const;
};

} // namespace ravlin
