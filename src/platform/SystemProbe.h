#pragma once

#include <QList>
#include <QString>

#include <cstdint>
#include <optional>

namespace ravlin {

// The processor's accumulated ticks per state. How wide the kernel's counters
// are decides how a decrease between two samples is read: a 32-bit counter
// wraps, a 64-bit one only goes back when it was reset.
struct CpuTicks {
    enum class Width { Bits32, Bits64 };
    std::uint64_t user = 0;
    std::uint64_t system = 0;
    std::uint64_t idle = 0;
    std::uint64_t nice = 0;
    Width width = Width::Bits32;
};

// Memory in use and physical memory, in bytes.
struct MemoryUsage {
    std::uint64_t usedBytes = 0;
    std::uint64_t totalBytes = 0;
};

// One power source as the system describes it; either capacity may be unknown.
struct PowerSource {
    std::optional<std::int64_t> currentCapacity;
    std::optional<std::int64_t> maxCapacity;
    // Whether the machine draws on this battery now rather than on external power.
    std::optional<bool> discharging;
};

// The capacity of the start-up volume, in bytes; either value may be unknown.
struct VolumeCapacity {
    std::optional<std::int64_t> totalBytes;
    std::optional<std::int64_t> availableBytes;
};

// Byte counters of one network interface. `counted` tells whether the platform
// sees it as one of the machine's own network hardware (not loopback, tunnels, bridges).
struct InterfaceBytes {
    QString name;
    std::uint64_t rxBytes = 0;
    std::uint64_t txBytes = 0;
    bool counted = false;
};

// Reads the machine's raw figures. Each reading is a value: absent when the
// system cannot give it. The rules that turn them into statistics are the core's.
class SystemProbe {
public:
    virtual ~SystemProbe() = default;

    virtual std::optional<CpuTicks> cpuTicks() = 0;
    virtual std::optional<MemoryUsage> memory() = 0;
    // Absent when the system's list of power sources cannot be had.
    virtual std::optional<QList<PowerSource>> powerSources() = 0;
    virtual std::optional<VolumeCapacity> rootVolume() = 0;
    // Absent when the interfaces cannot be listed.
    virtual std::optional<QList<InterfaceBytes>> interfaces() = 0;
    // Seconds of a clock that never goes back.
    virtual double absoluteTime() = 0;
};

} // namespace ravlin
