#pragma once

#include "platform/SystemProbe.h"

namespace ravlin {

class Scheduler;

// A system probe whose figures a script sets. It starts as a machine that
// answers nothing and has no battery; its clock is the scheduler's.
class SimSystemProbe final : public SystemProbe {
public:
    explicit SimSystemProbe(const Scheduler& scheduler) : m_scheduler(scheduler) {}

    std::optional<CpuTicks> cpuTicks() override { return m_cpu; }
    std::optional<MemoryUsage> memory() override { return m_memory; }
    std::optional<QList<PowerSource>> powerSources() override { return m_powerSources; }
    std::optional<VolumeCapacity> rootVolume() override { return m_volume; }
    std::optional<QList<InterfaceBytes>> interfaces() override { return m_interfaces; }
    double absoluteTime() override;

    // Absent: the reading fails from now on.
    void setCpu(std::optional<CpuTicks> ticks) { m_cpu = ticks; }
    void setMemory(std::optional<MemoryUsage> memory) { m_memory = memory; }
    // Absent: the machine has no battery.
    void setBattery(std::optional<PowerSource> battery);
    void setVolume(std::optional<VolumeCapacity> volume) { m_volume = volume; }
    // The totals of the machine's one network interface; absent: the list fails.
    void setNetwork(std::optional<std::pair<std::uint64_t, std::uint64_t>> rxTx);

private:
    const Scheduler& m_scheduler;
    std::optional<CpuTicks> m_cpu;
    std::optional<MemoryUsage> m_memory;
    std::optional<QList<PowerSource>> m_powerSources = QList<PowerSource>{};
    std::optional<VolumeCapacity> m_volume;
    std::optional<QList<InterfaceBytes>> m_interfaces;
};

} // namespace ravlin
