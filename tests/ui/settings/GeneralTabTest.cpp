#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "platform/sim/SimLoginItems.h"
#include "ui/settings/NumberField.h"
#include "ui/settings/PopupButton.h"
#include "ui/settings/SettingsRow.h"
#include "ui/settings/ToggleSwitch.h"

#include <QSpinBox>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

class GeneralTab : public ::testing::Test {
protected:
    void SetUp() override
    {
        world.typicalDesktop();
        world.start();
        world.open(0);
    }
    Preferences& prefs() { return world.app().preferences(); }
    ToggleSwitch* toggle(const char* name)
    {
        return world.find<ToggleSwitch>(QString::fromLatin1(name));
    }

    test::SettingsWorld world;
};

struct Switch {
    const char* name;
    bool (Preferences::*read)() const;
};

const Switch switches[] = {
    {"launchAtLogin", &Preferences::launchAtLogin},
    {"autoRehide", &Preferences::autoRehide},
    {"enableAlwaysHidden", &Preferences::enableAlwaysHidden},
    {"revealOnHover", &Preferences::revealOnHover},
    {"showSystemTiles", &Preferences::showSystemTiles},
    {"showWeather", &Preferences::showWeather},
    {"barShowsStatistics", &Preferences::barShowsStatistics},
    {"revealOnMenuBarClick", &Preferences::revealOnMenuBarClick},
    {"revealOnMenuBarScroll", &Preferences::revealOnMenuBarScroll},
    {"revealOnMenuBarHover", &Preferences::revealOnMenuBarHover},
};

} // namespace

TEST_F(GeneralTab, EachSwitchShowsAndWritesItsSetting)
{
    for (const Switch& s : switches) {
        SCOPED_TRACE(s.name);
        ToggleSwitch* control = toggle(s.name);
        ASSERT_NE(control, nullptr);
        const bool before = (prefs().*s.read)();
        EXPECT_EQ(control->isChecked(), before);
        control->click();
        EXPECT_EQ((prefs().*s.read)(), !before);
        control->click();
        EXPECT_EQ((prefs().*s.read)(), before);
    }
}

TEST_F(GeneralTab, LaunchAtLoginRegistersTheLoginItem)
{
    toggle("launchAtLogin")->click();
    EXPECT_EQ(world.session().login().status(), LoginItemStatus::Enabled);
    toggle("launchAtLogin")->click();
    EXPECT_EQ(world.session().login().status(), LoginItemStatus::NotRegistered);
}

TEST_F(GeneralTab, TheIntervalWritesSecondsAndRestsWhileAutoRehideIsOff)
{
    auto* field = world.find<NumberField>(QStringLiteral("rehideInterval"));
    ASSERT_NE(field, nullptr);
    EXPECT_EQ(field->value(), 15);
    field->spinBox()->setValue(40);
    EXPECT_EQ(prefs().rehideInterval(), 40);
    field->spinBox()->stepDown();
    EXPECT_EQ(prefs().rehideInterval(), 39);
    // Zero is no interval: the field never offers it.
    field->spinBox()->setValue(0);
    EXPECT_EQ(prefs().rehideInterval(), 1);

    auto* row = qobject_cast<SettingsRow*>(field->parentWidget()->parentWidget());
    ASSERT_NE(row, nullptr);
    EXPECT_TRUE(row->isEnabled());
    toggle("autoRehide")->click();
    EXPECT_FALSE(row->isEnabled());
}

TEST_F(GeneralTab, TheStylePopupOffersTheFiveStylesAndWritesTheChoice)
{
    auto* popup = world.find<PopupButton>(QStringLiteral("tileStyle"));
    ASSERT_NE(popup, nullptr);
    ASSERT_EQ(popup->count(), 5);
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(popup->itemText(i), world.app().languageManager().L(
                                          tileStyleTitleKey(allTileStyles[std::size_t(i)])));
    popup->setCurrentIndex(2);
    EXPECT_EQ(prefs().tileStyle(), TileStyle::Grid);
    popup->setCurrentIndex(4);
    EXPECT_EQ(prefs().tileStyle(), TileStyle::Bar);
}

TEST_F(GeneralTab, FollowsChangesMadeElsewhere)
{
    prefs().setShowWeather(false);
    EXPECT_FALSE(toggle("showWeather")->isChecked());
    prefs().setEnableAlwaysHidden(true);
    EXPECT_TRUE(toggle("enableAlwaysHidden")->isChecked());
    prefs().setRehideInterval(42);
    EXPECT_EQ(world.find<NumberField>(QStringLiteral("rehideInterval"))->value(), 42);
    prefs().setTileStyle(TileStyle::Strip);
    EXPECT_EQ(world.find<PopupButton>(QStringLiteral("tileStyle"))->currentData().toString(),
              QStringLiteral("strip"));
    // Following a change does not write it back a second time.
    EXPECT_EQ(prefs().tileStyle(), TileStyle::Strip);
}

// Whatever hides the items, the same choices: the always-hidden section too, and the click
// that shows hidden items in the bar rather than the panel.
TEST(GeneralTabEngine, OffersTheSameChoicesAsWithSeparators)
{
    test::SettingsWorld world;
    world.typicalDesktop(true);
    world.start();
    world.open(0);
    for (const char* name : {"enableAlwaysHidden", "revealOnHover", "clickShowsInBar"}) {
        ToggleSwitch* toggle = world.find<ToggleSwitch>(QString::fromLatin1(name));
        ASSERT_NE(toggle, nullptr) << name;
        EXPECT_TRUE(toggle->isEnabledTo(world.window().view())) << name;
    }
    world.find<ToggleSwitch>(QStringLiteral("clickShowsInBar"))->click();
    EXPECT_TRUE(world.app().preferences().clickShowsInBar());
}
