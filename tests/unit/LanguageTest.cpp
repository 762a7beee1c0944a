#include "TestSupport.h"

#include "foundation/DefaultsStore.h"
#include "foundation/NotificationCenter.h"
#include "foundation/ResourceBundle.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Languages.h"
#include "core/settings/PrefKey.h"
#include "core/settings/Preferences.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

struct LanguageFixture : ::testing::Test {
    InMemoryDefaultsStore defaults;
    NotificationCenter center;
    Preferences prefs{defaults, center, nullptr};
    Resources resources{test::resourcesDir(), {QStringLiteral("en")}};
    LanguageManager manager{resources, defaults, prefs};
    int posted() const { return center.postedCount(ravlinPrefsChanged); }
};

} // namespace

TEST(Languages, TwentySixInPickerOrder)
{
    const auto& all = Languages::all();
    ASSERT_EQ(all.size(), 26u);
    EXPECT_EQ(all.front().code, QStringLiteral("en"));
    EXPECT_EQ(all[5], (AppLanguage{QStringLiteral("pt-BR"), QStringLiteral("Português (Brasil)")}));
    EXPECT_EQ(all[22].code, QStringLiteral("zh-Hans"));
    EXPECT_EQ(all.back(), (AppLanguage{QStringLiteral("he"), QStringLiteral("עברית")}));
}

TEST_F(LanguageFixture, ApplyingHebrewSwitchesTextsDirectionAndTheStoredChoices)
{
    int signals = 0;
    QObject::connect(&manager, &LanguageManager::willChange, &manager, [&] { ++signals; });
    manager.apply(QStringLiteral("he"));
    EXPECT_TRUE(manager.isRTL());
    EXPECT_EQ(manager.activeCode(), QStringLiteral("he"));
    EXPECT_EQ(defaults.stringArrayForKey(PrefKey::appleLanguages),
              QStringList{QStringLiteral("he")});
    EXPECT_EQ(prefs.appLanguage(), QStringLiteral("he"));
    EXPECT_NE(manager.L(QStringLiteral("menu.quit")), QStringLiteral("Quit Ravlin"));
    EXPECT_EQ(signals, 1);
    EXPECT_EQ(posted(), 1);
}

TEST_F(LanguageFixture, TheSystemLanguageRemovesTheStoredList)
{
    manager.apply(QStringLiteral("de"));
    manager.apply(QString());
    EXPECT_FALSE(defaults.persistentValue(PrefKey::appleLanguages).isArray());
    EXPECT_FALSE(manager.isRTL());
    EXPECT_EQ(manager.L(QStringLiteral("menu.quit")), QStringLiteral("Quit Ravlin"));
}

TEST_F(LanguageFixture, AnUnknownCodeFallsBackToTheMainBundleAndLeavesTheListAlone)
{
    manager.apply(QStringLiteral("ar"));
    test::LogCapture log;
    manager.apply(QStringLiteral("xx"));
    EXPECT_EQ(manager.activeCode(), QStringLiteral("xx"));
    EXPECT_EQ(defaults.stringArrayForKey(PrefKey::appleLanguages),
              QStringList{QStringLiteral("ar")});
    EXPECT_EQ(manager.L(QStringLiteral("menu.quit")), QStringLiteral("Quit Ravlin"));
    EXPECT_FALSE(manager.isRTL());
}

TEST_F(LanguageFixture, ApplyStoredNeverWritesTheChoiceBack)
{
    defaults.set(PrefKey::appLanguage, QStringLiteral("fr"));
    manager.applyStored();
    EXPECT_EQ(manager.activeCode(), QStringLiteral("fr"));
    EXPECT_EQ(posted(), 0);
}

TEST_F(LanguageFixture, MissingKeysShowThemselvesAndArgumentsFillPlaceholders)
{
    EXPECT_EQ(manager.L(QStringLiteral("no.such.key")), QStringLiteral("no.such.key"));
    EXPECT_EQ(manager.L(QStringLiteral("about.version"), QStringLiteral("1.2.3")),
              QStringLiteral("Version 1.2.3"));
}

TEST(Resources, MainBundleFollowsTheSystemLanguages)
{
    const QString dir = test::resourcesDir();
    EXPECT_EQ(Resources(dir, {QStringLiteral("de_DE.UTF-8")}).mainLocalization(),
              QStringLiteral("de"));
    EXPECT_EQ(Resources(dir, {QStringLiteral("C")}).mainLocalization(), QStringLiteral("en"));
    EXPECT_EQ(Resources(dir, {QStringLiteral("xx"), QStringLiteral("pt_PT")}).mainLocalization(),
              QStringLiteral("pt-BR"));
    const QStringList available = {QStringLiteral("zh-Hans"), QStringLiteral("zh-Hant"),
                                   QStringLiteral("nb"), QStringLiteral("he")};
    EXPECT_EQ(Resources::bestMatch(available, {QStringLiteral("zh_TW")}),
              QStringLiteral("zh-Hant"));
    EXPECT_EQ(Resources::bestMatch(available, {QStringLiteral("zh-CN")}),
              QStringLiteral("zh-Hans"));
    EXPECT_EQ(Resources::bestMatch(available, {QStringLiteral("no_NO")}), QStringLiteral("nb"));
    EXPECT_EQ(Resources::bestMatch(available, {QStringLiteral("iw")}), QStringLiteral("he"));
    EXPECT_FALSE(Resources::bestMatch(available, {QStringLiteral("POSIX")}).has_value());
}
