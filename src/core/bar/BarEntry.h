#pragma once

#include "core/discovery/CaptureEngine.h"

#include <QString>

#include <optional>

namespace ravlin {

// One item of another application as it stands in the bar now, with what a hiding
// technique needs to know of it.
struct BarEntry {
    CaptureEngine::Raw raw;
    QString key;                   // empty: no look at the bar could name it
    QString bundleId;              // empty: its process has none (a helper, say)
    std::optional<int> systemItem; // the assessment mode's number of a system item
    bool fixed = false;            // the clock and the control centre: always at the right end
    // False for an item its running application still has that the bar does not list now
    // (the assessment mode takes what it hides out of the bar); its frame is where it was seen.
    bool inBar = true;

    // The bar lays its items out from the right edge of the main display: whatever is pushed
    // past the left edge is off screen.
    bool onScreen() const { return inBar && raw.x >= 0; }
};

} // namespace ravlin
