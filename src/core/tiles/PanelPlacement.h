#pragma once

#include "platform/Screens.h"

#include <limits>
#include <optional>
#include <vector>

namespace ravlin::PanelPlacement {

// The tile panel is this wide in every style.
constexpr double panelWidth = 308;
// Never shorter, however little it shows.
constexpr double minimumHeight = 120;
// Kept at least this far inside the screen's left and right edges.
constexpr double screenMargin = 8;
// The panel's top edge hangs this far below the status item.
constexpr double gapBelowAnchor = 6;
// Content that changes height by no more than this does not move the window.
constexpr double refitTolerance = 0.5;

// The first screen whose frame overlaps the anchor; the main screen when none does.
std::optional<ScreenInfo> screenFor(const ScreenRect& anchor,
                                    const std::vector<ScreenInfo>& screens,
                                    const std::optional<ScreenInfo>& mainScreen);

// The panel's width on a screen: its usual width wherever that fits between the
// margins, else as wide as the screen allows.
double widthOn(const ScreenRect& screenFrame);

// The panel's bottom-left corner (screen coordinates): its right edge on the
// anchor's right edge (centred under an anchor without width), kept inside the screen.
ScreenPoint origin(const ScreenRect& anchor, const ScreenRect& screenFrame, double height,
                   double width = panelWidth);

// The tallest the panel may be under the anchor: down to the bottom of the screen's
// visible area (above the Dock), less the margin. What does not fit scrolls.
double maximumHeight(const ScreenRect& anchor, const ScreenInfo& screen);

// The window height for a content height: whole points, at least the minimum, at most
// `maximum` (which wins over the minimum on a very short screen).
double fittedHeight(double contentHeight, double maximum = std::numeric_limits<double>::infinity());

// The frame after the content changed height, with the top edge kept where it
// is; nothing when the change is within the tolerance.
std::optional<ScreenRect> refit(const ScreenRect& current, double contentHeight,
                                double maximum = std::numeric_limits<double>::infinity());

} // namespace ravlin::PanelPlacement
