#pragma once

#include "platform/Screens.h"

namespace ravlin::BarPlacement {

// The bar style's row hangs this far below the menu bar.
constexpr double gapBelowMenuBar = 1;
// Kept at least this far inside the display's left and right edges.
constexpr double screenMargin = 6;

// The height of a display's menu bar: what its visible frame leaves free at the top, and at
// least 24 points (a menu bar that hides itself leaves nothing).
double menuBarHeight(const ScreenInfo& screen);

// The row's frame (screen coordinates): as high as the menu bar, hanging right under it; as
// long as its content but never longer than the display allows; its right end under the
// anchor's right end (the chevron), or centred under an anchor without width (a spot of empty
// menu bar the user clicked); kept inside the display.
ScreenRect frame(const ScreenRect& anchor, const ScreenInfo& screen, double contentWidth);

} // namespace ravlin::BarPlacement
