#pragma once

#include "platform/SystemProbe.h"

#include <QString>

namespace ravlin {

// The machine's figures from /proc, /sys, statvfs and getifaddrs. The roots can
// be moved so that sample trees stand in for the real ones.
class LinuxSystemProbe final : public SystemProbe {
public:
    struct Roots {
        QString proc = QStringLiteral("/proc");
        QString sys = QStringLiteral("/sys");
        QString volume = QStringLiteral("/");
    };

    LinuxSystemProbe() = default;
    explicit LinuxSystemProbe(Roots roots) : m_roots(std::move(roots)) {}

    std::optional<CpuTicks> cpuTicks() override;
    std::optional<MemoryUsage> memory() override;
    std::optional<QList<PowerSource>> powerSources() override;
    std::optional<VolumeCapacity> rootVolume() override;
    std::optional<QList<InterfaceBytes>> interfaces() override;
    double absoluteTime() override;

private:
    Roots m_roots;
};

} // namespace ravlin
