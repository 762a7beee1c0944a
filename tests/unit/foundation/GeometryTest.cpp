#include "foundation/Geometry.h"
#include "foundation/SelfTestText.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace ravlin;

TEST(Geometry, PointsFlipAroundTheMainDisplaysHeight)
{
    EXPECT_EQ(Geometry::toScreen(WindowServerPoint{10, 0}, 900), (ScreenPoint{10, 900}));
    EXPECT_EQ(Geometry::toWindowServer(ScreenPoint{10, 900}, 900), (WindowServerPoint{10, 0}));
}

TEST(Geometry, RectanglesKeepTheirSizeAndSwapTheirReferenceEdge)
{
    // The menu bar: the top 24 points of a 900-point display.
    const ScreenRect menuBar = Geometry::toScreen(WindowServerRect{0, 0, 1440, 24}, 900);
    EXPECT_EQ(menuBar, (ScreenRect{0, 876, 1440, 24}));
    EXPECT_EQ(Geometry::toWindowServer(menuBar, 900), (WindowServerRect{0, 0, 1440, 24}));
}

TEST(Geometry, ContainsIsHalfOpen)
{
    const WindowServerRect r{10, 0, 20, 24};
    EXPECT_TRUE(r.contains({10, 0}));
    EXPECT_FALSE(r.contains({30, 5}));
}

TEST(SelfTestText, WholeNumbersAreCutTowardsZero)
{
    EXPECT_EQ(SelfTestText::wholeNumber(1305.9), QStringLiteral("1305"));
    EXPECT_EQ(SelfTestText::wholeNumber(-8.5), QStringLiteral("-8"));
    EXPECT_EQ(SelfTestText::wholeNumber(std::nan("")), QStringLiteral("nil"));
}

TEST(SelfTestText, ListsAreBracketedAndQuotesEscaped)
{
    EXPECT_EQ(SelfTestText::numberList({412, 97, 1033}), QStringLiteral("[412, 97, 1033]"));
    EXPECT_EQ(SelfTestText::numberList({}), QStringLiteral("[]"));
    EXPECT_EQ(SelfTestText::quotedList({QStringLiteral("Wi-Fi"), QStringLiteral("say \"hi\"")}),
              QStringLiteral("[\"Wi-Fi\", \"say \\\"hi\\\"\"]"));
}
