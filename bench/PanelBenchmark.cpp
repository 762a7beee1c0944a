// Building, laying out and painting the tile panel with 60 item tiles, per style,
// offscreen at Retina density. One frame's budget is 16 ms; the panel must fit in
// 4 ms of it. Build (sections and layout) and paint are also measured apart.
#include "BackingStore.h"
#include "support/PanelWorld.h"

#include "core/sysinfo/SystemStats.h"
#include "core/tiles/PanelContent.h"
#include "ui/PaintCache.h"
#include "ui/RavlinBarView.h"

#include <QApplication>
#include <QImage>

#include <benchmark/benchmark.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

struct PanelBench {
    PanelWorld world;
    PanelContent content{world.stats(), world.weather(), world.tiles(), world.language()};
    PanelRequest request;
    PaintCache cache; // the panel keeps one across shows
    PanelBench()
    {
        world.stats().refresh();
        // With Wi-Fi and Sound: 58 items, 60 tiles with the permissions.
        request.groups = PanelWorld::groups(56);
        request.hasAccessibility = false;
        request.hasScreenRecording = false;
    }
    // The panel as tall as its content, or as tall as a 1440×900 screen lets it be: then it
    // scrolls and paints only what is in sight.
    std::unique_ptr<RavlinBarView> view(TileStyle style, bool cached, bool onScreen = false)
    {
        auto v = std::make_unique<RavlinBarView>(
            RavlinBarView::Sources{content, world.tiles(), world.stats(), world.weather(),
                                   QStringLiteral("none"), QStringLiteral("none"),
                                   QStringLiteral("Settings"), cached ? &cache : nullptr},
            request, style);
        if (onScreen)
            v->resize(v->width(), std::min(v->height(), tallestOnScreen));
        return v;
    }
    static constexpr int tallestOnScreen = 900 - 24 - 6 - 8;
    void paint(RavlinBarView& view)
    {
        backing.paint(view);
    }
    bench::BackingStore backing;
};

// Without the paint cache, as every frame was drawn before it.
void Uncached(benchmark::State& state, TileStyle style)
{
    PanelBench b;
    for (auto _ : state)
        b.paint(*b.view(style, false));
}

// Sections and layout only.
void Build(benchmark::State& state, TileStyle style)
{
    PanelBench b;
    for (auto _ : state)
        benchmark::DoNotOptimize(b.view(style, true)->contentHeight());
}

// Painting a built panel from a warm cache.
void Paint(benchmark::State& state, TileStyle style)
{
    PanelBench b;
    auto view = b.view(style, true);
    for (auto _ : state)
        b.paint(*view);
}

void PaintUncached(benchmark::State& state, TileStyle style)
{
    PanelBench b;
    auto view = b.view(style, false);
    for (auto _ : state)
        b.paint(*view);
}

// Built and painted as a 1440×900 screen shows it: what is out of sight is not painted.
void OnScreen(benchmark::State& state, TileStyle style)
{
    PanelBench b;
    for (auto _ : state)
        b.paint(*b.view(style, true, true));
}

void OnScreenUncached(benchmark::State& state, TileStyle style)
{
    PanelBench b;
    for (auto _ : state)
        b.paint(*b.view(style, false, true));
}

void BuildLayOutAndPaint(benchmark::State& state, TileStyle style)
{
    PanelBench b;
    for (auto _ : state)
        b.paint(*b.view(style, true));
}

} // namespace

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

#define RAVLIN_PANEL_BENCH(fn)                                                                    \
    BENCHMARK_CAPTURE(fn, dashboard, TileStyle::Dashboard)                                       \
        ->Unit(benchmark::kMillisecond)                                                          \
        ->Repetitions(15)                                                                        \
        ->ReportAggregatesOnly(true);                                                            \
    BENCHMARK_CAPTURE(fn, capsules, TileStyle::Capsules)                                         \
        ->Unit(benchmark::kMillisecond)                                                          \
        ->Repetitions(15)                                                                        \
        ->ReportAggregatesOnly(true);                                                            \
    BENCHMARK_CAPTURE(fn, grid, TileStyle::Grid)                                                 \
        ->Unit(benchmark::kMillisecond)                                                          \
        ->Repetitions(15)                                                                        \
        ->ReportAggregatesOnly(true);                                                            \
    BENCHMARK_CAPTURE(fn, strip, TileStyle::Strip)                                               \
        ->Unit(benchmark::kMillisecond)                                                          \
        ->Repetitions(15)                                                                        \
        ->ReportAggregatesOnly(true)

RAVLIN_PANEL_BENCH(Uncached);
RAVLIN_PANEL_BENCH(Build);
RAVLIN_PANEL_BENCH(Paint);
RAVLIN_PANEL_BENCH(PaintUncached);
RAVLIN_PANEL_BENCH(OnScreen);
RAVLIN_PANEL_BENCH(OnScreenUncached);
