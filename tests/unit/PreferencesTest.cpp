#include "TestSupport.h"

#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/NotificationCenter.h"
#include "platform/sim/SimLoginItems.h"

#include <gtest/gtest.h>

#include <limits>

using namespace ravlin;

namespace {

struct PreferencesFixture : ::testing::Test {
    InMemoryDefaultsStore defaults;
    NotificationCenter center;
    SimLoginItems login;
    Preferences prefs{defaults, center, &login};
    int posted() const { return center.postedCount(ravlinPrefsChanged); }
    void SetUp() override { prefs.registerDefaults(); }
};

} // namespace

TEST_F(PreferencesFixture, AFreshUserReadsTheRegisteredDefaults)
{
    EXPECT_TRUE(prefs.autoRehide());
    EXPECT_EQ(prefs.rehideInterval(), 15);
    EXPECT_EQ(prefs.tileStyle(), TileStyle::Dashboard);
    EXPECT_TRUE(prefs.showSystemTiles());
    EXPECT_TRUE(prefs.showWeather());
    EXPECT_FALSE(prefs.launchAtLogin() || prefs.enableAlwaysHidden() || prefs.revealOnHover() ||
                 prefs.hideSpotlight());
    EXPECT_EQ(prefs.appLanguage(), QString());
    EXPECT_TRUE(prefs.hiddenItemKeys().isEmpty() && prefs.barPinnedKeys().isEmpty() &&
                prefs.hiddenBundleIDs().isEmpty());
    EXPECT_TRUE(prefs.hiddenSystemItemIDs().empty());
    EXPECT_TRUE(defaults.persistentDomain().isEmpty());
}

TEST_F(PreferencesFixture, OddStoredValuesReadSanely)
{
    for (auto [stored, expected] : {std::pair{0, 1}, {-5, 1}, {120, 120}}) {
        defaults.set(PrefKey::rehideInterval, stored);
        EXPECT_EQ(prefs.rehideInterval(), expected);
    }
    for (const QString& raw : {QStringLiteral("Grid"), QStringLiteral("rings")}) {
        defaults.set(PrefKey::tileStyle, raw);
        EXPECT_EQ(prefs.tileStyle(), TileStyle::Dashboard);
    }
    defaults.set(PrefKey::tileStyle, QStringLiteral("strip"));
    EXPECT_EQ(prefs.tileStyle(), TileStyle::Strip);
    defaults.set(PrefKey::hiddenSystemItems,
                 PlistArray{7, QStringLiteral("12"), QStringLiteral("x"), 2.5});
    EXPECT_EQ(prefs.hiddenSystemItemIDs(), (std::set<std::int64_t>{7, 12}));
    defaults.set(PrefKey::hiddenItems, PlistArray{QStringLiteral("a"), 3}); // not a list of texts
    EXPECT_TRUE(prefs.hiddenItemKeys().isEmpty());
    defaults.set(PrefKey::autoRehide, QStringLiteral("NO"));
    EXPECT_FALSE(prefs.autoRehide());
}

TEST_F(PreferencesFixture, AnIntervalOutsideASaneRangeIsClampedWithOneLogLinePerStoredValue)
{
    test::LogCapture log;
    defaults.set(PrefKey::rehideInterval, std::numeric_limits<std::int64_t>::max());
    EXPECT_EQ(prefs.rehideInterval(), 86400); // a day
    EXPECT_EQ(prefs.rehideInterval(), 86400);
    ASSERT_EQ(log.lines().size(), 1);
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("rehideInterval")));
    EXPECT_TRUE(log.lines()[0].contains(QStringLiteral("9223372036854775807")));
    defaults.set(PrefKey::rehideInterval, -5);
    EXPECT_EQ(prefs.rehideInterval(), 1);
    EXPECT_EQ(log.lines().size(), 2);
    defaults.set(PrefKey::rehideInterval, 86400);
    EXPECT_EQ(prefs.rehideInterval(), 86400);
    EXPECT_EQ(log.lines().size(), 2);
}

TEST_F(PreferencesFixture, EverySetterWritesThroughThenAnnouncesOnceWillChangeFirst)
{
    QStringList order;
    QObject::connect(&prefs, &Preferences::willChange, &prefs,
                     [&] { order << QStringLiteral("will"); });
    auto token = center.addObserver(ravlinPrefsChanged, [&] {
        order << QStringLiteral("posted:") +
                     QString::number(defaults.integerForKey(PrefKey::rehideInterval));
    });
    prefs.setRehideInterval(0); // stored as given
    EXPECT_EQ(order, (QStringList{QStringLiteral("will"), QStringLiteral("posted:0")}));
    EXPECT_EQ(prefs.rehideInterval(), 1);
    prefs.setTileStyle(TileStyle::Grid);
    EXPECT_EQ(*defaults.persistentValue(PrefKey::tileStyle).asString(), QStringLiteral("grid"));
    prefs.setSystemItem(6, true);
    prefs.setSystemItem(1, true);
    prefs.setSystemItem(6, false);
    EXPECT_EQ(prefs.hiddenSystemItemIDs(), (std::set<std::int64_t>{1}));
    EXPECT_EQ(posted(), 5);
}

TEST_F(PreferencesFixture, PlacementFollowsTheTwoSetsWithPinningWinning)
{
    defaults.set(PrefKey::barPinnedItems, PlistValue::fromStringList({QStringLiteral("k")}));
    defaults.set(PrefKey::hiddenItems,
                 PlistValue::fromStringList({QStringLiteral("k"), QStringLiteral("h")}));
    EXPECT_EQ(prefs.placement(QStringLiteral("k")), ItemPlacement::Bar);
    EXPECT_EQ(prefs.placement(QStringLiteral("h")), ItemPlacement::Off);
    EXPECT_EQ(prefs.placement(QStringLiteral("new")), ItemPlacement::Panel);

    prefs.setPlacement(QStringLiteral("k"), ItemPlacement::Off);
    EXPECT_FALSE(prefs.isPinned(QStringLiteral("k")));
    EXPECT_TRUE(prefs.isItemHidden(QStringLiteral("k")));
    prefs.setPlacement(QStringLiteral("h"), ItemPlacement::Bar);
    EXPECT_EQ(prefs.placement(QStringLiteral("h")), ItemPlacement::Bar);
    EXPECT_FALSE(prefs.isItemHidden(QStringLiteral("h")));
}

TEST_F(PreferencesFixture, SeveralPlacementsAreWrittenAndAnnouncedOnce)
{
    prefs.setPlacement(QStringLiteral("a"), ItemPlacement::Off);
    prefs.setPlacements({{QStringLiteral("a"), ItemPlacement::Bar},
                         {QStringLiteral("b"), ItemPlacement::Bar},
                         {QStringLiteral("c"), ItemPlacement::Off}});
    EXPECT_EQ(posted(), 2);
    EXPECT_EQ(prefs.barPinnedKeys(), (QSet<QString>{QStringLiteral("a"), QStringLiteral("b")}));
    EXPECT_EQ(prefs.hiddenItemKeys(), (QSet<QString>{QStringLiteral("c")}));
    prefs.setPlacements({});
    EXPECT_EQ(posted(), 2);
}

TEST_F(PreferencesFixture, PanelPlacementOfAnUnknownKeyStillWritesBothListsAndAnnounces)
{
    prefs.setPlacement(QStringLiteral("nowhere"), ItemPlacement::Panel);
    EXPECT_EQ(posted(), 1);
    EXPECT_TRUE(defaults.persistentValue(PrefKey::barPinnedItems).isArray());
    EXPECT_TRUE(defaults.persistentValue(PrefKey::hiddenItems).isArray());
}

TEST_F(PreferencesFixture, LaunchAtLoginStoresThenRegistersThenAnnounces)
{
    QStringList order;
    auto token = center.addObserver(ravlinPrefsChanged, [&] {
        order << QStringLiteral("posted, registered=%1").arg(login.registerCalls());
    });
    prefs.setLaunchAtLogin(true);
    EXPECT_EQ(order, QStringList{QStringLiteral("posted, registered=1")});
    EXPECT_EQ(login.status(), LoginItemStatus::Enabled);
    prefs.setLaunchAtLogin(true); // already enabled: no second registration
    EXPECT_EQ(login.registerCalls(), 1);
    EXPECT_EQ(posted(), 2);
}

TEST_F(PreferencesFixture, AFailedRegistrationKeepsTheChoiceAndLogsExactlyOneLine)
{
    login.setFailure(QStringLiteral("The operation couldn't be completed."));
    test::LogCapture log;
    prefs.setLaunchAtLogin(true);
    EXPECT_TRUE(prefs.launchAtLogin());
    EXPECT_EQ(log.count(QStringLiteral("Ravlin: LaunchAtLogin toggle failed: ")), 1);
    EXPECT_EQ(log.lines().size(), 1);
    EXPECT_EQ(log.lines().value(0),
              QStringLiteral(
                  "Ravlin: LaunchAtLogin toggle failed: The operation couldn't be completed."));
}

TEST_F(PreferencesFixture, TurningOffLeavesARegistrationThatAwaitsApproval)
{
    login.setStatus(LoginItemStatus::RequiresApproval);
    prefs.setLaunchAtLogin(false);
    EXPECT_EQ(login.unregisterCalls(), 0);
    login.setStatus(LoginItemStatus::Enabled);
    prefs.setLaunchAtLogin(false);
    EXPECT_EQ(login.unregisterCalls(), 1);
    EXPECT_EQ(login.status(), LoginItemStatus::NotRegistered);
}
