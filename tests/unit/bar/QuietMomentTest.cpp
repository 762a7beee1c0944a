// Waiting for the user's hands to rest, in virtual time: a wait ends when they rest or when
// patience runs out, looks again only when the hands may have come to rest, and ends
// without a word when it is dropped.
#include "support/SimWorld.h"

#include "core/bar/MoveEngine.h"
#include "core/bar/QuietMoment.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

TEST(QuietMoment, RunsOnceTheHandsRestOrGivesUpInTime)
{
    SimWorld w;
    const PointerGuard& guard = w.services().moveEngine().guard();
    SimUserHands& hands = w.desktop.hands();
    hands.typeFor(2.0);
    std::optional<double> quietAt, gaveUpAt;
    QuietMoment typing(guard, w.scheduler, 20.0, [&] { quietAt = w.scheduler.now(); },
                       [&] { gaveUpAt = w.scheduler.now(); });
    EXPECT_TRUE(typing.isWaiting());
    w.scheduler.advance(2.4);
    EXPECT_FALSE(quietAt);
    w.scheduler.advance(0.2);
    ASSERT_TRUE(quietAt);
    EXPECT_NEAR(*quietAt, 2.5, 0.02);
    EXPECT_FALSE(typing.isWaiting());

    hands.holdButton(true);
    QuietMoment held(guard, w.scheduler, 5.0, [&] { quietAt.reset(); },
                     [&] { gaveUpAt = w.scheduler.now(); });
    w.scheduler.advance(60);
    ASSERT_TRUE(gaveUpAt);
    EXPECT_NEAR(*gaveUpAt - 2.6, 5.0, 0.11);
    EXPECT_TRUE(quietAt); // the quiet branch never ran
}

TEST(QuietMoment, ADroppedWaitRunsNothing)
{
    SimWorld w;
    w.desktop.hands().holdModifiers(EventFlag::command);
    bool ran = false;
    {
        QuietMoment wait(w.services().moveEngine().guard(), w.scheduler, 1.0, [&] { ran = true; },
                         [&] { ran = true; });
        w.scheduler.advance(0.3);
    }
    w.scheduler.advance(10);
    EXPECT_FALSE(ran);
}
