// Where the panel hangs and how it follows its content's height.
#include "core/tiles/PanelPlacement.h"

#include <gtest/gtest.h>

using namespace ravlin;
namespace P = ravlin::PanelPlacement;

namespace {

ScreenInfo screen(double x, double y, double w, double h)
{
    return {{x, y, w, h}, {x, y, w, h - 24}};
}

} // namespace

TEST(PanelPlacement, HangsSixPointsBelowTheItemWithItsRightEdgeOnTheItems)
{
    const ScreenRect anchor{1000, 876, 24, 24};
    EXPECT_EQ(P::origin(anchor, {0, 0, 1440, 900}, 200), (ScreenPoint{1024 - 308, 876 - 200 - 6}));
}

TEST(PanelPlacement, StaysEightPointsInsideBothScreenEdges)
{
    const ScreenRect frame{0, 0, 1440, 900};
    EXPECT_EQ(P::origin({1416, 876, 24, 24}, frame, 120).x, 1440 - 316);
    EXPECT_EQ(P::origin({0, 876, 24, 24}, frame, 120).x, 8);
    // A second screen to the right keeps its own edges.
    EXPECT_EQ(P::origin({1450, 876, 24, 24}, {1440, 0, 1920, 1080}, 120).x, 1448);
    // Narrower than both margins: the right bound is applied last.
    EXPECT_EQ(P::origin({0, 276, 24, 24}, {0, 0, 300, 300}, 120).x, 300 - 316);
}

TEST(PanelPlacement, PicksTheFirstScreenTheAnchorOverlapsElseTheMainOne)
{
    const std::vector<ScreenInfo> screens{screen(0, 0, 1440, 900), screen(1440, 0, 1920, 1080)};
    EXPECT_EQ(P::screenFor({1500, 1056, 24, 24}, screens, screens[0])->frame.x, 1440);
    EXPECT_EQ(P::screenFor({1430, 876, 24, 24}, screens, screens[1])->frame.x,
              0); // straddles: the first
    EXPECT_EQ(P::screenFor({5000, 5000, 24, 24}, screens, screens[1])->frame.x, 1440);
    EXPECT_FALSE(P::screenFor({5000, 5000, 24, 24}, {}, std::nullopt));
}

TEST(PanelPlacement, HeightIsWholePointsAndNeverBelow120)
{
    EXPECT_EQ(P::fittedHeight(40), 120);
    EXPECT_EQ(P::fittedHeight(250.2), 251);
    EXPECT_EQ(P::fittedHeight(std::numeric_limits<double>::quiet_NaN()), 120);
}

TEST(PanelPlacement, RefitKeepsTheTopEdgeAndIgnoresHalfAPoint)
{
    const ScreenRect current{716, 470, 308, 400}; // top edge at 870
    EXPECT_FALSE(P::refit(current, 399.6));       // 400 after rounding up
    EXPECT_FALSE(P::refit({716, 470, 308, 400.5}, 400));
    const auto taller = P::refit(current, 450);
    ASSERT_TRUE(taller);
    EXPECT_EQ(*taller, (ScreenRect{716, 420, 308, 450}));
    EXPECT_EQ(P::refit(current, 10)->height, 120);
    EXPECT_EQ(P::refit(current, 10)->maxY(), 870);
}

TEST(PanelPlacement, NeverTallerThanTheVisibleAreaBelowTheItem)
{
    // The Dock takes the bottom 70 points: the panel ends 8 points above it.
    const ScreenInfo screen{{0, 0, 1440, 900}, {0, 70, 1440, 806}};
    const ScreenRect item{1416, 876, 24, 24};
    EXPECT_EQ(P::maximumHeight(item, screen), 876 - 6 - 78);
    EXPECT_EQ(P::fittedHeight(1800, P::maximumHeight(item, screen)), 792);
    EXPECT_EQ(P::fittedHeight(300, 792), 300);
    // On a tiny screen the room wins over the minimum.
    EXPECT_EQ(P::fittedHeight(300, 90), 90);
    EXPECT_EQ(P::refit({1124, 78, 308, 792}, 1900, 792), std::nullopt);
    EXPECT_EQ(P::refit({1124, 78, 308, 792}, 500, 792)->maxY(), 870);
}

TEST(PanelPlacement, KeepsItsWidthWhereItFitsAndTakesTheScreensOtherwise)
{
    EXPECT_EQ(P::widthOn({0, 0, 1440, 900}), 308);
    EXPECT_EQ(P::widthOn({0, 0, 324, 900}), 308);
    EXPECT_EQ(P::widthOn({0, 0, 300, 300}), 284);
    EXPECT_EQ(P::origin({276, 276, 24, 24}, {0, 0, 300, 300}, 120, 284).x, 8);
}
