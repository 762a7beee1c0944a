#include "support/SimWorld.h"

#include "platform/Accessibility.h"
#include "platform/Screens.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

class SimDesktopTest : public ::testing::Test {
protected:
    SimWorld w;
    void SetUp() override
    {
        w.app(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"));
        w.app(QStringLiteral("com.example.a"), QStringLiteral("A"));
        SimItem clock;
        clock.bundleId = QStringLiteral("com.apple.controlcenter");
        clock.title = QStringLiteral("Clock");
        clock.width = 80;
        clock.fixed = true;
        w.desktop.addItem(clock);
    }
};

} // namespace

TEST_F(SimDesktopTest, ItemsStandRightToLeftFromTheFixedOnes)
{
    const auto first = w.item(QStringLiteral("com.example.a"), QStringLiteral("First"));
    const auto second = w.item(QStringLiteral("com.example.a"), QStringLiteral("Second"), 30);
    EXPECT_EQ(w.placed(first).frame, (WindowServerRect{1338, 0, 22, 24}));
    EXPECT_EQ(w.placed(second).frame, (WindowServerRect{1308, 0, 30, 24}));
}

TEST_F(SimDesktopTest, ALongOwnItemPushesEverythingLeftOfItOffScreen)
{
    const auto left = w.item(QStringLiteral("com.example.a"), QStringLiteral("Left"));
    const auto separator = w.desktop.addOwnItem(QStringLiteral("Ravlin.HiddenSeparator"), 10);
    EXPECT_TRUE(w.placed(left).onScreen);
    w.desktop.setItemWidth(separator, 10000);
    EXPECT_FALSE(w.placed(left).onScreen);
    EXPECT_EQ(w.placed(left).frame.x, 1360 - 10000 - 22);

    const auto all = w.platform.windowServer->windowList(WindowListOption::AllWindows);
    const auto onScreen = w.platform.windowServer->windowList(WindowListOption::OnScreenOnly);
    auto lists = [&](const PlistArray& list, std::int64_t window) {
        return std::any_of(list.begin(), list.end(), [&](const PlistValue& v) {
            return v[WindowKey::number].asInteger() == window;
        });
    };
    EXPECT_TRUE(lists(*all, left));
    EXPECT_FALSE(lists(*onScreen, left));
    EXPECT_EQ(w.platform.windowServer->windowImage(std::uint32_t(left)).size(), QSize(1, 1));
}

TEST_F(SimDesktopTest, OwnItemsGoToTheGapNearestTheirPreferredPosition)
{
    w.item(QStringLiteral("com.example.a"), QStringLiteral("R"), 20);
    w.item(QStringLiteral("com.example.a"), QStringLiteral("L"), 20);
    w.defaults().set(SimDesktop::preferredPositionKey(QStringLiteral("Ravlin.Main")), 25);
    const auto main = w.desktop.addOwnItem(QStringLiteral("Ravlin.Main"), 24);
    // Gaps lie 0, 20 and 40 points from the right end; 25 is nearest 20.
    EXPECT_EQ(w.placed(main).frame.x, 1360 - 20 - 24);
    // A missing position counts as 0; on a tie the right gap wins.
    w.defaults().set(SimDesktop::preferredPositionKey(QStringLiteral("Ravlin.Other")), 10);
    const auto other = w.desktop.addOwnItem(QStringLiteral("Ravlin.Other"), 10);
    EXPECT_EQ(w.placed(other).frame.x, 1350);
}

TEST_F(SimDesktopTest, DraggingAnOwnItemRecordsItsNewPreferredPosition)
{
    w.item(QStringLiteral("com.example.a"), QStringLiteral("R"), 20);
    const auto main = w.desktop.addOwnItem(QStringLiteral("Ravlin.Main"), 24);
    ASSERT_TRUE(w.desktop.dragItem(main, 1345));
    EXPECT_EQ(w.placed(main).frame.x, 1336);
    EXPECT_EQ(
        w.defaults().integerForKey(SimDesktop::preferredPositionKey(QStringLiteral("Ravlin.Main"))),
        0);
}

TEST_F(SimDesktopTest, FixedItemsCannotBeDragged)
{
    const auto clock = w.desktop.placedByTitle(QStringLiteral("Clock"))->item.window;
    EXPECT_FALSE(w.desktop.dragItem(clock, 100));
}

TEST_F(SimDesktopTest, AnEndedApplicationsItemsVanishAndComeBackInPlace)
{
    const auto a = w.item(QStringLiteral("com.example.a"), QStringLiteral("A1"));
    int launches = 0;
    auto token = w.platform.workspace->addObserver(WorkspaceNotification::DidLaunchApplication,
                                                   [&](const RunningApplication&) { ++launches; });
    w.desktop.terminate(QStringLiteral("com.example.a"));
    EXPECT_FALSE(w.desktop.placed(a));
    w.desktop.launch(QStringLiteral("com.example.a"));
    EXPECT_EQ(w.placed(a).frame.x, 1338);
    EXPECT_EQ(launches, 1);
    token.reset();
    w.desktop.terminate(QStringLiteral("com.example.a"));
    w.desktop.launch(QStringLiteral("com.example.a"));
    EXPECT_EQ(launches, 1);
}

TEST_F(SimDesktopTest, AHungApplicationLetsItsTimeoutPass)
{
    const auto a = w.item(QStringLiteral("com.example.a"), QStringLiteral("A1"));
    w.desktop.app(QStringLiteral("com.example.a"))->hung = true;
    Accessibility& ax = *w.platform.accessibility;
    // Back to the system's default, which Ravlin's resolver shortens when it is made.
    ax.setMessagingTimeout(ax.systemWideElement(), 0);
    const auto hit = ax.elementAtPosition(ax.systemWideElement(), 1349, 12);
    EXPECT_EQ(hit.error, AXError::cannotComplete);
    EXPECT_DOUBLE_EQ(w.scheduler.now(), 6.0);
    Q_UNUSED(a);
}

TEST_F(SimDesktopTest, APlainClickAtTheHidTapActivatesTheItemUnderIt)
{
    w.item(QStringLiteral("com.example.a"), QStringLiteral("A1"));
    MouseEvent click;
    click.location = {1349, 12};
    w.desktop.postMouseEvent(click, EventTap::Session);
    EXPECT_TRUE(w.desktop.activations().empty());
    w.desktop.postMouseEvent(click, EventTap::HID);
    ASSERT_EQ(w.desktop.activations().size(), 1u);
    EXPECT_EQ(w.desktop.activations()[0].how, QStringLiteral("click"));
    EXPECT_EQ(w.desktop.activations()[0].title, QStringLiteral("A1"));
}

TEST_F(SimDesktopTest, ScreensAreReportedInScreenCoordinates)
{
    w.desktop.addScreen({1440, 900, 24});
    w.desktop.addScreen({1920, 1080, 25});
    const auto screens = w.platform.screens->screens();
    ASSERT_EQ(screens.size(), 2u);
    EXPECT_EQ(screens[0].visibleFrame, (ScreenRect{0, 0, 1440, 876}));
    // Tops aligned: the taller display reaches below the main one.
    EXPECT_EQ(screens[1].frame, (ScreenRect{1440, -180, 1920, 1080}));
    w.desktop.setCursor({100, 10});
    EXPECT_EQ(w.platform.screens->mouseLocation(), (ScreenPoint{100, 890}));
}

TEST_F(SimDesktopTest, TheVisibleStretchOfACollapsedSeparatorTakesClicks)
{
    const auto left = w.item(QStringLiteral("com.example.a"), QStringLiteral("Left"));
    const auto separator = w.desktop.addOwnItem(QStringLiteral("Ravlin.HiddenSeparator"), 10);
    w.desktop.setItemWidth(separator, 10000);
    ASSERT_FALSE(w.placed(separator).onScreen);
    EXPECT_EQ(w.desktop.visibleStretch(separator), (WindowServerRect{0, 0, 1360, 24}));
    EXPECT_FALSE(w.desktop.visibleStretch(left));
    std::vector<std::int64_t> clicked;
    w.desktop.setOwnItemClickHandler(
        [&](const SimItem& item, const SimUserClick&) { clicked.push_back(item.window); });
    w.desktop.userClick({{20, 12}});
    EXPECT_EQ(clicked, (std::vector<std::int64_t>{separator}));
    // Nothing reaches a point beside every display, not even the item that spans it.
    EXPECT_FALSE(w.desktop.itemAt({-5, 12}));
    EXPECT_FALSE(w.desktop.itemAt({1440, 12}));
}

TEST_F(SimDesktopTest, PreinstalledApplicationsRunOnlyOnceSomethingOpensThem)
{
    const std::size_t declared = w.desktop.apps().size();
    Workspace& workspace = *w.platform.workspace;
    const std::size_t running = workspace.runningApplications().size();
    const std::optional<QString> monitor =
        workspace.urlForApplication(QStringLiteral("com.apple.ActivityMonitor"));
    ASSERT_TRUE(monitor);
    ASSERT_TRUE(workspace.urlForApplication(QStringLiteral("com.apple.weather")));
    EXPECT_FALSE(workspace.urlForApplication(QStringLiteral("com.example.nothere")));
    EXPECT_EQ(w.desktop.apps().size(), declared);
    EXPECT_EQ(workspace.runningApplications().size(), running);

    QStringList launched;
    auto token = workspace.addObserver(
        WorkspaceNotification::DidLaunchApplication,
        [&](const RunningApplication& a) { launched << a.bundleIdentifier.value_or(QString()); });
    EXPECT_TRUE(workspace.openApplication(*monitor, true));
    workspace.openURL(
        QStringLiteral("x-apple.systempreferences:com.apple.Battery-Settings.extension"));
    workspace.openURL(
        QStringLiteral("x-apple.systempreferences:com.apple.Battery-Settings.extension"));
    EXPECT_EQ(launched, (QStringList{QStringLiteral("com.apple.ActivityMonitor"),
                                     SimDesktop::systemSettingsId}));
    EXPECT_EQ(workspace.runningApplications().size(), running + 2);
    // A pid of its own, not one a declared application holds.
    const SimApp* opened = w.desktop.app(QStringLiteral("com.apple.ActivityMonitor"));
    ASSERT_TRUE(opened);
    EXPECT_EQ(w.desktop.appByPid(opened->pid), opened);
}
