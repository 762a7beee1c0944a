// The simulated desktop as the sandbox draws it: every release's bar shows its items,
// every display's bar too, the interactive canvas repaints only on a change, and the
// status menu a real menu shows is not drawn a second time.
#include "../settings/SettingsWorld.h"

#include "DesktopScene.h"
#include "interactive/DesktopCanvas.h"
#include "platform/sim/SimDesktop.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

const char* const desktop = R"(
app com.apple.controlcenter "Control Center"
app com.example.chat "Chat"
app com.example.notes "Notes"
item com.apple.controlcenter "Clock" fixed width=80
item com.example.chat "Chat Status" ax.title="Chat"
item com.example.notes "Notes Status" ax.title="Notes"
)";

// The items other applications own that the scene draws with a picture.
int pictured(const DesktopScene& scene)
{
    int count = 0;
    for (const DesktopScene::StatusItem& item : scene.items)
        count += item.image.isNull() ? 0 : 1;
    return count;
}

} // namespace

TEST(DesktopScene, EveryReleasesBarShowsItsItemsAndSoDoesEveryDisplay)
{
    for (const char* release : {"15", "27"}) {
        SCOPED_TRACE(release);
        test::SettingsWorld world;
        world.script(QStringLiteral("system ") + QString::fromLatin1(release));
        world.script(QStringLiteral("screen 1440 900\nscreen 1920 1080"));
        world.script(QString::fromLatin1(desktop));
        world.start();
        world.script(QStringLiteral("click main right\nmenu text:menu.show\nadvance 0.5"));
        const DesktopScene scene = desktopScene(world.session(), false);
        // Clock, Chat and Notes on each of the two displays.
        EXPECT_EQ(pictured(scene), 6);
        const QRectF second = scene.displays.at(1).frame;
        int onSecond = 0;
        for (const DesktopScene::StatusItem& item : scene.items)
            onSecond += second.contains(item.frame) ? 1 : 0;
        EXPECT_EQ(onSecond * 2, int(scene.items.size()));
    }
}

TEST(DesktopCanvas, RepaintsOnlyWhenTheDesktopChanged)
{
    test::SettingsWorld world;
    world.script(QString::fromLatin1(desktop));
    world.start();
    DesktopCanvas canvas;
    canvas.setSession(&world.session());
    canvas.refresh();
    const int first = canvas.repaintsAsked();
    for (int i = 0; i < 50; ++i) {
        world.advance(0.016);
        canvas.refresh();
    }
    EXPECT_EQ(canvas.repaintsAsked(), first);
    world.script(QStringLiteral("click main right\nmenu text:menu.show"));
    canvas.refresh();
    EXPECT_EQ(canvas.repaintsAsked(), first + 1);
}

TEST(DesktopScene, AMenuShownAsARealMenuIsNotDrawnAgain)
{
    test::SettingsWorld world;
    world.script(QString::fromLatin1(desktop));
    world.start();
    world.script(QStringLiteral("click main right"));
    EXPECT_EQ(desktopScene(world.session(), false).menusOpen.size(), 1u);
    EXPECT_TRUE(desktopScene(world.session(), false, false).menusOpen.empty());
}
