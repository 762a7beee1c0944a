// What the statistics tiles show: the Stat records and the rate texts.
#include "core/sysinfo/Stat.h"
#include "foundation/DefaultsStore.h"
#include "foundation/NotificationCenter.h"
#include "foundation/ResourceBundle.h"
#include "foundation/VirtualScheduler.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/sysinfo/RateText.h"
#include "core/sysinfo/SystemStats.h"
#include "platform/sim/SimSystemProbe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace ravlin;

TEST(RateText, BelowOneMegabyteIsWholeKilobytesFromOneOnTenthsOfMegabytes)
{
    EXPECT_EQ(rateText(0.9996), QStringLiteral("1000 KB/s"));
    EXPECT_EQ(rateText(1.0), QStringLiteral("1.0 MB/s"));
    EXPECT_EQ(rateText(0), QStringLiteral("0 KB/s"));
    EXPECT_EQ(rateText(0.5), QStringLiteral("500 KB/s"));
    EXPECT_EQ(rateText(12.345), QStringLiteral("12.3 MB/s"));
}

TEST(RateText, ImpossibleRatesReadAsNoTraffic)
{
    EXPECT_EQ(rateText(-3), QStringLiteral("0 KB/s"));
    EXPECT_EQ(rateText(std::nan("")), QStringLiteral("0 KB/s"));
    EXPECT_EQ(rateText(std::numeric_limits<double>::infinity()), QStringLiteral("0 KB/s"));
}

TEST(RateText, WideAndCompactFormsDifferOnlyInTheGapBeforeTheUpwardArrow)
{
    EXPECT_EQ(networkRatesText(1.0, 0.5, RateLayout::Wide), QStringLiteral("↓1.0 MB/s  ↑500 KB/s"));
    EXPECT_EQ(networkRatesText(1.0, 0.5, RateLayout::Compact),
              QStringLiteral("↓1.0 MB/s ↑500 KB/s"));
}

namespace {

class StatListTest : public ::testing::Test {
protected:
    StatListTest()
        : resources(QStringLiteral(RAVLIN_SOURCE_RESOURCES), {QStringLiteral("en")}),
          preferences(defaults, center, nullptr), language(resources, defaults, preferences)
    {
        language.apply(QStringLiteral("de"), false);
    }

    InMemoryDefaultsStore defaults;
    NotificationCenter center;
    Resources resources;
    Preferences preferences;
    LanguageManager language;
    VirtualScheduler scheduler;
    SimSystemProbe probe{scheduler};
    SystemStats stats{scheduler, probe};
};

QStringList keys(const QList<Stat>& list)
{
    QStringList result;
    for (const Stat& s : list)
        result.append(s.key);
    return result;
}

} // namespace

TEST_F(StatListTest, WithoutBatteryThreeFiguresAndTheNetwork)
{
    stats.refresh();
    EXPECT_EQ(keys(makeStats(stats, language)),
              (QStringList{QStringLiteral("sys.cpu"), QStringLiteral("sys.ram"),
                           QStringLiteral("sys.disk"), QStringLiteral("sys.net")}));
}

TEST_F(StatListTest, TheBatteryStandsBeforeTheNetworkWithItsValueLabelAndAccent)
{
    probe.setBattery(PowerSource{80, 100});
    probe.setMemory(MemoryUsage{1, 4});
    stats.refresh();
    const QList<Stat> list = makeStats(stats, language);
    ASSERT_EQ(list.size(), 5);
    EXPECT_EQ(list[3].key, QStringLiteral("sys.batt"));
    EXPECT_DOUBLE_EQ(list[3].value, 80.0);
    EXPECT_EQ(list[3].label, language.L(QStringLiteral("sysitem.battery")));
    EXPECT_EQ(list[1].label, QStringLiteral("Speicher"));
    EXPECT_DOUBLE_EQ(list[1].value, 25.0);
    EXPECT_EQ(list[1].accent, QColor::fromRgbF(0.25f, 0.78f, 0.87f));
    EXPECT_EQ(list[4].value, 0);
    EXPECT_NE(list[0].accent, list[2].accent);
}
