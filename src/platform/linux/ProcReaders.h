#pragma once

#include "platform/SystemProbe.h"

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>

struct ifaddrs;
struct statvfs;

namespace ravlin::ProcReaders {

// A small file of /proc or /sys read whole (their sizes are not known in advance);
// absent when it cannot be read.
std::optional<QByteArray> readSmallFile(const QString& path);

// The aggregate "cpu" line of /proc/stat: user, system (with irq, softirq and
// steal), idle (with iowait) and nice, as 64-bit counters.
std::optional<CpuTicks> parseProcStat(const QByteArray& text);

// MemTotal − MemAvailable against MemTotal of /proc/meminfo, in bytes.
std::optional<MemoryUsage> parseMeminfo(const QByteArray& text);

// The machine's batteries under SYSROOT/class/power_supply, by name: capacity in
// percent, else energy or charge now against full. Peripherals' batteries and
// absent ones are left out. Absent when the folder cannot be read.
std::optional<QList<PowerSource>> readPowerSupplies(const QString& sysRoot);

// Network hardware has a device behind it (SYSROOT/class/net/NAME/device);
// loopback, tunnels, bridges and the like do not.
bool isPhysicalInterface(const QString& sysRoot, const QString& name);

// The link-layer entries of an interface-address list with their byte counters.
QList<InterfaceBytes> packetInterfaces(const ifaddrs* list,
                                       const std::function<bool(const QString&)>& counted);

// Capacity from statvfs: blocks × fragment size, and the blocks an unprivileged
// user may still take × fragment size. Absent when the figures overflow.
std::optional<VolumeCapacity> volumeCapacity(const struct statvfs& fs);

} // namespace ravlin::ProcReaders
