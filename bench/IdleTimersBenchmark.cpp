// How often timers fire while the application rests: plain mode, collapsed, panel
// closed, without rules, with rules of every kind set, and with the bar style, every menu-bar
// gesture and an item's shortcut switched on. A resting menu-bar tool must not
// wake up at all, so the figure must be 0.
#include "sandbox/SandboxCommands.h"
#include "sandbox/SandboxSession.h"
#include "sandbox/ScriptRunner.h"

#include <QApplication>
#include <QTextStream>

#include <benchmark/benchmark.h>

using namespace ravlin::sandbox;

namespace {

// Rules on every condition there is; the time of day's next boundary lies hours ahead of the
// simulated clock's morning.
const QString everyRule = QStringLiteral(
    "layout save Work\n"
    "rule add all when display battery wifi=Office app=com.example.sync front=com.example.chat "
    "focus=Work time=18:00-19:00 then layout=Work reveal=5 style=grid \"show=n:Chat Status\"\n"
    "rule add evening when time=20:00-23:00 then style=strip\n"
    "advance 5\n");

const QString everyGesture = QStringLiteral(
    "prefs set tileStyle \"bar\"\n"
    "prefs set revealOnMenuBarClick true\n"
    "prefs set revealOnMenuBarScroll true\n"
    "prefs set revealOnMenuBarHover true\n"
    "settings open 1\n"
    "settings record \"shortcut:n:Chat Status\"\n"
    "key ctrl+opt+cmd+C\n"
    "settings close\n"
    "advance 5\n");

// A desktop with a few applications, started and left alone until start-up settled, by a
// user past the first start (the welcome window looks at the permissions while it shows).
std::uint64_t firingsPerRestingMinute(const QString& more = QString())
{
    QString out, err;
    QTextStream o(&out), e(&err);
    SandboxSession session({});
    ScriptRunner runner(session, o, e);
    registerAll(runner);
    const int status = runner.run(QStringLiteral("app com.apple.controlcenter \"Control Center\"\n"
                              "app com.example.chat \"Chat\"\n"
                              "app com.example.sync \"Sync\"\n"
                              "item com.apple.controlcenter \"Clock\" fixed width=80\n"
                              "item com.example.chat \"Chat Status\"\n"
                              "item com.example.sync \"Item-0\"\n"
                              "defaults write ravlin.welcomeShown true\n"
                              "start\n"
                              "advance 5\n") +
               more);
    // A script that failed half-way would measure some other, quieter state.
    if (status != 0)
        qFatal("the resting state could not be set up: %s", qPrintable(err));
    const std::uint64_t before = session.scheduler().firedCount();
    session.scheduler().advance(60);
    return session.scheduler().firedCount() - before;
}

// Measures one resting state; any firing at all is a fault, said in the benchmark's output.
void measureRest(benchmark::State& state, const QString& more, const char* fault)
{
    std::uint64_t firings = 0;
    for (auto _ : state)
        firings = firingsPerRestingMinute(more);
    state.counters["firings_per_minute"] = double(firings);
    if (firings != 0)
        state.SkipWithError(fault);
}

void BM_IdleTimerFiringsPerMinute(benchmark::State& state)
{
    measureRest(state, QString(), "timers fire while the application rests");
}
BENCHMARK(BM_IdleTimerFiringsPerMinute)->Iterations(3)->Unit(benchmark::kMillisecond);

void BM_IdleTimerFiringsPerMinuteWithRules(benchmark::State& state)
{
    measureRest(state, everyRule, "timers fire while the application rests with rules set");
}
BENCHMARK(BM_IdleTimerFiringsPerMinuteWithRules)->Iterations(3)->Unit(benchmark::kMillisecond);

void BM_IdleTimerFiringsPerMinuteWithGestures(benchmark::State& state)
{
    measureRest(state, everyGesture, "timers fire while the application rests with the gestures on");
}
BENCHMARK(BM_IdleTimerFiringsPerMinuteWithGestures)->Iterations(3)->Unit(benchmark::kMillisecond);

} // namespace
