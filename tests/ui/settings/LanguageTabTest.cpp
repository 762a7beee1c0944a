#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Languages.h"
#include "core/settings/Preferences.h"
#include "ui/settings/PopupButton.h"
#include "ui/settings/SettingsToolbar.h"
#include "ui/settings/ToggleSwitch.h"

#include <QAbstractButton>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

class LanguageTab : public ::testing::Test {
protected:
    void SetUp() override
    {
        world.typicalDesktop();
        world.start();
        world.open(2);
    }
    PopupButton* picker() { return world.find<PopupButton>(QStringLiteral("language")); }
    void pick(const QString& code) { picker()->setCurrentIndex(picker()->findData(code)); }
    SettingsView& view() { return *world.window().view(); }

    test::SettingsWorld world;
};

} // namespace

TEST_F(LanguageTab, OffersTheSystemsLanguageFirstThenEachLanguageByItsOwnName)
{
    ASSERT_EQ(picker()->count(), 27);
    EXPECT_EQ(picker()->itemText(0), QStringLiteral("System language"));
    EXPECT_EQ(picker()->itemData(0).toString(), QString());
    for (std::size_t i = 0; i < Languages::all().size(); ++i) {
        EXPECT_EQ(picker()->itemText(int(i) + 1), Languages::all()[i].autonym);
        EXPECT_EQ(picker()->itemData(int(i) + 1).toString(), Languages::all()[i].code);
    }
    EXPECT_EQ(picker()->currentIndex(), 0);
}

TEST_F(LanguageTab, HebrewTurnsTheWindowRightToLeftAtOnceAndIsStored)
{
    pick(QStringLiteral("he"));
    EXPECT_EQ(view().layoutDirection(), Qt::RightToLeft);
    EXPECT_EQ(world.app().preferences().appLanguage(), QStringLiteral("he"));
    EXPECT_TRUE(world.app().languageManager().isRTL());
    EXPECT_EQ(view().toolbar()->tabButton(0)->text(), QStringLiteral("כללי"));
    EXPECT_EQ(view().windowTitle(), QStringLiteral("שפה"));
    // The rebuilt window stays on its tab, and its new picker shows the choice.
    EXPECT_EQ(view().currentTab(), 2);
    EXPECT_EQ(picker()->currentData().toString(), QStringLiteral("he"));
    EXPECT_EQ(world.find<ToggleSwitch>(QStringLiteral("showWeather"))->layoutDirection(),
              Qt::RightToLeft);
}

TEST_F(LanguageTab, ArabicIsRightToLeftAndGermanAndTheSystemsLanguageAreNot)
{
    pick(QStringLiteral("ar"));
    EXPECT_EQ(view().layoutDirection(), Qt::RightToLeft);
    pick(QStringLiteral("de"));
    EXPECT_EQ(view().layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(view().windowTitle(), QStringLiteral("Sprache"));
    pick(QString());
    EXPECT_EQ(view().layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(world.app().preferences().appLanguage(), QString());
    EXPECT_EQ(view().windowTitle(), QStringLiteral("Language"));
}

TEST_F(LanguageTab, FollowsALanguageChosenElsewhere)
{
    world.app().languageManager().apply(QStringLiteral("fr"));
    EXPECT_EQ(picker()->currentData().toString(), QStringLiteral("fr"));
    EXPECT_EQ(view().toolbar()->tabButton(3)->text(),
              world.app().languageManager().L(QStringLiteral("tab.about")));
    EXPECT_NE(view().toolbar()->tabButton(3)->text(), QStringLiteral("About"));
}

TEST_F(LanguageTab, TheReplacedContentLeavesTheWindow)
{
    pick(QStringLiteral("he"));
    pick(QStringLiteral("en"));
    EXPECT_EQ(view().findChildren<PopupButton*>(QStringLiteral("language")).size(), 1);
    EXPECT_EQ(view().findChildren<SettingsToolbar*>().size(), 1);
}

TEST_F(LanguageTab, RightToLeftPutsTheControlsOnTheLeftAndTheTabsFromTheRight)
{
    auto switchLeftOfTitle = [&] {
        ToggleSwitch* toggle = world.find<ToggleSwitch>(QStringLiteral("showWeather"));
        QWidget* title = toggle->parentWidget()->findChild<QWidget*>(QStringLiteral("title"));
        return toggle->mapTo(&view(), QPoint()).x() < title->mapTo(&view(), QPoint()).x();
    };
    auto generalLeftOfAbout = [&] {
        return view().toolbar()->tabButton(0)->x() < view().toolbar()->tabButton(3)->x();
    };
    world.open(0);
    EXPECT_FALSE(switchLeftOfTitle());
    EXPECT_TRUE(generalLeftOfAbout());
    pick(QStringLiteral("he"));
    ASSERT_EQ(view().currentTab(), 0);
    EXPECT_TRUE(switchLeftOfTitle());
    EXPECT_FALSE(generalLeftOfAbout());
}
