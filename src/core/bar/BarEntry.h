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

    // The bar lays its items out from the right edge of the main display: whatever is pushed
    // past the left edge is off screen.
    bool onScreen() const { return raw.x >= 0; }
};

} // namespace ravlin
