// Scroll events turned into one decision per gesture.
#include "core/bar/ScrollIntent.h"

#include <gtest/gtest.h>

using namespace ravlin;
using Direction = ScrollIntent::Direction;

namespace {

EventMonitors::Event scroll(double delta, bool precise = false, bool inverted = false,
                            bool momentum = false)
{
    EventMonitors::Event e;
    e.kind = EventMonitors::ScrollWheel;
    e.scrollDeltaY = delta;
    e.precise = precise;
    e.inverted = inverted;
    e.momentum = momentum;
    return e;
}

} // namespace

TEST(ScrollIntent, AWheelNotchDecidesAtOnceAndTheRestOfTheGestureDoesNot)
{
    ScrollIntent intent;
    EXPECT_EQ(intent.feed(scroll(1), 0.0), Direction::Up);
    EXPECT_EQ(intent.feed(scroll(1), 0.1), std::nullopt);
    EXPECT_EQ(intent.feed(scroll(-3), 0.2), std::nullopt); // still the same gesture
    // After a pause, a new gesture.
    EXPECT_EQ(intent.feed(scroll(-1), 0.2 + ScrollIntent::pause + 0.01), Direction::Down);
    // Natural scrolling reports the content's way: the fingers went the other.
    ScrollIntent natural;
    EXPECT_EQ(natural.feed(scroll(-1, false, true), 0.0), Direction::Up);
}

TEST(ScrollIntent, ATrackpadDecidesOnceTheFingersTravelledAndItsGlideNever)
{
    ScrollIntent intent;
    EXPECT_EQ(intent.feed(scroll(5, true), 0.00), std::nullopt);
    EXPECT_EQ(intent.feed(scroll(-2, true), 0.02), std::nullopt); // a wobble takes some back
    EXPECT_EQ(intent.feed(scroll(5, true), 0.04), std::nullopt);
    EXPECT_EQ(intent.feed(scroll(5, true), 0.06), Direction::Up); // 13 points up
    EXPECT_EQ(intent.feed(scroll(9, true, false, true), 0.08), std::nullopt);
    // A glide alone, even a long one, decides nothing.
    ScrollIntent glide;
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(glide.feed(scroll(-20, true, false, true), i * 0.02), std::nullopt);
    // Leaving the menu bar forgets the gesture's travel.
    ScrollIntent left;
    EXPECT_EQ(left.feed(scroll(-10, true), 0.0), std::nullopt);
    left.reset();
    EXPECT_EQ(left.feed(scroll(-10, true), 0.01), std::nullopt);
    EXPECT_EQ(left.feed(scroll(-3, true), 0.02), Direction::Down);
}
