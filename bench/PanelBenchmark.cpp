// Building, laying out and painting the tile panel with 40 item tiles, per style,
// offscreen at Retina density. One frame's budget is 16 ms; the panel must fit in it.
#include "support/PanelWorld.h"

#include "core/sysinfo/SystemStats.h"
#include "core/tiles/PanelContent.h"
#include "ui/RavlinBarView.h"

#include <QApplication>
#include <QImage>

#include <benchmark/benchmark.h>

using namespace ravlin;
using namespace ravlin::test;

static void BuildLayOutAndPaint(benchmark::State& state, TileStyle style)
{
    PanelWorld world;
    world.stats().refresh();
    const PanelContent content(world.stats(), world.weather(), world.tiles(), world.language());
    PanelRequest request;
    request.groups =
        PanelWorld::groups(36); // with Wi-Fi and Sound: 38 items, 40 tiles with the permissions
    request.hasAccessibility = false;
    request.hasScreenRecording = false;
    for (auto _ : state) {
        RavlinBarView view(
            {content, world.tiles(), world.stats(), world.weather(), QStringLiteral("none")},
            request, style);
        QImage image(view.size() * 2, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(2);
        image.fill(Qt::transparent);
        view.render(&image);
        benchmark::DoNotOptimize(image.constBits());
    }
}
BENCHMARK_CAPTURE(BuildLayOutAndPaint, dashboard, TileStyle::Dashboard)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(15)
    ->ReportAggregatesOnly(true);
BENCHMARK_CAPTURE(BuildLayOutAndPaint, capsules, TileStyle::Capsules)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(15)
    ->ReportAggregatesOnly(true);
BENCHMARK_CAPTURE(BuildLayOutAndPaint, grid, TileStyle::Grid)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(15)
    ->ReportAggregatesOnly(true);
BENCHMARK_CAPTURE(BuildLayOutAndPaint, strip, TileStyle::Strip)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(15)
    ->ReportAggregatesOnly(true);
