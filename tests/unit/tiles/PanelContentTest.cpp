// What the panel shows: its sections, the texts of each tile and the accents.
#include "support/SimWorld.h"

#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/PanelContent.h"
#include "core/tiles/TileAccent.h"
#include "core/tiles/TileModel.h"
#include "platform/sim/SimGeocoder.h"
#include "platform/sim/SimHttpClient.h"
#include "platform/sim/SimLocationService.h"
#include "platform/sim/SimSystemProbe.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace Qt::StringLiterals;
using namespace ravlin::test;

namespace {

BarItem item(const QString& key, const QString& label)
{
    BarItem i;
    i.key = key;
    i.label = label;
    return i;
}

QStringList keysOf(const PanelSection& section)
{
    QStringList keys;
    for (const PanelTile& t : section.tiles)
        keys.append(t.key);
    return keys;
}

class PanelContentTest : public ::testing::Test {
protected:
    PanelContentTest()
    {
        probe.setCpu(CpuTicks{100, 100, 800, 0});
        probe.setMemory(MemoryUsage{4, 16});
        probe.setVolume(VolumeCapacity{1000, 250});
        probe.setNetwork(std::pair<std::uint64_t, std::uint64_t>{0, 0});
    }

    std::vector<PanelSection> sections(PanelRequest request = {})
    {
        return content.sections(request);
    }

    SimWorld world;
    SimSystemProbe probe{world.scheduler};
    SystemStats stats{world.scheduler, probe};
    SimLocationService location{world.scheduler};
    SimGeocoder geocoder{world.scheduler};
    SimHttpClient http{world.scheduler};
    WeatherService weather{world.scheduler, location, geocoder, http};
    TileModel tiles{world.defaults()};
    PanelContent content{stats, weather, tiles, world.language()};
};

} // namespace

TEST_F(PanelContentTest, SectionsRunWeatherSystemGroupsPermissions)
{
    PanelRequest request;
    request.groups = {{QStringLiteral("Apps"), {item(u"n:a"_s, u"A"_s)}},
                      {QStringLiteral("System"), {item(u"n:w"_s, u"Wi-Fi"_s)}}};
    request.hasScreenRecording = false;
    request.hasAccessibility = false;
    const auto all = sections(request);
    ASSERT_EQ(all.size(), 5u);
    EXPECT_FALSE(all[0].title);
    EXPECT_EQ(keysOf(all[0]), QStringList{u"weather"_s});
    EXPECT_FALSE(all[0].arranged);
    EXPECT_EQ(all[1].title, QStringLiteral("System"));
    EXPECT_EQ(all[2].title, QStringLiteral("Apps"));
    EXPECT_EQ(all[3].title, QStringLiteral("System"));
    EXPECT_FALSE(all[4].title);
    EXPECT_EQ(keysOf(all[4]), (QStringList{u"bar.grant"_s, u"bar.grantAX"_s}));
    EXPECT_EQ(all[4].tiles[0].symbol, u"lock.shield"_s);
    EXPECT_EQ(all[4].tiles[1].symbol, u"accessibility"_s);
    EXPECT_EQ(all[4].tiles[0].label, u"Allow Screen Recording"_s);
}

TEST_F(PanelContentTest, SwitchedOffSectionsAndGrantedPermissionsLeaveNoTrace)
{
    PanelRequest request;
    request.showWeather = false;
    request.showSystemTiles = false;
    EXPECT_TRUE(sections(request).empty());
}

TEST_F(PanelContentTest, TheSystemSectionHasTheBatteryOnlyWhileThereIsOne)
{
    stats.refresh();
    const auto without = content.statisticsTiles();
    EXPECT_EQ(QStringList({without[0].key, without[1].key, without[2].key, without[3].key}),
              (QStringList{u"sys.cpu"_s, u"sys.ram"_s, u"sys.disk"_s, u"sys.net"_s}));
    EXPECT_EQ(without.size(), 4u);
    probe.setBattery(PowerSource{55, 100});
    stats.refresh();
    const auto with = content.statisticsTiles();
    ASSERT_EQ(with.size(), 5u);
    EXPECT_EQ(with[3].key, u"sys.batt"_s);
    EXPECT_EQ(with[3].symbol, u"battery.100"_s);
    EXPECT_EQ(with[3].subtitle, u"55%"_s);
    EXPECT_EQ(with[1].subtitle, u"25%"_s);
    EXPECT_EQ(with[1].symbol, u"memorychip"_s);
    EXPECT_EQ(with[4].kind, TileKind::Network);
    EXPECT_TRUE(isFullWidth(*with[4].content));
}

TEST_F(PanelContentTest, TheNetworkTileWritesItsRatesWithTwoBlanksAndTheCompactOneWithOne)
{
    stats.refresh();
    world.scheduler.advance(1);
    probe.setNetwork(std::pair<std::uint64_t, std::uint64_t>{500'000, 1'000'000});
    stats.refresh();
    const PanelTile net = content.statisticsTiles().back();
    EXPECT_EQ(net.subtitle, QStringLiteral("↓500 KB/s  ↑1.0 MB/s"));
    EXPECT_EQ(net.detail, QStringLiteral("↓500 KB/s ↑1.0 MB/s"));
}

TEST_F(PanelContentTest, PercentagesAreRoundedAndOddValuesReadAsZero)
{
    EXPECT_EQ(content.percentText(41.5), u"42%"_s);
    EXPECT_EQ(content.percentText(0.4), u"0%"_s);
    EXPECT_EQ(content.percentText(std::numeric_limits<double>::quiet_NaN()), u"0%"_s);
    EXPECT_EQ(content.percentText(1e300), u"1000000000%"_s);
}

// Section titles, the weather's words and the way numbers are written all follow the
// interface language; none of them stays in one language for all.
TEST_F(PanelContentTest, TitlesWordsAndNumbersFollowTheInterfaceLanguage)
{
    probe.setBattery(PowerSource{23, 100});
    stats.refresh();
    world.scheduler.advance(1);
    probe.setNetwork(std::pair<std::uint64_t, std::uint64_t>{1'500'000, 0});
    stats.refresh();
    location.setStatus(LocationAuthorization::AuthorizedAlways, false);
    PanelRequest request;
    request.groups = {{QStringLiteral("ignored"), {item(u"n:a"_s, u"A"_s)}}};
    struct Expected {
        const char* code;
        QString statistics, weather, range, percent, rate;
    };
    const Expected cases[] = {
        {"en", u"System"_s, u"Weather"_s, u"H: --°  L: --°"_s, u"23%"_s, u"↓1.5 MB/s"_s},
        {"de", u"System"_s, u"Wetter"_s, u"H: --°  T: --°"_s, u"23\u00a0%"_s, u"↓1,5 MB/s"_s},
        {"fr", u"Système"_s, u"Météo"_s, u"Max. : --°  Min. : --°"_s, u"23\u202f%"_s,
         u"↓1,5 MB/s"_s},
        {"tr", u"Sistem"_s, u"Hava Durumu"_s, u"Y: --°  D: --°"_s, u"%23"_s, u"↓1,5 MB/s"_s},
        {"he", u"מערכת"_s, u"מזג אוויר"_s, u"מקס׳: --°  מינ׳: --°"_s, u"23%"_s, u"↓1.5 MB/s"_s},
        {"ja", u"システム"_s, u"天気"_s, u"最高: --°  最低: --°"_s, u"23%"_s, u"↓1.5 MB/s"_s},
        {"ar", u"النظام"_s, u"الطقس"_s, u"العظمى: --°  الصغرى: --°"_s, u"23%"_s, u"↓1.5 MB/s"_s},
    };
    for (const Expected& e : cases) {
        SCOPED_TRACE(e.code);
        world.language().apply(QString::fromLatin1(e.code));
        const std::vector<PanelSection> all = sections(request);
        ASSERT_GE(all.size(), 2u);
        EXPECT_EQ(all[1].title, e.statistics);
        EXPECT_EQ(all[0].tiles[0].label, e.weather);
        EXPECT_EQ(all[0].tiles[0].detail, e.range);
        EXPECT_EQ(all[1].tiles[3].subtitle, e.percent);
        EXPECT_TRUE(all[1].tiles[4].subtitle.startsWith(e.rate))
            << all[1].tiles[4].subtitle.toStdString();
    }
}

TEST_F(PanelContentTest, TheWeatherHeaderNamesThePlaceOrSaysWeather)
{
    location.setStatus(LocationAuthorization::AuthorizedAlways, false);
    PanelTile tile = content.weatherTile();
    EXPECT_EQ(tile.label, u"Weather"_s);
    EXPECT_EQ(tile.subtitle, QStringLiteral("--°"));
    EXPECT_EQ(tile.detail, QStringLiteral("H: --°  L: --°"));
    EXPECT_EQ(tile.symbol, u"cloud.fill"_s);
    location.setStatus(LocationAuthorization::AuthorizedAlways, false);
    location.setPosition(Coordinate{52.5, 13.4});
    geocoder.setCity(QStringLiteral("Berlin"));
    http.setAnswer(R"({"current":{"temperature_2m":-0.4,"weather_code":2},
        "daily":{"temperature_2m_max":[3.5],"temperature_2m_min":[-4.6]}})");
    weather.refreshIfStale();
    world.scheduler.runDue();
    tile = content.weatherTile();
    EXPECT_EQ(tile.label, u"Berlin"_s);
    EXPECT_EQ(tile.subtitle, QStringLiteral("0°"));
    EXPECT_EQ(tile.detail, QStringLiteral("H: 4°  L: -5°"));
    EXPECT_EQ(tile.symbol, u"cloud.sun.fill"_s);
}

// Without location access there is nothing to show but a request: one line that asks for
// access, without placeholders, and a search never finds it.
TEST_F(PanelContentTest, WithoutLocationAccessTheHeaderAsksForItAndSearchPassesItBy)
{
    for (LocationAuthorization status :
         {LocationAuthorization::NotDetermined, LocationAuthorization::Denied,
          LocationAuthorization::Restricted, LocationAuthorization::AuthorizedWhenInUse}) {
        location.setStatus(status, false);
        const PanelTile tile = content.weatherTile();
        EXPECT_TRUE(tile.asksForAccess);
        EXPECT_EQ(tile.label, world.language().L(QStringLiteral("weather.allowLocation")));
        EXPECT_TRUE(tile.subtitle.isEmpty());
        EXPECT_TRUE(tile.detail.isEmpty());
        EXPECT_TRUE(tile.note.isEmpty());
        EXPECT_TRUE(PanelContent::searchTexts(tile).isEmpty());
    }
    PanelRequest request;
    request.query = QStringLiteral("location");
    EXPECT_TRUE(sections(request).empty());
    location.setStatus(LocationAuthorization::AuthorizedAlways, false);
    EXPECT_FALSE(content.weatherTile().asksForAccess);
}

TEST_F(PanelContentTest, TheWeatherIsFoundByItsPlaceNotByItsDescription)
{
    location.setStatus(LocationAuthorization::AuthorizedAlways, false);
    location.setPosition(Coordinate{52.5, 13.4});
    geocoder.setCity(QStringLiteral("Berlin"));
    http.setAnswer(R"({"current":{"temperature_2m":20,"weather_code":2},
        "daily":{"temperature_2m_max":[22],"temperature_2m_min":[12]}})");
    weather.refreshIfStale();
    world.scheduler.runDue();
    ASSERT_FALSE(content.weatherTile().note.isEmpty());
    PanelRequest request;
    request.query = content.weatherTile().note.left(4);
    for (const PanelSection& s : sections(request))
        for (const PanelTile& t : s.tiles)
            EXPECT_NE(t.kind, TileKind::Weather);
    request.query = QStringLiteral("berl");
    ASSERT_FALSE(sections(request).empty());
    EXPECT_EQ(sections(request)[0].tiles[0].key, u"weather"_s);
}

TEST_F(PanelContentTest, ItemsFollowTheSavedOrderWithinTheirGroup)
{
    const BarGroup group{QStringLiteral("Apps"),
                         {item(u"n:a"_s, u"A"_s), item(u"n:b"_s, u"B"_s), item(u"n:c"_s, u"C"_s)}};
    tiles.move(QStringLiteral("n:c"), QStringLiteral("n:a"), {u"n:a"_s, u"n:b"_s, u"n:c"_s});
    EXPECT_EQ(keysOf({std::nullopt, content.itemTiles(group)}),
              (QStringList{u"n:c"_s, u"n:a"_s, u"n:b"_s}));
}

TEST(TileAccent, TheFirstMatchingRowWins)
{
    EXPECT_EQ(tileAccent(QStringLiteral("Sound")), QColor(255, 45, 85));
    EXPECT_EQ(tileAccent(QStringLiteral("Bluetooth Button")), QColor(0, 122, 255));
    EXPECT_EQ(tileAccent(QStringLiteral("AKKU")), QColor(52, 199, 89));
    EXPECT_EQ(tileAccent(QStringLiteral("Wetter")), QColor::fromRgbF(0.39f, 0.82f, 0.94f));
    EXPECT_EQ(tileAccent(QStringLiteral("Nicht stören")), QColor(88, 86, 214));
    EXPECT_EQ(tileAccent(QStringLiteral("Spotlight")), QColor(142, 142, 147));
    EXPECT_EQ(tileAccent(QStringLiteral("Photon")), QColor(255, 45, 85)); // u"ton"_s inside a word
    EXPECT_EQ(tileAccent(QString()), QColor(0, 122, 255));
}
