// The Linux readers against sample /proc and /sys trees, odd and truncated ones included.
#include "platform/linux/ProcReaders.h"
#include "platform/linux/LinuxSystemProbe.h"

#include <gtest/gtest.h>

#include <ifaddrs.h>
#include <linux/if_link.h>
#include <netpacket/packet.h>
#include <sys/statvfs.h>
#include <sys/sysinfo.h>

#include <cstring>

using namespace ravlin;

namespace {

QString data(const char* path)
{
    return QStringLiteral(RAVLIN_TEST_DATA "/linux/") + QLatin1String(path);
}

std::optional<CpuTicks> statOf(const char* dir)
{
    return LinuxSystemProbe({data(dir), data("sys-desktop"), QStringLiteral("/")}).cpuTicks();
}

std::optional<MemoryUsage> meminfoOf(const char* dir)
{
    return LinuxSystemProbe({data(dir), data("sys-desktop"), QStringLiteral("/")}).memory();
}

std::optional<QList<PowerSource>> batteriesOf(const char* sysDir)
{
    return LinuxSystemProbe({data("proc/good"), data(sysDir), QStringLiteral("/")}).powerSources();
}

} // namespace

TEST(ProcStat, AggregateLineFoldsIrqSoftirqStealIntoSystemAndIowaitIntoIdle)
{
    const auto ticks = statOf("proc/good");
    ASSERT_TRUE(ticks);
    EXPECT_EQ(ticks->user, 10747u);
    EXPECT_EQ(ticks->nice, 20u);
    EXPECT_EQ(ticks->system, 4070u + 0 + 53 + 33);
    EXPECT_EQ(ticks->idle, 114448u + 384);
    EXPECT_EQ(ticks->width, CpuTicks::Width::Bits64);
}

TEST(ProcStat, OlderKernelsWithFewerColumnsCountTheMissingOnesAsZero)
{
    const auto ticks = statOf("proc/old-kernel");
    ASSERT_TRUE(ticks);
    EXPECT_EQ(ticks->system, 50u);
    EXPECT_EQ(ticks->idle, 840u);
}

TEST(ProcStat, TruncatedGarbledEmptyOrMisorderedFilesGiveNoReading)
{
    EXPECT_FALSE(statOf("proc/truncated"));
    EXPECT_FALSE(statOf("proc/garbage"));
    EXPECT_FALSE(statOf("proc/empty"));
    EXPECT_FALSE(statOf("proc/no-aggregate"));
    EXPECT_FALSE(statOf("proc/does-not-exist"));
}

TEST(Meminfo, UsedIsTotalLessAvailableInBytes)
{
    const auto memory = meminfoOf("proc/good");
    ASSERT_TRUE(memory);
    EXPECT_EQ(memory->totalBytes, 16384000ull * 1024);
    EXPECT_EQ(memory->usedBytes, (16384000ull - 12288000ull) * 1024);
}

TEST(Meminfo, MissingOrUnreadableFiguresGiveNoReading)
{
    EXPECT_FALSE(meminfoOf("proc/no-available"));
    EXPECT_FALSE(meminfoOf("proc/truncated"));
    EXPECT_FALSE(meminfoOf("proc/garbage"));
    EXPECT_FALSE(meminfoOf("proc/empty"));
}

TEST(Meminfo, MoreAvailableThanTotalMeansNothingUsedAndOrderDoesNotMatter)
{
    const auto memory = meminfoOf("proc/odd-meminfo");
    ASSERT_TRUE(memory);
    EXPECT_EQ(memory->usedBytes, 0u);
    EXPECT_EQ(memory->totalBytes, 2000000ull * 1024);
}

TEST(PowerSupplies, OnlyTheMachinesPresentBatteriesCountPeripheralsAndMainsDoNot)
{
    const auto laptop = batteriesOf("sys-laptop");
    ASSERT_TRUE(laptop);
    ASSERT_EQ(laptop->size(), 1);
    EXPECT_EQ(laptop->at(0).currentCapacity, 57); // capacity wins over energy
    EXPECT_EQ(laptop->at(0).maxCapacity, 100);

    const auto energy = batteriesOf("sys-energy"); // BAT0 is not present
    ASSERT_TRUE(energy);
    ASSERT_EQ(energy->size(), 1);
    EXPECT_EQ(energy->at(0).currentCapacity, 42000000);
    EXPECT_EQ(energy->at(0).maxCapacity, 56000000);
}

TEST(PowerSupplies, ChargeStandsInForAnUnreadableCapacity)
{
    const auto charge = batteriesOf("sys-charge");
    ASSERT_TRUE(charge);
    ASSERT_EQ(charge->size(), 1);
    EXPECT_EQ(charge->at(0).currentCapacity, 1500000);
    EXPECT_EQ(charge->at(0).maxCapacity, 3000000);
}

TEST(PowerSupplies, ABatteryWithoutUsableFiguresIsListedEmptyAndTheNextOneKept)
{
    const auto odd = batteriesOf("sys-odd");
    ASSERT_TRUE(odd);
    ASSERT_EQ(odd->size(), 2);
    EXPECT_FALSE(odd->at(0).currentCapacity);
    EXPECT_FALSE(odd->at(0).maxCapacity);
    EXPECT_EQ(odd->at(1).currentCapacity, 8);
}

TEST(PowerSupplies, ADesktopHasAnEmptyListAndAMissingFolderNoList)
{
    const auto desktop = batteriesOf("sys-desktop");
    ASSERT_TRUE(desktop);
    EXPECT_TRUE(desktop->isEmpty());
    EXPECT_FALSE(batteriesOf("sys-nowhere"));
}

TEST(NetworkInterfaces, OnlyInterfacesWithADeviceArePhysical)
{
    const QString sys = data("sys-desktop");
    EXPECT_TRUE(ProcReaders::isPhysicalInterface(sys, QStringLiteral("eth0")));
    EXPECT_TRUE(ProcReaders::isPhysicalInterface(sys, QStringLiteral("wlp2s0")));
    EXPECT_FALSE(ProcReaders::isPhysicalInterface(sys, QStringLiteral("lo")));
    EXPECT_FALSE(ProcReaders::isPhysicalInterface(sys, QStringLiteral("docker0")));
    EXPECT_FALSE(ProcReaders::isPhysicalInterface(sys, QStringLiteral("../net/eth0")));
    EXPECT_FALSE(ProcReaders::isPhysicalInterface(sys, QString()));
}

TEST(NetworkInterfaces, PacketEntriesWithStatisticsAreListedOthersSkipped)
{
    sockaddr_ll packet{};
    packet.sll_family = AF_PACKET;
    sockaddr inet{};
    inet.sa_family = AF_INET;
    rtnl_link_stats ethStats{};
    ethStats.rx_bytes = 4000000000u;
    ethStats.tx_bytes = 123;
    rtnl_link_stats loStats{};
    loStats.rx_bytes = 77;

    char eth[] = "eth0", lo[] = "lo", noStats[] = "tun0";
    ifaddrs entries[5]{};
    entries[0] = {&entries[1], eth,     0,        reinterpret_cast<sockaddr*>(&packet),
                  nullptr,     nullptr, &ethStats};
    entries[1] = {&entries[2], eth,     0,      &inet,
                  nullptr,     nullptr, nullptr}; // an address, not the link
    entries[2] = {&entries[3], lo,      0,       reinterpret_cast<sockaddr*>(&packet),
                  nullptr,     nullptr, &loStats};
    entries[3] = {&entries[4], noStats, 0,      reinterpret_cast<sockaddr*>(&packet),
                  nullptr,     nullptr, nullptr};
    entries[4] = {nullptr, lo, 0, nullptr, nullptr, nullptr, &loStats}; // no address at all

    const auto list =
        ProcReaders::packetInterfaces(entries, [](const QString& name) { return name == u"eth0"; });
    ASSERT_EQ(list.size(), 2);
    EXPECT_EQ(list[0].name, QStringLiteral("eth0"));
    EXPECT_EQ(list[0].rxBytes, 4000000000u);
    EXPECT_EQ(list[0].txBytes, 123u);
    EXPECT_TRUE(list[0].counted);
    EXPECT_EQ(list[1].name, QStringLiteral("lo"));
    EXPECT_FALSE(list[1].counted);
}

TEST(VolumeCapacity, BlocksTimesFragmentSizeAndUnprivilegedAvailability)
{
    struct statvfs fs {};
    fs.f_bsize = 4096;
    fs.f_frsize = 1024;
    fs.f_blocks = 1000;
    fs.f_bfree = 600;
    fs.f_bavail = 500;
    const auto volume = ProcReaders::volumeCapacity(fs);
    ASSERT_TRUE(volume);
    EXPECT_EQ(volume->totalBytes, 1024000);
    EXPECT_EQ(volume->availableBytes, 512000);

    fs.f_frsize = 0; // left unset by the file system: the block size counts
    EXPECT_EQ(ProcReaders::volumeCapacity(fs)->totalBytes, 4096000);

    fs.f_blocks = fsblkcnt_t(-1);
    EXPECT_FALSE(ProcReaders::volumeCapacity(fs));
}

// The readings of this machine agree with what the kernel says through another door.
TEST(LinuxSystemProbeOnThisMachine, MemoryTotalMatchesSysinfoAndTheRootVolumeIsReadable)
{
    LinuxSystemProbe probe;
    struct sysinfo info {};
    ASSERT_EQ(::sysinfo(&info), 0);
    const auto memory = probe.memory();
    ASSERT_TRUE(memory);
    EXPECT_EQ(memory->totalBytes, std::uint64_t(info.totalram) * info.mem_unit);
    EXPECT_LE(memory->usedBytes, memory->totalBytes);

    const auto volume = probe.rootVolume();
    ASSERT_TRUE(volume);
    EXPECT_GT(*volume->totalBytes, 0);
    EXPECT_LE(*volume->availableBytes, *volume->totalBytes);

    const auto ticks = probe.cpuTicks();
    ASSERT_TRUE(ticks);
    EXPECT_GT(ticks->user + ticks->system + ticks->idle + ticks->nice, 0u);
    EXPECT_TRUE(probe.interfaces().has_value());
    const double t0 = probe.absoluteTime();
    EXPECT_GE(probe.absoluteTime(), t0);
}
