#pragma once

#include "platform/SystemProbe.h"

#include <cstdint>

namespace ravlin {

// The machine's figures from the Mach host statistics, IOKit's power sources,
// the start-up volume's resource values and the interface list.
class MacSystemProbe final : public SystemProbe {
public:
    MacSystemProbe();
    ~MacSystemProbe() override;
    MacSystemProbe(const MacSystemProbe&) = delete;
    MacSystemProbe& operator=(const MacSystemProbe&) = delete;

    std::optional<CpuTicks> cpuTicks() override;
    std::optional<MemoryUsage> memory() override;
    std::optional<QList<PowerSource>> powerSources() override;
    std::optional<VolumeCapacity> rootVolume() override;
    std::optional<QList<InterfaceBytes>> interfaces() override;
    double absoluteTime() override;

private:
    unsigned int m_host = 0; // mach_port_t
    std::uint64_t m_physicalMemory = 0;
};

} // namespace ravlin
