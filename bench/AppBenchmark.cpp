// Start-up and the full rebuild over the simulated desktop. Virtual time costs no
// real time here, so what these measure is the program's own work: the rebuild's
// figure is its overhead beyond the waits it makes on purpose.
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/bar/StatusBarController.h"
#include "platform/sim/SimStatusBar.h"

#include <QApplication>
#include <QFile>
#include <QTextStream>

#include <benchmark/benchmark.h>

using namespace ravlin;
using namespace ravlin::sandbox;

namespace {

const QString desktop = QStringLiteral("app com.apple.controlcenter \"Control Center\"\n"
                                       "item com.apple.controlcenter \"Clock\" fixed width=80\n"
                                       "item com.apple.controlcenter \"BentoBox-0\" fixed\n"
                                       "item com.apple.controlcenter \"WiFi\"\n"
                                       "item com.apple.controlcenter \"Battery\"\n");

QString sampleApps(int count)
{
    QString script = desktop;
    for (int i = 0; i < count; ++i) {
        script += QStringLiteral("app com.example.app%1 \"App %1\"\n").arg(i);
        script +=
            QStringLiteral("item com.example.app%1 \"%2\"\n")
                .arg(i)
                .arg(i % 3 == 0 ? QStringLiteral("Item-0") : QStringLiteral("Status %1").arg(i));
    }
    return script;
}

double residentMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').value(0).toDouble() / 1024.0;
    }
    return 0;
}

struct Session {
    QString out, err;
    QTextStream o{&out}, e{&err};
    SandboxSession session{{}};
    ScriptRunner runner{session, o, e};
    Session() { registerAll(runner); }
};

void BM_StartupToStatusItems(benchmark::State& state)
{
    const QString setup = sampleApps(12);
    for (auto _ : state) {
        state.PauseTiming();
        auto s = std::make_unique<Session>();
        s->runner.run(setup);
        state.ResumeTiming();
        s->runner.run(QStringLiteral("start\n"));
        benchmark::DoNotOptimize(s->session.statusBar().item(StatusBarController::mainName));
        state.PauseTiming();
        s.reset();
        state.ResumeTiming();
    }
    state.counters["resident_MB_after_startup"] = residentMegabytes();
}
BENCHMARK(BM_StartupToStatusItems)->Unit(benchmark::kMillisecond);

void BM_FullRebuildOverhead(benchmark::State& state)
{
    Session s;
    s.runner.run(sampleApps(12) + QStringLiteral("start\nadvance 5\n"));
    for (auto _ : state) {
        s.session.app().statusBar()->rebuildFullCache();
        s.session.scheduler().advance(2); // the deliberate waits pass in virtual time
    }
}
BENCHMARK(BM_FullRebuildOverhead)->Unit(benchmark::kMillisecond);

} // namespace
