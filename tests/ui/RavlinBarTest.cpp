// The panel window: where it stands, how tall it is, its fade, its refits and
// how it closes.
#include "support/PanelWorld.h"

#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "core/sysinfo/SystemStats.h"
#include "platform/sim/SimAppearance.h"
#include "platform/sim/SimSystemProbe.h"
#include "ui/RavlinBar.h"
#include "ui/RavlinBarView.h"

#include <QWidget>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

// The main item at the right end of the 1440×900 screen's menu bar (screen coordinates).
const ScreenRect rightEnd{1416, 876, 24, 24};

class PanelTest : public ::testing::Test {
protected:
    void show(std::vector<BarGroup> groups = PanelWorld::groups(3), ScreenRect anchor = rightEnd)
    {
        bar->show(
            groups, anchor, [](const BarItem&) {}, [](const Stat&) {});
    }

    PanelWorld world;
    std::unique_ptr<RavlinBar> bar = world.makePanel();
};

} // namespace

TEST_F(PanelTest, HangsUnderTheItemAndTheWindowSitsThereInQtCoordinates)
{
    show();
    ASSERT_TRUE(bar->isVisible());
    const ScreenRect f = *bar->frame();
    EXPECT_EQ(f.x, 1124);
    EXPECT_EQ(f.width, 308);
    EXPECT_EQ(f.maxY(), 876 - 6);
    // Qt's global coordinates run from the top left: the top edge is 30 points down.
    EXPECT_EQ(bar->window()->geometry(), QRect(1124, 30, 308, int(f.height)));
    EXPECT_TRUE(bar->window()->windowFlags() & Qt::FramelessWindowHint);
    EXPECT_TRUE(bar->window()->testAttribute(Qt::WA_ShowWithoutActivating));
}

TEST_F(PanelTest, FadesInOnItsFirstShowOnly)
{
    show();
    show();
    EXPECT_EQ(bar->fadeCount(), 1);
    bar->hide();
    show();
    EXPECT_EQ(bar->fadeCount(), 2);
}

TEST_F(PanelTest, IsNeverLowerThan120Points)
{
    world.preferences().setShowWeather(false);
    world.preferences().setShowSystemTiles(false);
    show(PanelWorld::groups(0, false)); // the note that nothing is hidden, and the gear
    EXPECT_EQ(bar->frame()->height, 120);
    EXPECT_FALSE(world.stats().isSampling());
}

TEST_F(PanelTest, RefitsKeepTheTopEdgeWhenTheContentGrows)
{
    world.preferences().setTileStyle(TileStyle::Strip);
    world.probe().setBattery(std::nullopt);
    show(PanelWorld::groups(1, false)); // short of the strip's limit, with room to grow
    const ScreenRect before = *bar->frame();
    EXPECT_TRUE(world.stats().isSampling());
    world.probe().setBattery(PowerSource{50, 100});
    world.scheduler.advance(1.3);
    const ScreenRect after = *bar->frame();
    EXPECT_EQ(after.height, before.height + 31); // one more strip row
    EXPECT_EQ(after.maxY(), before.maxY());
    EXPECT_EQ(bar->window()->height(), int(after.height));
}

TEST_F(PanelTest, LosingKeyStatusClosesItAndTellsOnceOnly)
{
    int closed = 0;
    bar->onClose = [&] { ++closed; };
    show();
    bar->resignKey();
    EXPECT_FALSE(bar->isVisible());
    bar->resignKey();
    EXPECT_EQ(closed, 1);
    show();
    bar->hide(); // the controller's own close does not call back
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(world.stats().isSampling());
}

TEST_F(PanelTest, EachShowBringsFreshContentInTheCurrentStyleAndDirection)
{
    show();
    RavlinBarView* first = bar->view();
    world.preferences().setTileStyle(TileStyle::Capsules);
    world.language().apply(QStringLiteral("he"));
    show();
    EXPECT_NE(bar->view(), first);
    EXPECT_EQ(bar->view()->style(), TileStyle::Capsules);
    EXPECT_TRUE(bar->view()->isRightToLeft());
    // The replaced view, not yet deleted, no longer follows the figures.
    world.probe().setBattery(std::nullopt);
    world.stats().refresh();
    EXPECT_FALSE(bar->view()->tile(QStringLiteral("sys.batt")));
    EXPECT_TRUE(first->tile(QStringLiteral("sys.batt")));
}

TEST_F(PanelTest, APermissionTileAsksAndOpensItsSettingsPage)
{
    world.desktop.accessibilityTrusted = false;
    show();
    ASSERT_TRUE(bar->view()->clickTile(QStringLiteral("bar.grantAX")));
    EXPECT_EQ(world.desktop.accessibilityPrompts, 1);
    EXPECT_TRUE(world.desktop.opened().contains(QStringLiteral(
        "x-apple.systempreferences:com.apple.preference.security?Privacy_Accessibility")));
}

TEST_F(PanelTest, ShownAgainWhileOpenItDrawsItsTiles)
{
    show();
    const QImage first = bar->window()->grab().toImage();
    show(); // a rebuild or a settings change while the panel is open
    const QImage again = bar->window()->grab().toImage();
    EXPECT_EQ(again, first);
    EXPECT_FALSE(bar->view()->paintedTexts(QStringLiteral("n:Item 1")).isEmpty());
}

TEST_F(PanelTest, NeverReachesPastTheScreenAndScrollsWhatDoesNotFit)
{
    // A short display under the Dock: the visible area ends 60 points above the bottom.
    world.desktop.addScreen(SimScreen{1280, 600, 24});
    show(PanelWorld::groups(45), ScreenRect{1256, 576, 24, 24});
    const ScreenRect f = *bar->frame();
    EXPECT_EQ(f.maxY(), 576 - 6);
    EXPECT_EQ(f.y, 8); // the sim's visible area reaches the bottom edge
    EXPECT_GT(bar->view()->maximumScroll(), 0);
    EXPECT_EQ(bar->window()->height(), int(f.height));
    // The refits keep it inside too.
    world.scheduler.advance(1.3);
    EXPECT_EQ(bar->frame()->height, f.height);
}

TEST_F(PanelTest, RefilledWhileOpenItKeepsItsScrollPosition)
{
    world.desktop.addScreen(SimScreen{1280, 600, 24});
    const ScreenRect anchor{1256, 576, 24, 24};
    show(PanelWorld::groups(45), anchor);
    bar->view()->scrollBy(300);
    show(PanelWorld::groups(45), anchor);
    EXPECT_EQ(bar->view()->scrollOffset(), 300);
    bar->hide();
    show(PanelWorld::groups(45), anchor);
    EXPECT_EQ(bar->view()->scrollOffset(), 0);
}

TEST_F(PanelTest, OnAScreenNarrowerThanThePanelItTakesTheScreensWidth)
{
    world.desktop.addScreen(SimScreen{300, 500, 24});
    show(PanelWorld::groups(3), ScreenRect{276, 476, 24, 24});
    EXPECT_EQ(bar->frame()->x, 8);
    EXPECT_EQ(bar->frame()->width, 284);
}

// The panel is drawn in the system's appearance and follows a switch while it is open.
TEST_F(PanelTest, FollowsTheSystemsLightOrDarkAppearance)
{
    auto& appearance = static_cast<SimAppearance&>(*world.platform.appearance);
    auto backdrop = [&] {
        // A point of the glass between the padding and the first tile.
        const QImage shot = bar->window()->grab().toImage();
        return qGray(shot.pixel(6, shot.height() / 2));
    };
    appearance.setDark(false);
    show();
    EXPECT_GT(backdrop(), 200);
    appearance.setDark(true);
    EXPECT_LT(backdrop(), 80);
    bar->hide();
    appearance.setDark(false);
    show();
    EXPECT_GT(backdrop(), 200);
}
