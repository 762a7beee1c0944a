// How Ravlin learns what the running system's menu bar does, and reads the bar on each
// kind: macOS 15 (a window per item), 26 (the system named as every window's owner) and
// 27 (no item windows; a tree of elements; long items dropped).
#include "support/SimWorld.h"

#include "core/discovery/CaptureEngine.h"
#include "core/discovery/MenuBarReader.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/tiles/BarItemFactory.h"
#include "platform/WindowServer.h"
#include "platform/sim/SimStatusBar.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

using T = MenuBarTechniques;

class Generations : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(w.desktop.setGeneration(GetParam()));
        w.app(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"));
        w.app(QStringLiteral("com.example.chat"), QStringLiteral("Chat"));
        w.app(QStringLiteral("com.example.sync"), QStringLiteral("Sync"));
        SimItem clock;
        clock.bundleId = QStringLiteral("com.apple.controlcenter");
        clock.title = QStringLiteral("Clock");
        clock.fixed = true;
        clock.width = 80;
        w.desktop.addItem(clock);
        w.item(QStringLiteral("com.apple.controlcenter"), QStringLiteral("WiFi"));
        w.itemRef(w.item(QStringLiteral("com.example.chat"), QStringLiteral("Chat Status")))
            .ax.title = QStringLiteral("Chat");
        w.itemRef(w.item(QStringLiteral("com.example.sync"), QStringLiteral("Item-0"))).ax.title =
            QStringLiteral("Sync");
        main = bar.createItem(24, QStringLiteral("Ravlin.Main"));
        system().detect(*main, false);
    }

    MenuBarSystem& system() { return w.services().system(); }
    MenuBarReader& reader() { return w.services().reader(); }

    QStringList keys()
    {
        QStringList keys;
        for (const BarItem& item : w.services().captureEngine().captureAll(1200, 12, 1240))
            keys << item.key;
        return keys;
    }

    SimWorld w;
    SimStatusBar bar{w.desktop};
    std::unique_ptr<StatusItem> main;
};

} // namespace

TEST_P(Generations, TheBarIsKnownByWhatItDoesWithOurOwnItem)
{
    const MenuBarCapabilities& c = system().capabilities();
    const MenuBarTechniques& t = system().techniques();
    switch (GetParam()) {
    case 15:
        EXPECT_TRUE(c.itemWindows);
        EXPECT_TRUE(c.windowOwnersAreReal);
        EXPECT_EQ(t, T{});
        break;
    case 26:
        EXPECT_TRUE(c.itemWindows);
        EXPECT_FALSE(c.windowOwnersAreReal);
        EXPECT_EQ(t.discovery, T::Discovery::WindowListWithAXOwners);
        EXPECT_EQ(t.activation, T::Activation::MoveAndPress);
        EXPECT_EQ(t.pictures, T::Pictures::WindowCapture);
        break;
    case 27:
        EXPECT_FALSE(c.itemWindows);
        EXPECT_EQ(c.barOwnerPid, w.desktop.menuBarOwner().pid);
        EXPECT_EQ(t.discovery, T::Discovery::AccessibilityTree);
        EXPECT_EQ(t.activation, T::Activation::PressElement);
        EXPECT_EQ(t.pictures, T::Pictures::ApplicationIcons);
        break;
    }
    // Separators stay long until the bar is seen to drop one; the engine wins where it is.
    EXPECT_EQ(t.hiding, T::Hiding::LongSeparators);
    EXPECT_FALSE(c.findings.isEmpty());
    system().detect(*main, true);
    EXPECT_EQ(system().techniques().hiding, T::Hiding::HideEngine);
}

TEST_P(Generations, EveryItemIsReadWithItsRealOwnerAndTheKeyItHadOnFifteen)
{
    std::vector<StatusWindow> windows = *reader().statusWindows(WindowListOption::AllWindows);
    std::erase_if(windows, [](const StatusWindow& s) { return s.isOwn(); });
    ASSERT_EQ(windows.size(), 4);
    QStringList owners;
    for (const StatusWindow& s : windows)
        owners << s.owner;
    std::sort(owners.begin(), owners.end());
    EXPECT_EQ(owners, (QStringList{QStringLiteral("Chat"), QStringLiteral("Control Center"),
                                   QStringLiteral("Control Center"), QStringLiteral("Sync")}));
    // The same items, the same keys, whatever the system: placements survive an upgrade.
    EXPECT_EQ(keys(), (QStringList{QStringLiteral("b:com.example.sync#Item-0"),
                                   QStringLiteral("n:Chat Status"), QStringLiteral("n:WiFi")}));
}

TEST_P(Generations, OurOwnItemsFrameIsWhereItStandsInTheBar)
{
    const std::optional<ScreenRect> frame = reader().frameOf(*main);
    ASSERT_TRUE(frame);
    EXPECT_EQ(frame->x, 1440 - 80 - 24);
    EXPECT_EQ(frame->maxY(), 900);
    EXPECT_TRUE(reader().keeps(*main));
}

INSTANTIATE_TEST_SUITE_P(MenuBarSystem, Generations, ::testing::Values(15, 26, 27));

TEST(MenuBarSystem, OnTwentySevenItemsKeepTheirNumbersAndAnElementToPress)
{
    SimWorld w;
    w.desktop.setGeneration(27);
    w.app(QStringLiteral("com.example.chat"), QStringLiteral("Chat"));
    w.item(QStringLiteral("com.example.chat"), QStringLiteral("Item-0"));
    w.item(QStringLiteral("com.example.chat"), QStringLiteral("Item-0"));
    SimStatusBar bar(w.desktop);
    auto main = bar.createItem(24, QStringLiteral("Ravlin.Main"));
    w.services().system().detect(*main, false);
    MenuBarReader& reader = w.services().reader();
    auto numbers = [&] {
        std::vector<std::uint32_t> n;
        const auto windows = reader.statusWindows(WindowListOption::AllWindows);
        for (const StatusWindow& s : windows.value())
            if (!s.isOwn())
                n.push_back(s.number);
        return n;
    };
    const std::vector<std::uint32_t> first = numbers();
    ASSERT_EQ(first.size(), 2);
    EXPECT_NE(first[0], first[1]);
    EXPECT_GE(first[0], MenuBarReader::firstElementNumber);
    EXPECT_EQ(numbers(), first);
    EXPECT_TRUE(reader.elementFor(first[0]));
    // Nothing can be pictured: there are no windows.
    EXPECT_TRUE(w.platform.windowServer->windowImage(first[0]).isNull());
}

TEST(MenuBarSystem, ABarThatDropsLongItemsGetsShortSeparatorsSpreadToSpanItsWidestDisplay)
{
    SimWorld w;
    w.desktop.setGeneration(27);
    SimStatusBar bar(w.desktop);
    auto main = bar.createItem(24, QStringLiteral("Ravlin.Main"));
    auto separator = bar.createItem(10, QStringLiteral("Ravlin.HiddenSeparator"));
    MenuBarSystem& system = w.services().system();
    system.detect(*main, false);
    EXPECT_EQ(system.collapsedSeparatorLength(10000), 10000);
    EXPECT_EQ(system.separatorsToSpan(10000), 1);

    separator->setLength(10000);
    EXPECT_FALSE(w.services().reader().keeps(*separator));
    system.noteLongItemsDropped();
    EXPECT_EQ(system.capabilities().longestItem, 720);
    EXPECT_EQ(system.techniques().hiding, T::Hiding::ShortSeparators);
    EXPECT_EQ(system.collapsedSeparatorLength(10000), 720 - MenuBarSystem::shortSeparatorMargin);
    EXPECT_EQ(system.separatorsToSpan(10000), 3); // 1440 / 704, rounded up

    // A narrower display lowers the limit; a wider one needs more separators to span.
    w.desktop.addScreen(SimScreen{1440, 900, 24});
    w.desktop.addScreen(SimScreen{1024, 768, 24});
    system.displaysChanged();
    EXPECT_EQ(system.capabilities().longestItem, 512);
    EXPECT_EQ(system.separatorsToSpan(10000), 3); // 1440 / 496
    // What was learnt survives a fresh look.
    system.detect(*main, false);
    EXPECT_EQ(system.techniques().hiding, T::Hiding::ShortSeparators);
}
