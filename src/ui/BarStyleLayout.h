#pragma once

#include "PanelLayout.h"

namespace ravlin {

// Where every part of the bar style stands: one row as high as the menu bar, the hidden
// items' pictures side by side as the menu bar shows them, the statistics as compact chips
// before them when the user wants them, a hairline between sections, the search field at
// the leading end while the user types and the gear at the trailing end, with a small mark
// beside it when the panel has a note to give (its words come under the pointer and to a
// screen reader; a click does what clicking the note does). The row is as long
// as its content; a window shorter than that scrolls it sideways. Sizes come from the
// items' own widths in the menu bar and fixed sizes otherwise, so no fonts are needed.
struct BarStyleLayout {
    static constexpr double padding = 6;      // at both ends of the row
    static constexpr double cellGap = 2;      // between two pictures
    static constexpr double sectionGap = 11;  // a hairline stands in its middle
    static constexpr double inset = 2;        // above and below a cell
    static constexpr double smallestCell = 22;
    static constexpr double widestCell = 96;  // a long item (a text, a meter) is squeezed
    static constexpr double markCell = 26;    // an item without a picture: its symbol or initial
    static constexpr double chipWidth = 68;    // a symbol and a figure up to "100%"
    static constexpr double networkChipWidth = 112;
    static constexpr double searchFieldWidth = 124;
    static constexpr double emptyNoteWidth = 176;
    static constexpr double settingsButtonSize = 18;
    // A menu bar is never lower than this.
    static constexpr double lowestBar = 22;

    // Lays the sections out in a row `barHeight` high; right-to-left mirrors every rectangle
    // (the leading end is then on the right).
    static PanelLayout make(const std::vector<PanelSection>& sections, double barHeight,
                            bool rightToLeft, bool noteEmpty, bool withSearchField,
                            bool withSettingsButton, bool withFootnote = false);

    // How long a tile's cell is along the row.
    static double cellWidth(const PanelTile& tile);
};

} // namespace ravlin
