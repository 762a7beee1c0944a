#pragma once

#include "foundation/Geometry.h"

#include <optional>
#include <vector>

namespace ravlin {

// One display: its whole frame and the part left after the menu bar and the Dock,
// both in screen coordinates.
struct ScreenInfo {
    ScreenRect frame;
    ScreenRect visibleFrame;
};

class Screens {
public:
    virtual ~Screens() = default;

    // Every display; the first is the one with the menu bar (screen coordinates' origin).
    virtual std::vector<ScreenInfo> screens() = 0;
    // The display with the key window, which is not always the first.
    virtual std::optional<ScreenInfo> mainScreen() = 0;
    virtual ScreenPoint mouseLocation() = 0;
};

} // namespace ravlin
