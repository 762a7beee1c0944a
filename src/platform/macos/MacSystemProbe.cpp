#include "MacSystemProbe.h"

#include "CFRef.h"
#include "foundation/Logging.h"

#include <CoreFoundation/CoreFoundation.h>
#include <IOKit/ps/IOPSKeys.h>
#include <IOKit/ps/IOPowerSources.h>
#include <mach/mach.h>
#include <net/if.h>
#include <net/if_dl.h>
#include <net/if_var.h>
#include <net/route.h>
#include <sys/socket.h>
#include <sys/sysctl.h>

#include <memory>
#include <vector>

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

// The interface list with 64-bit counters (NET_RT_IFLIST2). The if_data that getifaddrs
// hands out counts in 32 bits and wraps every 4 GiB, which a busy link does in minutes.
std::optional<QList<InterfaceBytes>> MacSystemProbe::interfaces()
{
    int request[] = {CTL_NET, PF_ROUTE, 0, 0, NET_RT_IFLIST2, 0};
    size_t length = 0;
    if (sysctl(request, 6, nullptr, &length, nullptr, 0) != 0)
        return std::nullopt;
    std::vector<char> buffer(length);
    if (sysctl(request, 6, buffer.data(), &length, nullptr, 0) != 0)
        return std::nullopt;
    QList<InterfaceBytes> interfaces;
    for (size_t offset = 0; offset + sizeof(if_msghdr) <= length;) {
        const auto* header = reinterpret_cast<const if_msghdr*>(buffer.data() + offset);
        if (header->ifm_msglen == 0)
            break;
        const size_t messageEnd = offset + header->ifm_msglen;
        offset = messageEnd;
        if (header->ifm_type != RTM_IFINFO2 || messageEnd > length ||
            header->ifm_msglen < sizeof(if_msghdr2) + sizeof(sockaddr_dl))
            continue;
        const auto* info = reinterpret_cast<const if_msghdr2*>(header);
        const auto* link = reinterpret_cast<const sockaddr_dl*>(info + 1);
        if (link->sdl_family != AF_LINK)
            continue;
        const QString name = QString::fromUtf8(link->sdl_data, link->sdl_nlen);
        // Ethernet and Wi-Fi are the "en" interfaces; loopback, tunnels and bridges are not
        // counted.
        interfaces.append({name, info->ifm_data.ifi_ibytes, info->ifm_data.ifi_obytes,
                           name.startsWith(u"en")});
    }
    return interfaces;
}

double MacSystemProbe::absoluteTime()
{
    return CFAbsoluteTimeGetCurrent();
}

} // namespace ravlin
