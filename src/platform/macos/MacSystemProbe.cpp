#include "MacSystemProbe.h"

#include "CFRef.h"
#include "foundation/Logging.h"

#include <CoreFoundation/CoreFoundation.h>
#include <IOKit/ps/IOPSKeys.h>
#include <IOKit/ps/IOPowerSources.h>
#include <ifaddrs.h>
#include <mach/mach.h>
#include <net/if.h>
#include <net/if_var.h>
#include <sys/socket.h>
#include <sys/sysctl.h>

#include <memory>

namespace ravlin {
namespace {

std::optional<std::int64_t> integerOf(CFTypeRef value)
{
    std::int64_t n = 0;
    if (!value || CFGetTypeID(value) != CFNumberGetTypeID() ||
        !CFNumberGetValue(static_cast<CFNumberRef>(value), kCFNumberSInt64Type, &n))
        return std::nullopt;
    return n;
}

std::optional<std::int64_t> volumeValue(CFURLRef url, CFStringRef key)
{
    CFTypeRef raw = nullptr;
    CFErrorRef rawError = nullptr;
    const Boolean ok = CFURLCopyResourcePropertyForKey(url, key, &raw, &rawError);
    const CFRef<CFTypeRef> value(raw);
    const CFRef<CFErrorRef> error(rawError);
    if (!ok || !value)
        return std::nullopt;
    return integerOf(value.get());
}

} // namespace

MacSystemProbe::MacSystemProbe() : m_host(mach_host_self())
{
    std::uint64_t memory = 0;
    std::size_t size = sizeof memory;
    if (sysctlbyname("hw.memsize", &memory, &size, nullptr, 0) == 0)
        m_physicalMemory = memory;
    else
        qCWarning(lcStats) << "physical memory size unknown";
}

MacSystemProbe::~MacSystemProbe()
{
    mach_port_deallocate(mach_task_self(), m_host);
}

std::optional<CpuTicks> MacSystemProbe::cpuTicks()
{
    host_cpu_load_info_data_t info{};
    mach_msg_type_number_t count = HOST_CPU_LOAD_INFO_COUNT;
    if (host_statistics(m_host, HOST_CPU_LOAD_INFO, reinterpret_cast<host_info_t>(&info), &count) !=
        KERN_SUCCESS)
        return std::nullopt;
    CpuTicks ticks;
    ticks.user = info.cpu_ticks[CPU_STATE_USER];
    ticks.system = info.cpu_ticks[CPU_STATE_SYSTEM];
    ticks.idle = info.cpu_ticks[CPU_STATE_IDLE];
    ticks.nice = info.cpu_ticks[CPU_STATE_NICE];
    ticks.width = CpuTicks::Width::Bits32; // natural_t counters wrap
    return ticks;
}

std::optional<MemoryUsage> MacSystemProbe::memory()
{
    vm_statistics64_data_t vm{};
    mach_msg_type_number_t count = HOST_VM_INFO64_COUNT;
    if (host_statistics64(m_host, HOST_VM_INFO64, reinterpret_cast<host_info64_t>(&vm), &count) !=
        KERN_SUCCESS)
        return std::nullopt;
    // Free, inactive, speculative and purgeable pages count as not used.
    const std::uint64_t pages =
        std::uint64_t(vm.active_count) + vm.wire_count + vm.compressor_page_count;
    return MemoryUsage{pages * std::uint64_t(vm_kernel_page_size), m_physicalMemory};
}

std::optional<QList<PowerSource>> MacSystemProbe::powerSources()
{
    const CFRef<CFTypeRef> info(IOPSCopyPowerSourcesInfo());
    if (!info)
        return std::nullopt;
    const CFRef<CFArrayRef> list(IOPSCopyPowerSourcesList(info.get()));
    if (!list || CFGetTypeID(list.get()) != CFArrayGetTypeID())
        return std::nullopt;
    QList<PowerSource> sources;
    for (CFIndex i = 0; i < CFArrayGetCount(list.get()); ++i) {
        // The description belongs to the information blob; it is not released here.
        const CFDictionaryRef description =
            IOPSGetPowerSourceDescription(info.get(), CFArrayGetValueAtIndex(list.get(), i));
        PowerSource source;
        if (description && CFGetTypeID(description) == CFDictionaryGetTypeID()) {
            source.currentCapacity =
                integerOf(CFDictionaryGetValue(description, CFSTR(kIOPSCurrentCapacityKey)));
            source.maxCapacity =
                integerOf(CFDictionaryGetValue(description, CFSTR(kIOPSMaxCapacityKey)));
            const CFTypeRef state =
                CFDictionaryGetValue(description, CFSTR(kIOPSPowerSourceStateKey));
            if (state && CFGetTypeID(state) == CFStringGetTypeID())
                source.discharging = CFEqual(state, CFSTR(kIOPSBatteryPowerValue));
        }
        sources.append(source);
    }
    return sources;
}

std::optional<VolumeCapacity> MacSystemProbe::rootVolume()
{
    const CFRef<CFURLRef> url(
        CFURLCreateWithFileSystemPath(kCFAllocatorDefault, CFSTR("/"), kCFURLPOSIXPathStyle, true));
    if (!url)
        return std::nullopt;
    VolumeCapacity volume;
    volume.totalBytes = volumeValue(url.get(), kCFURLVolumeTotalCapacityKey);
    volume.availableBytes =
        volumeValue(url.get(), kCFURLVolumeAvailableCapacityForImportantUsageKey);
    return volume;
}

std::optional<QList<InterfaceBytes>> MacSystemProbe::interfaces()
{
    ifaddrs* raw = nullptr;
    if (getifaddrs(&raw) != 0)
        return std::nullopt;
    const std::unique_ptr<ifaddrs, decltype(&freeifaddrs)> list(raw, &freeifaddrs);
    QList<InterfaceBytes> interfaces;
    for (const ifaddrs* entry = list.get(); entry; entry = entry->ifa_next) {
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_LINK || !entry->ifa_data ||
            !entry->ifa_name)
            continue;
        const auto* data = static_cast<const if_data*>(entry->ifa_data);
        const QString name = QString::fromUtf8(entry->ifa_name);
        // Ethernet and Wi-Fi are the "en" interfaces; loopback, tunnels and bridges are not
        // counted.
        interfaces.append({name, data->ifi_ibytes, data->ifi_obytes, name.startsWith(u"en")});
    }
    return interfaces;
}

double MacSystemProbe::absoluteTime()
{
    return CFAbsoluteTimeGetCurrent();
}

} // namespace ravlin
