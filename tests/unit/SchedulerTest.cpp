#include "TestSupport.h"

#include "foundation/QtScheduler.h"
#include "foundation/VirtualScheduler.h"

#include <QCoreApplication>
#include <QEventLoop>

#include <limits>

#include <gtest/gtest.h>

using namespace ravlin;

TEST(VirtualScheduler, RunsDueWorkInTimeOrderAndLeavesTheRest)
{
    VirtualScheduler s;
    QStringList ran;
    s.after(2.0, [&] { ran << QStringLiteral("b@") + QString::number(s.now()); });
    s.after(1.0, [&] { ran << QStringLiteral("a@") + QString::number(s.now()); });
    s.async([&] { ran << QStringLiteral("now"); });
    s.advance(1.5);
    EXPECT_EQ(ran, (QStringList{QStringLiteral("now"), QStringLiteral("a@1")}));
    EXPECT_DOUBLE_EQ(s.now(), 1.5);
    s.advance(10);
    EXPECT_EQ(ran.last(), QStringLiteral("b@2"));
    EXPECT_EQ(s.pendingCount(), 0);
}

TEST(VirtualScheduler, InvalidatedAndRepeatingTimers)
{
    VirtualScheduler s;
    int once = 0, repeated = 0;
    Timer cancelled = s.after(1, [&] { ++once; });
    Timer ticker = s.every(2, [&] { ++repeated; });
    cancelled.invalidate();
    EXPECT_FALSE(cancelled.isValid());
    s.advance(7);
    EXPECT_EQ(once, 0);
    EXPECT_EQ(repeated, 3);
    EXPECT_TRUE(ticker.isValid());
    ticker.invalidate();
    s.advance(10);
    EXPECT_EQ(repeated, 3);
}

TEST(VirtualScheduler, OneShotTimerIsNoLongerValidAfterItFired)
{
    VirtualScheduler s;
    Timer t = s.after(1, [] {});
    s.advance(1);
    EXPECT_FALSE(t.isValid());
}

TEST(VirtualScheduler, WorkScheduledByWorkRunsInTheSameAdvance)
{
    VirtualScheduler s;
    QList<double> times;
    s.after(1, [&] {
        times << s.now();
        s.after(0.5, [&] { times << s.now(); });
    });
    s.advance(2);
    EXPECT_EQ(times, (QList<double>{1.0, 1.5}));
}

TEST(VirtualScheduler, BlockingSleepMovesTheClockAndBackgroundResultsArriveOnTheMainQueue)
{
    VirtualScheduler s;
    int result = 0;
    s.background<int>(
        [&] {
            s.sleepBlocking(0.65);
            return 42;
        },
        [&](int r) { result = r; });
    EXPECT_DOUBLE_EQ(s.now(), 0.65);
    EXPECT_EQ(result, 0); // handed over, not yet run
    s.runDue();
    EXPECT_EQ(result, 42);
}

TEST(QtScheduler, RunsTimersAndBackgroundWorkOnTheEventLoop)
{
    QtScheduler s;
    QEventLoop loop;
    QStringList ran;
    s.async([&] { ran << QStringLiteral("async"); });
    Timer cancelled = s.after(0, [&] { ran << QStringLiteral("cancelled"); });
    cancelled.invalidate();
    s.background<int>([] { return 7; },
                      [&](int v) {
                          ran << QString::number(v);
                          s.after(0, [&] { loop.quit(); });
                      });
    Timer guard = s.after(5, [&] { loop.quit(); }); // failsafe only
    loop.exec();
    guard.invalidate();
    EXPECT_TRUE(ran.contains(QStringLiteral("async")));
    EXPECT_TRUE(ran.contains(QStringLiteral("7")));
    EXPECT_FALSE(ran.contains(QStringLiteral("cancelled")));
}

TEST(QtScheduler, IntervalsLongerThanATimerHoldsAreClampedWithALogLine)
{
    QtScheduler s;
    test::LogCapture log;
    int fired = 0;
    Timer month = s.after(30.0 * 24 * 3600, [&] { ++fired; });
    Timer forever = s.every(std::numeric_limits<double>::infinity(), [&] { ++fired; });
    QEventLoop loop;
    s.after(0, [&] { loop.quit(); });
    loop.exec();
    EXPECT_EQ(fired, 0);
    EXPECT_TRUE(month.isValid() && forever.isValid());
    ASSERT_EQ(log.lines().size(), 2) << log.lines().join(u'\n').toStdString();
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("2592000")));
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("24.8 days")));
    month.invalidate();
    forever.invalidate();
}

TEST(VirtualScheduler, BackgroundWorkWithADurationRunsWhenItIsOverAndSeesTheWorldThen)
{
    VirtualScheduler s;
    s.setBackgroundDuration(0.5);
    int world = 1, seen = 0, result = 0;
    s.background<int>(
        [&] {
            seen = world;
            return world * 10;
        },
        [&](int r) { result = r; });
    s.advance(0.4);
    EXPECT_EQ(seen, 0);
    world = 2; // changes while the work is under way
    s.advance(0.1);
    EXPECT_EQ(seen, 2);
    EXPECT_EQ(result, 20);
    EXPECT_DOUBLE_EQ(s.now(), 0.5);
    // Nonsense durations fall back to work that takes no time.
    s.setBackgroundDuration(-1);
    EXPECT_EQ(s.backgroundDuration(), 0);
    s.setBackgroundDuration(std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(s.backgroundDuration(), 0);
}
