#include "LinuxSystemProbe.h"

#include "ProcReaders.h"
#include "foundation/Logging.h"

#include <QFile>

#include <ifaddrs.h>
#include <sys/statvfs.h>
#include <time.h>

#include <cstring>
#include <memory>

namespace ravlin {

std::optional<CpuTicks> LinuxSystemProbe::cpuTicks()
{
    const auto text = ProcReaders::readSmallFile(m_roots.proc + QStringLiteral("/stat"));
    return text ? ProcReaders::parseProcStat(*text) : std::nullopt;
}

std::optional<MemoryUsage> LinuxSystemProbe::memory()
{
    const auto text = ProcReaders::readSmallFile(m_roots.proc + QStringLiteral("/meminfo"));
    return text ? ProcReaders::parseMeminfo(*text) : std::nullopt;
}

std::optional<QList<PowerSource>> LinuxSystemProbe::powerSources()
{
    return ProcReaders::readPowerSupplies(m_roots.sys);
}

std::optional<VolumeCapacity> LinuxSystemProbe::rootVolume()
{
    struct statvfs fs {};
    if (::statvfs(QFile::encodeName(m_roots.volume).constData(), &fs) != 0) {
        qCWarning(lcStats) << "statvfs of" << m_roots.volume << "failed:" << std::strerror(errno);
        return std::nullopt;
    }
    return ProcReaders::volumeCapacity(fs);
}

std::optional<QList<InterfaceBytes>> LinuxSystemProbe::interfaces()
{
    ifaddrs* raw = nullptr;
    if (::getifaddrs(&raw) != 0) {
        qCWarning(lcStats) << "getifaddrs failed:" << std::strerror(errno);
        return std::nullopt;
    }
    const std::unique_ptr<ifaddrs, decltype(&::freeifaddrs)> list(raw, &::freeifaddrs);
    const QString sys = m_roots.sys;
    return ProcReaders::packetInterfaces(list.get(), [&sys](const QString& name) {
        return ProcReaders::isPhysicalInterface(sys, name);
    });
}

double LinuxSystemProbe::absoluteTime()
{
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    return double(now.tv_sec) + double(now.tv_nsec) / 1e9;
}

} // namespace ravlin
