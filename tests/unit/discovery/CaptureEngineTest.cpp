#include "support/SimWorld.h"

#include "core/discovery/CaptureEngine.h"
#include "core/discovery/ItemCapture.h"
#include "core/discovery/MenuBarReader.h"
#include "core/tiles/BarItem.h"
#include "platform/WindowServer.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

PlistValue window(std::int64_t number, int layer, double x, double w, double h,
                  const QString& owner, const QString& name)
{
    return PlistDict{{WindowKey::layer, layer},
                     {WindowKey::number, number},
                     {WindowKey::ownerPID, 700},
                     {WindowKey::bounds, PlistDict{{QStringLiteral("X"), x},
                                                   {QStringLiteral("Y"), 0.0},
                                                   {QStringLiteral("Width"), w},
                                                   {QStringLiteral("Height"), h}}},
                     {WindowKey::ownerName, owner},
                     {WindowKey::name, name}};
}

class CaptureEngineTest : public ::testing::Test {
protected:
    SimWorld w;
    CaptureEngine& engine() { return w.services().captureEngine(); }
    QList<std::int64_t> scannedIds()
    {
        QList<std::int64_t> ids;
        for (const auto& raw : engine().scanAll())
            ids.append(raw.id);
        return ids;
    }
    QStringList capturedLabels(const std::vector<BarItem>& items)
    {
        QStringList labels;
        for (const BarItem& i : items)
            labels.append(i.label);
        return labels;
    }
    // Clock and control centre at the right; the main item and a collapsed separator left of
    // two applications' items; two "Item-0" items beyond the separator.
    void buildHiddenBar()
    {
        w.app(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"));
        w.app(QStringLiteral("com.example.foo"), QStringLiteral("Foo"));
        w.app(QStringLiteral("com.example.bar"), QStringLiteral("Bar"));
        w.app(QStringLiteral("com.example.sync"), QStringLiteral("Sync"));
        SimItem fixed;
        fixed.bundleId = QStringLiteral("com.apple.controlcenter");
        fixed.fixed = true;
        fixed.title = QStringLiteral("Clock");
        w.desktop.addItem(fixed);
        fixed.title = QStringLiteral("BentoBox-0");
        w.desktop.addItem(fixed);
        w.item(QStringLiteral("com.example.sync"), QStringLiteral("Sync"));
        w.defaults().set(SimDesktop::preferredPositionKey(QStringLiteral("Ravlin.Main")), 22);
        w.defaults().set(SimDesktop::preferredPositionKey(QStringLiteral("Ravlin.HiddenSeparator")),
                         46);
        w.desktop.addOwnItem(QStringLiteral("Ravlin.Main"), 24);
        w.desktop.addOwnItem(QStringLiteral("Ravlin.HiddenSeparator"), 10000);
        hiddenFoo = w.item(QStringLiteral("com.example.foo"), QStringLiteral("Item-0"));
        hiddenBar = w.item(QStringLiteral("com.example.bar"), QStringLiteral("Item-0"));
    }
    std::int64_t hiddenFoo = 0;
    std::int64_t hiddenBar = 0;
};

} // namespace

TEST_F(CaptureEngineTest, KeepsOnlyLayer25WindowsOfStatusItemSize)
{
    w.desktop.addRawWindow(
        window(11, 24, 10, 22, 24, QStringLiteral("A"), QStringLiteral("layer 24")));
    w.desktop.addRawWindow(
        window(12, 26, 20, 22, 24, QStringLiteral("A"), QStringLiteral("layer 26")));
    w.desktop.addRawWindow(
        window(13, 25, 30, 22, 41, QStringLiteral("A"), QStringLiteral("too tall")));
    w.desktop.addRawWindow(
        window(14, 25, 40, 0, 24, QStringLiteral("A"), QStringLiteral("no width")));
    w.desktop.addRawWindow(
        window(15, 25, 50, 22, 40, QStringLiteral("A"), QStringLiteral("just fits")));
    w.desktop.addRawWindow(
        window(16, 25, 60, 22, 0, QStringLiteral("A"), QStringLiteral("no height")));
    EXPECT_EQ(scannedIds(), QList<std::int64_t>({15}));
}

TEST_F(CaptureEngineTest, LeavesOutTheApplicationsOwnItems)
{
    w.desktop.addRawWindow(
        window(21, 25, 10, 22, 24, QStringLiteral("Ravlin"), QStringLiteral("Anything")));
    w.desktop.addRawWindow(
        window(22, 25, 20, 22, 24, QStringLiteral("Other"), QStringLiteral("Ravlin.Main")));
    w.desktop.addRawWindow(
        window(23, 25, 30, 22, 24, QStringLiteral("Other"), QStringLiteral("Mine")));
    EXPECT_EQ(scannedIds(), QList<std::int64_t>({23}));
}

TEST_F(CaptureEngineTest, SkipsOddEntriesAndWindowNumbersBeyond32Bits)
{
    w.desktop.addRawWindow(QStringLiteral("not a window"));
    w.desktop.addRawWindow(
        window(std::int64_t(1) << 32, 25, 10, 22, 24, QStringLiteral("A"), QStringLiteral("huge")));
    w.desktop.addRawWindow(
        window(-3, 25, 20, 22, 24, QStringLiteral("A"), QStringLiteral("negative")));
    PlistValue noPid = window(31, 25, 30, 22, 24, QStringLiteral("A"), QStringLiteral("no pid"));
    PlistDict d = *noPid.asDict();
    d.remove(WindowKey::ownerPID);
    w.desktop.addRawWindow(d);
    w.desktop.addRawWindow(window(32, 25, 40, 22, 24, QStringLiteral("A"), QStringLiteral("fine")));
    EXPECT_EQ(scannedIds(), QList<std::int64_t>({32}));
}

TEST_F(CaptureEngineTest, SortsByXAndKeepsWindowsThatShareIt)
{
    w.desktop.addRawWindow(
        window(41, 25, 300, 22, 24, QStringLiteral("A"), QStringLiteral("right")));
    w.desktop.addRawWindow(
        window(42, 25, 100, 22, 24, QStringLiteral("A"), QStringLiteral("left")));
    w.desktop.addRawWindow(
        window(43, 25, 100, 22, 24, QStringLiteral("A"), QStringLiteral("left too")));
    EXPECT_EQ(scannedIds(), QList<std::int64_t>({42, 43, 41}));
    ASSERT_TRUE(engine().current(43));
    EXPECT_FALSE(engine().current(44));
}

TEST_F(CaptureEngineTest, AnUnreadableWindowListGivesAnEmptyScan)
{
    w.desktop.windowListFails = true;
    EXPECT_TRUE(engine().scanAll().empty());
}

TEST_F(CaptureEngineTest, CapturesOffScreenItemsOnStageAndPutsThemBack)
{
    buildHiddenBar();
    const QList<std::int64_t> before = scannedIds();
    ASSERT_FALSE(w.placed(hiddenFoo).onScreen);
    const double started = w.scheduler.now();

    const auto stage =
        engine().stageLeftOf(w.desktop.placedByTitle(QStringLiteral("Ravlin.Main"))->frame.x);
    const std::vector<BarItem> items =
        engine().captureAll(stage.stageX, stage.menuBarY, stage.thresholdX);

    EXPECT_EQ(capturedLabels(items),
              QStringList({QStringLiteral("Bar"), QStringLiteral("Foo"), QStringLiteral("Sync")}));
    // Each was seen on screen: its captured frame is the stage's, and it has an image.
    EXPECT_GE(items[0].info.x, 0);
    EXPECT_TRUE(items[0].image.has_value());
    EXPECT_EQ(scannedIds(), before);
    EXPECT_FALSE(w.placed(hiddenBar).onScreen);
    // Two moves of 0.15 s and the two settle waits per hidden item.
    EXPECT_NEAR(w.scheduler.now() - started, 2 * (0.15 + 0.30 + 0.15 + 0.24), 1e-9);
}

TEST_F(CaptureEngineTest, NeverReturnsTheClockTheControlCentreOrAKeyTwice)
{
    buildHiddenBar();
    w.item(QStringLiteral("com.example.sync"), QStringLiteral("Sync"));
    const std::vector<BarItem> items = engine().captureAll(1200, 12, 1240);
    QStringList keys;
    for (const BarItem& i : items)
        keys.append(i.key);
    EXPECT_EQ(keys.count(QStringLiteral("n:Sync")), 1);
    EXPECT_FALSE(keys.contains(QStringLiteral("n:Clock")));
    EXPECT_FALSE(keys.contains(QStringLiteral("n:BentoBox-0")));
}

TEST_F(CaptureEngineTest, WithoutScreenRecordingEveryGenericItemIsStaged)
{
    buildHiddenBar();
    w.item(QStringLiteral("com.example.bar"), QStringLiteral("Item-0"));
    w.desktop.screenRecording = false;
    w.desktop.takeEvents();
    engine().captureAll(1200, 12, 1240);
    // Three "Item-0" items, each moved out and back: two presses, two releases, two warps.
    EXPECT_EQ(w.desktop.events().size(), 3u * 6u);
}

TEST_F(CaptureEngineTest, SelfTestReportsAKeptOrder)
{
    buildHiddenBar();
    const QString report = engine().runSelfTest(1200, 12, 1240);
    EXPECT_EQ(report, w.readLog(DiagnosticLogs::captureLog));
    const QStringList lines = report.split(u'\n');
    ASSERT_EQ(lines.size(), 6);
    EXPECT_EQ(lines[0], QStringLiteral("CaptureEngine self-test @ 2026-01-05 09:00:00 +0000"));
    EXPECT_TRUE(lines[1].startsWith(QStringLiteral("  vorher: 5 Items, Reihenfolge-IDs: [%1, %2, ")
                                        .arg(hiddenBar)
                                        .arg(hiddenFoo)));
    EXPECT_EQ(lines[2], QStringLiteral("  → 3 Items captured: [\"Bar\", \"Foo\", \"Sync\"]"));
    EXPECT_EQ(lines[3],
              QString(lines[1]).replace(QStringLiteral("vorher"), QStringLiteral("nachher")));
    EXPECT_EQ(lines[4], QStringLiteral("  ✅ Reihenfolge erhalten"));
}

namespace {

// A window list that gains a window after its first reading, as if an
// application put up an item while the capture ran.
class GrowingWindowServer final : public WindowServer {
public:
    explicit GrowingWindowServer(WindowServer& inner) : m_inner(inner) {}
    std::optional<PlistArray> windowList(WindowListOption option) override
    {
        std::optional<PlistArray> list = m_inner.windowList(option);
        if (m_reads++ > 0)
            list->push_back(
                window(77, 25, 5, 22, 24, QStringLiteral("Late"), QStringLiteral("Late")));
        return list;
    }
    QImage windowImage(std::uint32_t number) override { return m_inner.windowImage(number); }

private:
    WindowServer& m_inner;
    int m_reads = 0;
};

} // namespace

TEST_F(CaptureEngineTest, SelfTestNoticesAChangedOrder)
{
    buildHiddenBar();
    GrowingWindowServer growing(*w.platform.windowServer);
    MenuBarServices& s = w.services();
    MenuBarReader reader(growing, *w.platform.accessibility, *w.platform.workspace,
                         *w.platform.screens);
    CaptureEngine engine(reader, s.itemCapture(), s.moveEngine(), s.itemFactory(), w.scheduler,
                         w.logs());
    const QString report = engine.runSelfTest(1200, 12, 1240);
    EXPECT_TRUE(report.endsWith(QStringLiteral("  ⚠️ Reihenfolge verändert!\n")))
        << qPrintable(report);
}
