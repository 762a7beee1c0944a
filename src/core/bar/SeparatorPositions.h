#pragma once

#include "BarEntry.h"
#include "BarWishes.h"
#include "foundation/Geometry.h"

#include <QSet>

#include <optional>
#include <vector>

namespace ravlin {

class DefaultsStore;

// Where Ravlin's separators go so that they stand between the items as the user wants them,
// for the bar as it stands: what the user wants in sight right of the hidden separator, the
// always-hidden section left of its own. Where the bar's order does not allow both, the
// separator goes where the fewest items end up on the wrong side (an item kept in sight
// winning a tie). Positions are what the bar reads an item's place from: the distance from
// the right end of the movable items.
struct SeparatorPositions {
    double hidden = 0;
    double alwaysHidden = 0;
    QSet<QString> leftOfHidden; // the keys of the items the hidden separator then hides

    // `entries` left to right; Ravlin's own item stays in sight like an item placed in the bar.
    static SeparatorPositions forBar(const std::vector<BarEntry>& entries,
                                     const BarWishes::Now& wishes,
                                     const std::optional<ScreenRect>& mainItem);
    // Left of every item: a section that starts empty.
    static double farLeft(const std::vector<BarEntry>& entries, double rightEnd);
    // Where the movable items end on the right: Ravlin's own item, or another right of it.
    static double rightEnd(const std::vector<BarEntry>& entries,
                           const std::optional<ScreenRect>& mainItem);
    // Remembers the place the bar gives the item of that autosave name when it is made.
    static void store(DefaultsStore& defaults, const QString& autosaveName, double position);
};

} // namespace ravlin
