// The keyboard's two paths to a painted panel, with 60 hidden items over the simulated
// desktop: the global shortcut pressed until the panel's frame is painted, and one
// typed key until the filtered panel is painted. Both must fit in a 16 ms frame.
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include "core/settings/KeyChord.h"
#include "ui/RavlinBar.h"
#include "ui/RavlinBarView.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QTextStream>

#include <benchmark/benchmark.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

QString sixtyItems()
{
    QString script;
    for (int i = 0; i < 60; ++i)
        script += QStringLiteral("app com.example.app%1 \"App %1\"\n"
                                 "item com.example.app%1 \"Status %1\" ax.title=\"Helper %1\"\n")
                      .arg(i);
    return script + QStringLiteral("screen 1440 2400\nstart\nadvance 5\n");
}

struct World {
    QString out, err;
    QTextStream o{&out}, e{&err};
    SandboxSession session{{}};
    ScriptRunner runner{session, o, e};
    const KeyChord shortcut = *KeyChord::parse(QStringLiteral("control+option+command+M"));
    World()
    {
        registerAll(runner);
        runner.run(sixtyItems());
    }
    RavlinBar& panel() { return *session.tilePanel(); }
    void paint() { benchmark::DoNotOptimize(panel().window()->grab().cacheKey()); }
};

void BM_ShortcutToPaintedPanel(benchmark::State& state)
{
    World w;
    for (auto _ : state) {
        w.session.pressKey(w.shortcut);
        w.paint();
        state.PauseTiming();
        w.session.pressKey(w.shortcut);
        w.session.scheduler().advance(0.3);
        state.ResumeTiming();
    }
    w.session.pressKey(w.shortcut);
    state.counters["tiles"] = double(w.panel().view()->tileKeys().size());
}
BENCHMARK(BM_ShortcutToPaintedPanel)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(10)
    ->ReportAggregatesOnly(true);

void BM_KeystrokeToFilteredPanel(benchmark::State& state)
{
    World w;
    w.session.pressKey(w.shortcut);
    RavlinBarView* view = w.panel().view();
    for (auto _ : state) {
        QKeyEvent typed(QEvent::KeyPress, Qt::Key_1, Qt::NoModifier, QStringLiteral("1"));
        QCoreApplication::sendEvent(view, &typed);
        w.paint();
        state.PauseTiming();
        view->setQuery(QString());
        state.ResumeTiming();
    }
}
BENCHMARK(BM_KeystrokeToFilteredPanel)
    ->Unit(benchmark::kMillisecond)
    ->Repetitions(10)
    ->ReportAggregatesOnly(true);

} // namespace
