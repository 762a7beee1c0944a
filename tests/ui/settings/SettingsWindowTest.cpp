#include "SettingsWorld.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "core/settings/Languages.h"
#include "platform/ApplicationControl.h"
#include "platform/sim/SimApplicationControl.h"
#include "ui/settings/SettingsPage.h"
#include "ui/settings/SettingsStyle.h"
#include "ui/settings/SettingsToolbar.h"

#include <QAbstractButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>

#include <gtest/gtest.h>

using namespace ravlin;
using Policy = ApplicationControl::Policy;

namespace {

class SettingsWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        world.typicalDesktop();
        world.start();
    }
    Policy policy() { return world.session().application().activationPolicy(); }

    test::SettingsWorld world;
};

QScrollArea* scrollAreaOf(QWidget* page)
{
    for (QWidget* w = page; w; w = w->parentWidget())
        if (auto* scroll = qobject_cast<QScrollArea*>(w))
            return scroll;
    return nullptr;
}

} // namespace

TEST_F(SettingsWindow, IsMadeOnceAndOpensOnTheTabAskedFor)
{
    EXPECT_EQ(world.window().view(), nullptr);
    EXPECT_EQ(world.window().currentTab(), -1);
    SettingsView* first = &world.open(1);
    EXPECT_TRUE(world.window().isVisible());
    EXPECT_EQ(world.window().currentTab(), 1);
    EXPECT_EQ(first->windowTitle(), QStringLiteral("Menu Bar"));
    EXPECT_EQ(&world.open(3), first);
    EXPECT_EQ(first->currentTab(), 3);
    EXPECT_EQ(first->windowTitle(), QStringLiteral("About"));
}

TEST_F(SettingsWindow, MakesTheApplicationRegularWhileOpenAndAnAgentAgainWhenClosed)
{
    EXPECT_EQ(policy(), Policy::Accessory);
    world.open(0);
    EXPECT_EQ(policy(), Policy::Regular);
    world.window().view()->close();
    EXPECT_FALSE(world.window().isVisible());
    EXPECT_EQ(policy(), Policy::Accessory);
    world.open(2);
    EXPECT_EQ(policy(), Policy::Regular);
    world.window().close();
    EXPECT_EQ(policy(), Policy::Accessory);
}

TEST_F(SettingsWindow, AnUnknownTabOpensGeneral)
{
    world.window().show(7);
    EXPECT_EQ(world.window().currentTab(), 0);
    world.window().show(-1);
    EXPECT_EQ(world.window().currentTab(), 0);
}

TEST_F(SettingsWindow, ReopeningTheApplicationAndTheStatusMenuOpenIt)
{
    world.app().applicationShouldHandleReopen(false);
    EXPECT_TRUE(world.window().isVisible());
    EXPECT_EQ(world.window().currentTab(), 0);
    world.app().statusBar()->menuAbout();
    EXPECT_EQ(world.window().currentTab(), 3);
    world.app().statusBar()->menuSettings();
    EXPECT_EQ(world.window().currentTab(), 0);
}

TEST_F(SettingsWindow, TheToolbarSwitchesTabsAndTheWindowTakesEachPagesHeight)
{
    SettingsView& view = world.open(0);
    const int generalHeight = view.height();
    view.toolbar()->tabButton(2)->click();
    EXPECT_EQ(view.currentTab(), 2);
    EXPECT_EQ(view.windowTitle(), QStringLiteral("Language"));
    EXPECT_LT(view.height(), generalHeight);
    EXPECT_EQ(view.width(), SettingsStyle::windowWidth);
    view.toolbar()->tabButton(0)->click();
    EXPECT_EQ(view.height(), generalHeight);
}

// Each tab is shown as whole as the screen allows, as the system's settings windows are: on a
// 1440×900 display the General tab shows everything down to its keyboard shortcuts without
// scrolling, in English and in German; what goes beyond the screen's visible height scrolls,
// the window as tall as the screen lets it be.
TEST_F(SettingsWindow, ShowsEachTabWholeWhereTheScreenHasRoom)
{
    for (const char* language : {"en", "de"}) {
        SCOPED_TRACE(language);
        world.script(QStringLiteral("language ") + QString::fromLatin1(language));
        SettingsView& view = world.open(0);
        SettingsPage* page = view.page(0);
        QScrollArea* scroll = scrollAreaOf(page);
        ASSERT_NE(scroll, nullptr);
        const int toolbar = view.toolbar()->sizeHint().height();
        const int whole = page->heightForWidth(SettingsStyle::windowWidth) + toolbar;
        EXPECT_LE(view.height(), std::min(whole, 900 - 24));
        EXPECT_GT(view.height(), 600 + toolbar);
        if (view.height() < whole)
            EXPECT_NE(scroll->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        for (const char* name : {"panelShortcut", "hiddenSectionShortcut"}) {
            QWidget* field = view.findChild<QWidget*>(QString::fromLatin1(name));
            ASSERT_NE(field, nullptr) << name;
            const QPoint bottom = field->mapTo(scroll->viewport(), QPoint(0, field->height()));
            EXPECT_LE(bottom.y(), scroll->viewport()->height()) << name;
        }
        world.window().close();
    }
}

TEST(SettingsWindowSmallScreen, APageTallerThanTheScreenScrollsWithinIt)
{
    test::SettingsWorld world;
    world.script(QStringLiteral("screen 1280 600"));
    world.typicalDesktop();
    world.start();
    SettingsView& view = world.open(0);
    EXPECT_LE(view.height(), 600 - 24 - SettingsStyle::screenAllowance);
    QScrollArea* scroll = scrollAreaOf(view.page(0));
    ASSERT_NE(scroll, nullptr);
    EXPECT_EQ(scroll->verticalScrollBarPolicy(), Qt::ScrollBarAsNeeded);
}

TEST(SettingsWindowStart, TheSettingsArgumentOpensGeneralAfterStartUp)
{
    test::SettingsWorld world;
    world.typicalDesktop();
    world.start(QStringLiteral("--settings"));
    EXPECT_TRUE(world.window().isVisible());
    EXPECT_EQ(world.window().currentTab(), 0);
    EXPECT_EQ(world.session().application().activationPolicy(), Policy::Regular);
}

TEST_F(SettingsWindow, CommandWClosesIt)
{
    auto* shortcut = world.open(0).findChild<QShortcut*>();
    ASSERT_NE(shortcut, nullptr);
    EXPECT_EQ(shortcut->key(), QKeySequence(QKeySequence::Close));
    Q_EMIT shortcut->activated();
    EXPECT_FALSE(world.window().isVisible());
    EXPECT_EQ(policy(), Policy::Accessory);
}

// The window is as wide in every language: no page may need more, or its trailing controls
// (a row's buttons, a placement's last choice) are cut off at the window's edge.
TEST_F(SettingsWindow, EveryTabFitsTheWindowsWidthInEveryLanguage)
{
    for (const AppLanguage& language : Languages::all()) {
        SCOPED_TRACE(language.code.toStdString());
        world.script(QStringLiteral("language ") + language.code);
        for (int tab = 0; tab < SettingsView::tabCount; ++tab) {
            SCOPED_TRACE(tab);
            SettingsView& view = world.open(tab);
            SettingsPage* page = view.page(tab);
            QScrollArea* scroll = scrollAreaOf(page);
            ASSERT_NE(scroll, nullptr);
            const int room =
                SettingsStyle::windowWidth - scroll->verticalScrollBar()->sizeHint().width();
            EXPECT_LE(page->minimumSizeHint().width(), room);
        }
        world.window().close();
    }
}
