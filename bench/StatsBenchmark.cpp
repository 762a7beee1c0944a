// The cost of one statistics sampling pass over this machine's real figures,
// and of each reading in it. The pass must stay well under 200 µs of CPU time.
#include "foundation/VirtualScheduler.h"
#include "core/sysinfo/SystemStats.h"
#include "platform/linux/LinuxSystemProbe.h"

#include <benchmark/benchmark.h>

using namespace ravlin;

static void SamplingPass(benchmark::State& state)
{
    VirtualScheduler scheduler;
    LinuxSystemProbe probe;
    SystemStats stats(scheduler, probe);
    for (auto _ : state) {
        stats.refresh();
        benchmark::DoNotOptimize(stats.cpu());
    }
}
BENCHMARK(SamplingPass);

template <class Read> static void Reading(benchmark::State& state, Read read)
{
    LinuxSystemProbe probe;
    for (auto _ : state)
        benchmark::DoNotOptimize(read(probe));
}
BENCHMARK_CAPTURE(Reading, cpuTicks, [](LinuxSystemProbe& p) { return p.cpuTicks(); });
BENCHMARK_CAPTURE(Reading, memory, [](LinuxSystemProbe& p) { return p.memory(); });
BENCHMARK_CAPTURE(Reading, powerSources, [](LinuxSystemProbe& p) { return p.powerSources(); });
BENCHMARK_CAPTURE(Reading, rootVolume, [](LinuxSystemProbe& p) { return p.rootVolume(); });
BENCHMARK_CAPTURE(Reading, interfaces, [](LinuxSystemProbe& p) { return p.interfaces(); });

BENCHMARK_MAIN();
