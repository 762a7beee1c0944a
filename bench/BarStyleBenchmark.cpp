// The bar style with 60 items (58 pictures of items and the two system items' symbols),
// built, laid out and painted offscreen at Retina density, as the panel's styles are in
// PanelBenchmark.cpp: it must stay within the panel's budget of 4 ms of a 16 ms frame.
// Pictures are captured images, as on macOS 13 to 26; with the statistics as chips too.
#include "BackingStore.h"
#include "support/PanelWorld.h"

#include "core/sysinfo/SystemStats.h"
#include "core/tiles/PanelContent.h"
#include "ui/PaintCache.h"
#include "ui/RavlinBarView.h"

#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

// A white glyph on a clear ground, as a menu-bar item's picture is.
QImage itemPicture(int i)
{
    QImage picture(44, 48, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::transparent);
    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    p.setPen(QPen(Qt::white, 1.6));
    p.drawRoundedRect(QRectF(4, 5, 14, 14), 3, 3);
    p.drawText(QRectF(4, 5, 14, 14), Qt::AlignCenter, QString(QChar(u'A' + i % 26)));
    return picture;
}

struct BarBench {
    PanelWorld world;
    PanelContent content{world.stats(), world.weather(), world.tiles(), world.language()};
    PanelRequest request;
    PaintCache cache;
    bench::BackingStore backing;

    explicit BarBench(bool statistics = false)
    {
        world.stats().refresh();
        request.groups = PanelWorld::groups(58);
        for (BarItem& item : request.groups.front().items)
            item.image = itemPicture(int(item.info.id));
        request.showWeather = false;
        request.showSystemTiles = statistics;
        request.offerPermissions = false;
    }
    // As long as its content, or as wide as a 1440-point display lets it be (then it scrolls
    // and paints only what is in sight).
    std::unique_ptr<RavlinBarView> view(bool onScreen = false)
    {
        auto v = std::make_unique<RavlinBarView>(
            RavlinBarView::Sources{content, world.tiles(), world.stats(), world.weather(),
                                   QStringLiteral("none"), QStringLiteral("none"),
                                   QStringLiteral("Settings"), &cache},
            request, TileStyle::Bar);
        if (onScreen)
            v->resize(std::min(v->width(), 1440 - 12), v->height());
        return v;
    }
    void paint(RavlinBarView& view)
    {
        backing.paint(view);
    }
};

void BarBuild(benchmark::State& state)
{
    BarBench b;
    for (auto _ : state)
        benchmark::DoNotOptimize(b.view()->contentWidth());
}

void BarPaint(benchmark::State& state)
{
    BarBench b;
    auto view = b.view();
    for (auto _ : state)
        b.paint(*view);
}

void BarBuildLayOutAndPaint(benchmark::State& state)
{
    BarBench b;
    for (auto _ : state)
        b.paint(*b.view());
}

void BarOnScreen(benchmark::State& state)
{
    BarBench b;
    for (auto _ : state)
        b.paint(*b.view(true));
}

void BarWithChipsBuildLayOutAndPaint(benchmark::State& state)
{
    BarBench b(true);
    for (auto _ : state)
        b.paint(*b.view());
}

} // namespace

#define RAVLIN_BAR_BENCH(fn)                                                                      \
    BENCHMARK(fn)->Unit(benchmark::kMillisecond)->Repetitions(15)->ReportAggregatesOnly(true)

RAVLIN_BAR_BENCH(BarBuildLayOutAndPaint);
RAVLIN_BAR_BENCH(BarWithChipsBuildLayOutAndPaint);
RAVLIN_BAR_BENCH(BarBuild);
RAVLIN_BAR_BENCH(BarPaint);
RAVLIN_BAR_BENCH(BarOnScreen);
