#pragma once

#include "platform/Screens.h"

#include <optional>
#include <vector>

namespace ravlin::MenuBarDisplays {

// The display a point is on (screen coordinates).
std::optional<ScreenInfo> displayAt(ScreenPoint point, const std::vector<ScreenInfo>& screens);
// Whether the point is in that display's menu bar (at least the top 24 points).
bool inMenuBar(ScreenPoint point, const ScreenInfo& display);
// The bar shows the same items on every display at the same distance from its right edge:
// where an item of `from` stands in the menu bar of `to`.
ScreenRect onDisplay(const ScreenRect& item, const ScreenInfo& from, const ScreenInfo& to);
// Whether a display's notch covers any part of the item.
bool behindNotch(const ScreenRect& item, const std::vector<ScreenInfo>& screens);
// Whether the item stands clear right of its display's notch (true without a notch).
bool rightOfNotch(const ScreenRect& item, const std::vector<ScreenInfo>& screens);

} // namespace ravlin::MenuBarDisplays
