// The sampling rules of SystemStats over a simulated probe, in virtual time.
#include "core/sysinfo/SystemStats.h"
#include "foundation/VirtualScheduler.h"
#include "platform/sim/SimSystemProbe.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

CpuTicks ticks32(std::uint64_t user, std::uint64_t system, std::uint64_t idle, std::uint64_t nice)
{
    return {user, system, idle, nice, CpuTicks::Width::Bits32};
}

class SystemStatsTest : public ::testing::Test {
protected:
    VirtualScheduler scheduler;
    SimSystemProbe probe{scheduler};
    SystemStats stats{scheduler, probe};
};

} // namespace

TEST_F(SystemStatsTest, FirstStartShowsTheProcessorOnlyAtTheHalfSecondSample)
{
    probe.setCpu(ticks32(100, 50, 850, 0));
    stats.start();
    EXPECT_EQ(stats.cpu(), 0);
    probe.setCpu(ticks32(200, 100, 1700, 0));
    scheduler.advance(0.49);
    EXPECT_EQ(stats.cpu(), 0);
    scheduler.advance(0.01);
    EXPECT_DOUBLE_EQ(stats.cpu(), 15.0);
}

TEST_F(SystemStatsTest, TimerSamplesEveryIntervalUntilStopped)
{
    probe.setNetwork(std::pair{0ull, 0ull});
    stats.start(2.0);
    EXPECT_TRUE(stats.isSampling());
    scheduler.advance(0.5); // the follow-up sample
    probe.setNetwork(std::pair{4000000ull, 0ull});
    scheduler.advance(1.5); // the timer at 2.0 sees 4 MB in 1.5 s
    EXPECT_NEAR(stats.netDown(), 4.0 / 1.5, 1e-9);
    stats.stop();
    EXPECT_FALSE(stats.isSampling());
    probe.setNetwork(std::pair{8000000ull, 0ull});
    scheduler.advance(10);
    EXPECT_NEAR(stats.netDown(), 4.0 / 1.5, 1e-9);
}

TEST_F(SystemStatsTest, AfterStopTheNextStartAveragesOverTheWholePause)
{
    probe.setNetwork(std::pair{0ull, 0ull});
    stats.start();
    scheduler.advance(0.5);
    stats.stop();
    scheduler.advance(60);
    probe.setNetwork(std::pair{60000000ull, 6000000ull});
    stats.start();
    EXPECT_DOUBLE_EQ(stats.netDown(), 1.0);
    EXPECT_DOUBLE_EQ(stats.netUp(), 0.1);
}

TEST_F(SystemStatsTest, SameTimeStampWritesNoRatesButKeepsTheSample)
{
    probe.setNetwork(std::pair{1000000ull, 0ull});
    stats.refresh();
    probe.setNetwork(std::pair{9000000ull, 0ull});
    stats.refresh(); // same virtual instant: no rate
    EXPECT_EQ(stats.netDown(), 0);
    scheduler.advance(1);
    probe.setNetwork(std::pair{10000000ull, 0ull});
    stats.refresh(); // measured from the second sample, not the first
    EXPECT_DOUBLE_EQ(stats.netDown(), 1.0);
}

TEST_F(SystemStatsTest, ADroppedCounterTotalGivesZeroForOneSample)
{
    probe.setNetwork(std::pair{5000000ull, 5000000ull});
    stats.refresh();
    scheduler.advance(1);
    probe.setNetwork(std::pair{1000000ull, 7000000ull}); // an interface went away: rx dropped
    stats.refresh();
    EXPECT_EQ(stats.netDown(), 0);
    EXPECT_DOUBLE_EQ(stats.netUp(), 2.0);
    scheduler.advance(1);
    probe.setNetwork(std::pair{1500000ull, 7000000ull});
    stats.refresh();
    EXPECT_DOUBLE_EQ(stats.netDown(), 0.5);
}

TEST_F(SystemStatsTest, AFailedInterfaceListCountsAsZeroTotals)
{
    probe.setNetwork(std::pair{3000000ull, 0ull});
    stats.refresh();
    scheduler.advance(1);
    probe.setNetwork(std::nullopt);
    stats.refresh();
    EXPECT_EQ(stats.netDown(), 0);
    scheduler.advance(1);
    probe.setNetwork(std::pair{2000000ull, 0ull}); // from zero again, loopback never counted
    stats.refresh();
    EXPECT_DOUBLE_EQ(stats.netDown(), 2.0);
}

TEST_F(SystemStatsTest, AWrapped32BitTickCounterCountsModulo2To32)
{
    probe.setCpu(ticks32(0xffffffffu - 49, 0, 0xffffffffu - 99, 0));
    stats.refresh();
    probe.setCpu(ticks32(100, 0, 200, 0)); // user moved 150, idle 300
    stats.refresh();
    EXPECT_NEAR(stats.cpu(), 150.0 / 450.0 * 100.0, 1e-9);
}

TEST_F(SystemStatsTest, A64BitCounterThatGoesBackCountsAsNoTicksAndNeverCrashes)
{
    probe.setCpu(CpuTicks{1000, 500, 8000, 0, CpuTicks::Width::Bits64});
    stats.refresh();
    probe.setCpu(CpuTicks{1100, 400, 8300, 0, CpuTicks::Width::Bits64}); // system was reset
    stats.refresh();
    EXPECT_NEAR(stats.cpu(), 100.0 / 400.0 * 100.0, 1e-9);
}

TEST_F(SystemStatsTest, ProcessorFailureKeepsTheLastLoadAndThePreviousSample)
{
    probe.setCpu(ticks32(0, 0, 0, 0));
    stats.refresh();
    probe.setCpu(ticks32(50, 0, 50, 0));
    stats.refresh();
    ASSERT_DOUBLE_EQ(stats.cpu(), 50.0);
    probe.setCpu(std::nullopt);
    stats.refresh();
    EXPECT_DOUBLE_EQ(stats.cpu(), 50.0);
    probe.setCpu(ticks32(50, 0, 150, 0)); // compared with the last good sample
    stats.refresh();
    EXPECT_DOUBLE_EQ(stats.cpu(), 0.0);
}

TEST_F(SystemStatsTest, NoTicksBetweenSamplesIsNoLoad)
{
    probe.setCpu(ticks32(7, 7, 7, 7));
    stats.refresh();
    stats.refresh();
    EXPECT_EQ(stats.cpu(), 0);
}

TEST_F(SystemStatsTest, MemoryIsUsedAgainstTotalAndZeroWhenUnknown)
{
    probe.setMemory(MemoryUsage{4000000000, 16000000000});
    stats.refresh();
    EXPECT_DOUBLE_EQ(stats.ram(), 25.0);
    probe.setMemory(MemoryUsage{4000000000, 0});
    stats.refresh();
    EXPECT_EQ(stats.ram(), 0);
    probe.setMemory(MemoryUsage{4000000000, 16000000000});
    stats.refresh();
    probe.setMemory(std::nullopt);
    stats.refresh();
    EXPECT_EQ(stats.ram(), 0);
}

TEST_F(SystemStatsTest, BatteryIsTheFirstSourceWithBothCapacitiesAndAbsentWithout)
{
    stats.refresh();
    EXPECT_FALSE(stats.battery());
    probe.setBattery(PowerSource{30, 120});
    stats.refresh();
    EXPECT_DOUBLE_EQ(*stats.battery(), 25.0);
    probe.setBattery(PowerSource{30, 0});
    stats.refresh();
    EXPECT_FALSE(stats.battery());
    probe.setBattery(PowerSource{std::nullopt, 100});
    stats.refresh();
    EXPECT_FALSE(stats.battery());
}

TEST_F(SystemStatsTest, DiskUsesDecimalGigabytesAndKeepsItsFiguresOnBadReadings)
{
    probe.setVolume(VolumeCapacity{1000000000000, 250000000000});
    stats.refresh();
    EXPECT_DOUBLE_EQ(stats.disk(), 75.0);
    EXPECT_DOUBLE_EQ(stats.diskUsedGB(), 750.0);
    EXPECT_DOUBLE_EQ(stats.diskTotalGB(), 1000.0);
    for (const auto& bad :
         {std::optional<VolumeCapacity>(), std::optional(VolumeCapacity{0, 0}),
          std::optional(VolumeCapacity{-5, 1}), std::optional(VolumeCapacity{100, std::nullopt})}) {
        probe.setVolume(bad);
        stats.refresh();
        EXPECT_DOUBLE_EQ(stats.disk(), 75.0);
        EXPECT_DOUBLE_EQ(stats.diskTotalGB(), 1000.0);
    }
}

TEST_F(SystemStatsTest, ObserversHearBeforeAndAfterEachChange)
{
    probe.setMemory(MemoryUsage{1, 2});
    QList<double> seenBefore;
    QList<double> seenAfter;
    QObject context;
    QObject::connect(&stats, &SystemStats::willChange, &context,
                     [&] { seenBefore.append(stats.ram()); });
    QObject::connect(&stats, &SystemStats::changed, &context,
                     [&] { seenAfter.append(stats.ram()); });
    stats.refresh();
    ASSERT_FALSE(seenBefore.isEmpty());
    EXPECT_TRUE(seenBefore.contains(0.0));
    EXPECT_TRUE(seenAfter.contains(50.0));
}

TEST(SystemStatsLifetime, PendingSamplesOfADestroyedSamplerDoNothing)
{
    VirtualScheduler scheduler;
    SimSystemProbe probe{scheduler};
    auto stats = std::make_unique<SystemStats>(scheduler, probe);
    stats->start();
    stats.reset();
    scheduler.advance(10); // the half-second follow-up and the timer find nothing to sample
    SUCCEED();
}

TEST(SystemStatsLifetime, ANonsenseIntervalFallsBackToTwoSeconds)
{
    VirtualScheduler scheduler;
    SimSystemProbe probe{scheduler};
    SystemStats stats(scheduler, probe);
    probe.setNetwork(std::pair{0ull, 0ull});
    stats.start(0);
    scheduler.advance(0.5);
    probe.setNetwork(std::pair{3000000ull, 0ull});
    scheduler.advance(1.49);
    EXPECT_EQ(stats.netDown(), 0);
    scheduler.advance(0.01);
    EXPECT_DOUBLE_EQ(stats.netDown(), 2.0);
}
