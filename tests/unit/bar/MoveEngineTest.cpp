#include "support/SimWorld.h"

#include "core/bar/MoveEngine.h"
#include "platform/Events.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

class MoveEngineTest : public ::testing::Test {
protected:
    SimWorld w;
    MoveEngine& engine() { return w.services().moveEngine(); }
    std::int64_t fixedClock()
    {
        w.app(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"));
        SimItem clock;
        clock.bundleId = QStringLiteral("com.apple.controlcenter");
        clock.title = QStringLiteral("Clock");
        clock.width = 80;
        clock.fixed = true;
        return w.desktop.addItem(clock);
    }
    std::vector<SimPostedEvent> mouseEvents()
    {
        std::vector<SimPostedEvent> events;
        for (const SimPostedEvent& e : w.desktop.events()) {
            if (e.kind == SimPostedEvent::Kind::Mouse)
                events.push_back(e);
        }
        return events;
    }
};

} // namespace

TEST_F(MoveEngineTest, RoutesAPressAtTheParkingSpotAndAReleaseAtTheTarget)
{
    w.desktop.setCursor({300, 400});
    engine().move(4242, 77, 600.5, 12);
    const auto events = mouseEvents();
    ASSERT_EQ(events.size(), 2u);
    const std::map<int, std::int64_t> routing{{40, 77}, {51, 4242}, {91, 4242}, {92, 4242}};
    EXPECT_EQ(events[0].event.type, MouseEventType::LeftMouseDown);
    EXPECT_EQ(events[0].event.location, (WindowServerPoint{-32000, -32000}));
    EXPECT_EQ(events[0].event.flags, 0x100000u);
    EXPECT_EQ(events[0].event.integerFields, routing);
    EXPECT_EQ(events[0].tap, EventTap::Session);
    EXPECT_EQ(events[1].event.type, MouseEventType::LeftMouseUp);
    EXPECT_EQ(events[1].event.location, (WindowServerPoint{600.5, 12}));
    EXPECT_EQ(events[1].event.flags, 0u);
    EXPECT_EQ(events[1].event.integerFields, routing);
    EXPECT_EQ(w.desktop.cursor(), (WindowServerPoint{300, 400}));
    EXPECT_DOUBLE_EQ(w.scheduler.now(), 0.15);
}

TEST_F(MoveEngineTest, WithoutACursorToPutBackNothingIsMoved)
{
    w.desktop.cursorReadable = false;
    EXPECT_FALSE(engine().move(4242, 77, 600, 12));
    EXPECT_TRUE(w.desktop.events().empty());
}

TEST_F(MoveEngineTest, NeverTakesThePointerFromTheUsersHand)
{
    w.desktop.setCursor({300, 400});
    SimUserHands& hands = w.desktop.hands();
    hands.holdButton(true);
    EXPECT_EQ(engine().guard().busy(), QStringLiteral("a mouse button is held"));
    EXPECT_FALSE(engine().move(4242, 77, 600, 12));
    hands.holdButton(false);
    hands.holdModifiers(EventFlag::option);
    EXPECT_FALSE(engine().move(4242, 77, 600, 12));
    hands.rest();
    hands.typeFor(1.0);
    EXPECT_FALSE(engine().move(4242, 77, 600, 12));
    EXPECT_TRUE(w.desktop.events().empty());
    // Half a second after the last key press the pointer may be taken for a moment.
    w.scheduler.advance(1.4);
    EXPECT_TRUE(engine().guard().busy());
    w.scheduler.advance(0.1);
    EXPECT_FALSE(engine().guard().busy());
    EXPECT_TRUE(engine().move(4242, 77, 600, 12));
    EXPECT_EQ(w.desktop.events().back().kind, SimPostedEvent::Kind::Warp);
    EXPECT_EQ(w.desktop.cursor(), (WindowServerPoint{300, 400}));
}

TEST_F(MoveEngineTest, AWaitForTheHandsIsBoundedAndEndsAsSoonAsTheyRest)
{
    SimUserHands& hands = w.desktop.hands();
    hands.typeFor(2.0);
    const double start = w.scheduler.now();
    EXPECT_TRUE(engine().guard().waitUntilFree(5.0));
    EXPECT_NEAR(w.scheduler.now() - start, 2.5, 0.02);
    hands.holdButton(true);
    EXPECT_FALSE(engine().guard().waitUntilFree(1.0));
    EXPECT_NEAR(w.scheduler.now() - start, 3.5, 0.02);
}

TEST_F(MoveEngineTest, NoEventSourceNoEvents)
{
    w.desktop.eventSourceFails = true;
    engine().move(4242, 77, 600, 12);
    EXPECT_TRUE(w.desktop.events().empty());
}

TEST_F(MoveEngineTest, StatusItemsAreOnScreenItemsOfOtherProcessesInWindowServerOrder)
{
    fixedClock();
    w.app(QStringLiteral("com.example.a"), QStringLiteral("A"));
    const auto right = w.item(QStringLiteral("com.example.a"), QStringLiteral("Right"));
    w.defaults().set(SimDesktop::preferredPositionKey(QStringLiteral("Ravlin.HiddenSeparator")),
                     22);
    w.desktop.addOwnItem(QStringLiteral("Ravlin.HiddenSeparator"), 10000);
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Hidden"));
    const auto probes = engine().statusItems();
    ASSERT_EQ(probes.size(), 2u);
    // The window server lists front to back; nothing is sorted here.
    EXPECT_EQ(probes[0].name, QStringLiteral("Clock"));
    EXPECT_EQ(probes[1].id, std::uint32_t(right));
    EXPECT_DOUBLE_EQ(probes[1].x, 1349);
    EXPECT_DOUBLE_EQ(probes[1].y, 12);
    EXPECT_EQ(probes[1].pid, w.placed(right).pid);
}

TEST_F(MoveEngineTest, SelfTestMovesTheRightmostItem0AndBack)
{
    fixedClock();
    w.app(QStringLiteral("com.example.a"), QStringLiteral("A"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Named"));
    const auto target = w.item(QStringLiteral("com.example.a"), QStringLiteral("Item-0"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Item-0"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Other"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("More"));
    const QString report = engine().runSelfTest();
    EXPECT_EQ(report, w.readLog(DiagnosticLogs::moveLog));
    const QStringList lines = report.split(u'\n');
    ASSERT_EQ(lines.size(), 7) << qPrintable(report);
    EXPECT_EQ(lines[0], QStringLiteral("MoveEngine self-test @ 2026-01-05 09:00:00 +0000"));
    EXPECT_EQ(lines[1], QStringLiteral("  AXIsProcessTrusted=true"));
    EXPECT_EQ(lines[2], QStringLiteral("  target id=%1 pid=%2 before x=1327 y=12")
                            .arg(target)
                            .arg(w.placed(target).pid));
    EXPECT_EQ(lines[3], QStringLiteral("  after x=1283  Δ=-44"));
    EXPECT_EQ(lines[4],
              QStringLiteral("  ✅ Item verschoben — Technik funktioniert auf diesem macOS!"));
    EXPECT_EQ(lines[5], QStringLiteral("  zurückgeschoben → x=1327"));
    // 0.15 per move, 0.45 and 0.3 of settling.
    EXPECT_NEAR(w.scheduler.now(), 0.15 + 0.45 + 0.15 + 0.3, 1e-9);
}

TEST_F(MoveEngineTest, SelfTestWithoutItem0WritesOnlyTheHeader)
{
    fixedClock();
    const QString report = engine().runSelfTest();
    EXPECT_TRUE(
        report.endsWith(QStringLiteral("  AXIsProcessTrusted=true\n  no movable Item-0 found\n")));
    EXPECT_TRUE(w.desktop.events().empty());
}

namespace {

// The rightmost "Item-0" beside a narrow neighbour can shift by that neighbour's width only.
QString selfTestBeside(double neighbourWidth)
{
    SimWorld w;
    w.app(QStringLiteral("com.example.a"), QStringLiteral("A"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Item-0"));
    w.item(QStringLiteral("com.example.a"), QStringLiteral("Small"), neighbourWidth);
    return w.services().moveEngine().runSelfTest();
}

} // namespace

TEST(MoveEngineThreshold, EightPointsAreNotAMoveEightAndAHalfAre)
{
    const QString eight = selfTestBeside(8);
    EXPECT_TRUE(eight.contains(QStringLiteral("  Δ=-8\n  ❌ nicht bewegt\n"))) << qPrintable(eight);
    const QString more = selfTestBeside(8.5);
    EXPECT_TRUE(more.contains(QStringLiteral("  Δ=-8\n  ✅ Item verschoben"))) << qPrintable(more);
}
