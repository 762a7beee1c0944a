#include "SystemStats.h"

#include "foundation/Logging.h"

#include <QPointer>

#include <cmath>
#include <utility>

namespace ravlin {
namespace {

constexpr double bytesPerGB = 1e9; // decimal units, as the volume figures are shown
constexpr double bytesPerMB = 1e6;

// A 32-bit counter that went back has wrapped: the difference modulo 2^32 is
// what it counted. A 64-bit counter cannot wrap in the machine's life, so going
// back means it was reset and nothing is known of the interval.
std::uint64_t tickDelta(std::uint64_t previous, std::uint64_t now, CpuTicks::Width width)
{
    if (width == CpuTicks::Width::Bits32)
        return std::uint32_t(now - previous);
    if (now < previous) {
        qCWarning(lcStats) << "processor tick counter went back from" << previous << "to" << now;
        return 0;
    }
    return now - previous;
}

double cpuLoad(const CpuTicks& previous, const CpuTicks& now)
{
    const double user = double(tickDelta(previous.user, now.user, now.width));
    const double system = double(tickDelta(previous.system, now.system, now.width));
    const double idle = double(tickDelta(previous.idle, now.idle, now.width));
    const double nice = double(tickDelta(previous.nice, now.nice, now.width));
    const double busy = user + system + nice;
    const double total = busy + idle;
    return total > 0 ? busy / total * 100.0 : 0.0;
}

} // namespace

SystemStats::SystemStats(Scheduler& scheduler, SystemProbe& probe, QObject* parent)
    : QObject(parent), m_scheduler(scheduler), m_probe(probe)
{}

SystemStats::~SystemStats()
{
    m_timer.invalidate();
}

void SystemStats::start(double interval)
{
    if (!std::isfinite(interval) || interval <= 0) {
        qCWarning(lcStats) << "sampling interval" << interval << "makes no sense; using"
                           << defaultInterval;
        interval = defaultInterval;
    }
    refresh();
    QPointer<SystemStats> self(this);
    m_scheduler.after(followUpDelay, [self] {
        if (self)
            self->refresh();
    });
    m_timer.invalidate();
    m_timer = m_scheduler.every(interval, [self] {
        if (self)
            self->refresh();
    });
}

void SystemStats::stop()
{
    m_timer.invalidate();
    m_timer = Timer();
}

template <class Write> void SystemStats::publish(Write&& write)
{
    Q_EMIT willChange();
    write();
    Q_EMIT changed();
}

void SystemStats::refresh()
{
    if (const auto load = readCPU())
        publish([&] { m_cpu = *load; });
    const double ram = readRAM();
    publish([&] { m_ram = ram; });
    const auto battery = readBattery();
    publish([&] { m_battery = battery; });
    readDisk();
    readNetwork();
}

std::optional<double> SystemStats::readCPU()
{
    const std::optional<CpuTicks> ticks = m_probe.cpuTicks();
    if (!ticks)
        return std::nullopt;
    const std::optional<CpuTicks> previous = std::exchange(m_prevCPU, *ticks);
    if (!previous)
        return std::nullopt;
    return cpuLoad(*previous, *ticks);
}

double SystemStats::readRAM()
{
    const std::optional<MemoryUsage> memory = m_probe.memory();
    if (!memory || memory->totalBytes == 0)
        return 0;
    return double(memory->usedBytes) / double(memory->totalBytes) * 100.0;
}

std::optional<double> SystemStats::readBattery()
{
    const auto sources = m_probe.powerSources();
    if (!sources)
        return std::nullopt;
    for (const PowerSource& source : *sources) {
        if (source.currentCapacity && source.maxCapacity && *source.maxCapacity > 0)
            return double(*source.currentCapacity) / double(*source.maxCapacity) * 100.0;
    }
    return std::nullopt;
}

void SystemStats::readDisk()
{
    const std::optional<VolumeCapacity> volume = m_probe.rootVolume();
    if (!volume || !volume->totalBytes || !volume->availableBytes || *volume->totalBytes <= 0)
        return;
    const double total = double(*volume->totalBytes);
    const double used = total - double(*volume->availableBytes);
    publish([&] {
        m_disk = used / total * 100.0;
        m_diskTotalGB = total / bytesPerGB;
        m_diskUsedGB = used / bytesPerGB;
    });
}

SystemStats::NetTotals SystemStats::readNetTotals()
{
    NetTotals totals;
    const auto interfaces = m_probe.interfaces();
    if (!interfaces)
        return totals;
    for (const InterfaceBytes& interface : *interfaces) {
        if (!interface.counted)
            continue;
        totals.rx += interface.rxBytes;
        totals.tx += interface.txBytes;
    }
    return totals;
}

void SystemStats::readNetwork()
{
    const NetTotals totals = readNetTotals();
    const double now = m_probe.absoluteTime();
    if (m_prevNet && m_prevNetTime < now) {
        const double dt = now - m_prevNetTime;
        // A total that dropped (a counter that wrapped, an interface that went away)
        // gives no traffic rather than a negative rate.
        const std::uint64_t received = totals.rx >= m_prevNet->rx ? totals.rx - m_prevNet->rx : 0;
        const std::uint64_t sent = totals.tx >= m_prevNet->tx ? totals.tx - m_prevNet->tx : 0;
        publish([&] {
            m_netDown = double(received) / dt / bytesPerMB;
            m_netUp = double(sent) / dt / bytesPerMB;
        });
    }
    m_prevNet = totals;
    m_prevNetTime = now;
}

} // namespace ravlin
