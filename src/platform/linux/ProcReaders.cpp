#include "ProcReaders.h"

#include "foundation/Logging.h"

#include <QDir>
#include <QFile>

#include <fcntl.h>
#include <ifaddrs.h>
#include <linux/if_link.h>
#include <netpacket/packet.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace ravlin::ProcReaders {
namespace {

// Far more than any file these readers look at; a larger one is not what we expect.
constexpr qsizetype maxFileSize = 1 << 20;

// The whitespace-separated unsigned numbers of a line; absent at the first word that is not one.
std::optional<QList<std::uint64_t>> numbers(const QByteArray& text)
{
    QList<std::uint64_t> values;
    for (const QByteArray& word : text.simplified().split(' ')) {
        if (word.isEmpty())
            continue;
        bool ok = false;
        const qulonglong value = word.toULongLong(&ok);
        if (!ok)
            return std::nullopt;
        values.append(value);
    }
    return values;
}

std::optional<std::int64_t> integerFile(const QString& path)
{
    const auto text = readSmallFile(path);
    if (!text)
        return std::nullopt;
    bool ok = false;
    const qlonglong value = text->trimmed().toLongLong(&ok);
    return ok ? std::optional<std::int64_t>(value) : std::nullopt;
}

QByteArray textFile(const QString& path)
{
    return readSmallFile(path).value_or(QByteArray()).trimmed();
}

// A battery's charge: capacity in percent, else energy (µWh) or charge (µAh) now against full.
PowerSource batteryCharge(const QString& dir)
{
    const QByteArray status = textFile(dir + QStringLiteral("/status"));
    const std::optional<bool> discharging =
        status.isEmpty() ? std::nullopt : std::optional(status == "Discharging");
    if (const auto capacity = integerFile(dir + QStringLiteral("/capacity")))
        return {*capacity, 100, discharging};
    for (const char* kind : {"energy", "charge"}) {
        const QString prefix = dir + u'/' + QLatin1String(kind);
        const auto now = integerFile(prefix + QStringLiteral("_now"));
        const auto full = integerFile(prefix + QStringLiteral("_full"));
        if (now && full)
            return {*now, *full, discharging};
    }
    qCInfo(lcStats) << "battery without a readable charge:" << dir;
    return {std::nullopt, std::nullopt, discharging};
}

} // namespace

std::optional<QByteArray> readSmallFile(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return std::nullopt;
    QByteArray data;
    std::array<char, 4096> buffer;
    while (data.size() <= maxFileSize) {
        const ssize_t n = ::read(fd, buffer.data(), buffer.size());
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0) {
            ::close(fd);
            return n == 0 ? std::optional<QByteArray>(data) : std::nullopt;
        }
        data.append(buffer.data(), n);
    }
    ::close(fd);
    qCWarning(lcStats) << path << "is larger than expected, not read";
    return std::nullopt;
}

std::optional<CpuTicks> parseProcStat(const QByteArray& text)
{
    const qsizetype end = text.indexOf('\n');
    const QByteArray line = text.left(end < 0 ? text.size() : end);
    if (!line.startsWith("cpu ")) {
        qCWarning(lcStats) << "/proc/stat does not start with the aggregate cpu line";
        return std::nullopt;
    }
    const auto values = numbers(line.mid(4));
    // user nice system idle [iowait irq softirq steal guest guest_nice]; older kernels give fewer.
    if (!values || values->size() < 4) {
        qCWarning(lcStats) << "unreadable cpu line in /proc/stat:" << line;
        return std::nullopt;
    }
    const auto field = [&](qsizetype i) { return i < values->size() ? values->at(i) : 0; };
    CpuTicks ticks;
    ticks.user = field(0);
    ticks.nice = field(1);
    ticks.system = field(2) + field(5) + field(6) + field(7);
    // iowait alone can go back between two reads on a tickless kernel; idle + iowait cannot.
    ticks.idle = field(3) + field(4);
    ticks.width = CpuTicks::Width::Bits64;
    return ticks;
}

std::optional<MemoryUsage> parseMeminfo(const QByteArray& text)
{
    std::optional<std::uint64_t> total;
    std::optional<std::uint64_t> available;
    for (const QByteArray& line : text.split('\n')) {
        const qsizetype colon = line.indexOf(':');
        if (colon <= 0)
            continue;
        const QByteArray key = line.left(colon);
        if (key != "MemTotal" && key != "MemAvailable")
            continue;
        const QList<QByteArray> words = line.mid(colon + 1).simplified().split(' ');
        bool ok = false;
        const qulonglong value = words.value(0).toULongLong(&ok);
        const QByteArray unit = words.value(1);
        if (!ok || (unit != "kB" && !unit.isEmpty()) || value > (UINT64_MAX >> 10)) {
            qCWarning(lcStats) << "unreadable line in /proc/meminfo:" << line;
            return std::nullopt;
        }
        (key == "MemTotal" ? total : available) = unit.isEmpty() ? value : value << 10;
    }
    if (!total || !available) {
        qCWarning(lcStats) << "/proc/meminfo lacks MemTotal or MemAvailable";
        return std::nullopt;
    }
    return MemoryUsage{*available < *total ? *total - *available : 0, *total};
}

std::optional<QList<PowerSource>> readPowerSupplies(const QString& sysRoot)
{
    const QDir dir(sysRoot + QStringLiteral("/class/power_supply"));
    if (!dir.exists())
        return std::nullopt;
    QList<PowerSource> batteries;
    const QStringList names =
        dir.entryList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::System, QDir::Name);
    for (const QString& name : names) {
        const QString path = dir.filePath(name);
        // Peripherals (a mouse, a headset) report batteries of the scope "Device".
        if (textFile(path + QStringLiteral("/type")) != "Battery" ||
            textFile(path + QStringLiteral("/scope")) == "Device" ||
            textFile(path + QStringLiteral("/present")) == "0")
            continue;
        batteries.append(batteryCharge(path));
    }
    return batteries;
}

bool isPhysicalInterface(const QString& sysRoot, const QString& name)
{
    if (name.isEmpty() || name.contains(u'/') || name == u"." || name == u"..")
        return false;
    const QByteArray path = QFile::encodeName(sysRoot + QStringLiteral("/class/net/") + name +
                                              QStringLiteral("/device"));
    return ::access(path.constData(), F_OK) == 0;
}

QList<InterfaceBytes> packetInterfaces(const ifaddrs* list,
                                       const std::function<bool(const QString&)>& counted)
{
    QList<InterfaceBytes> interfaces;
    for (const ifaddrs* entry = list; entry; entry = entry->ifa_next) {
        if (!entry->ifa_addr || entry->ifa_addr->sa_family != AF_PACKET || !entry->ifa_data ||
            !entry->ifa_name)
            continue;
        const auto* stats = static_cast<const rtnl_link_stats*>(entry->ifa_data);
        const QString name = QString::fromLocal8Bit(entry->ifa_name);
        interfaces.append({name, stats->rx_bytes, stats->tx_bytes, counted(name)});
    }
    return interfaces;
}

std::optional<VolumeCapacity> volumeCapacity(const struct statvfs& fs)
{
    // Some file systems leave the fragment size unset; the block size stands for it then.
    const std::uint64_t fragment = fs.f_frsize ? fs.f_frsize : fs.f_bsize;
    std::int64_t total = 0;
    std::int64_t available = 0;
    if (__builtin_mul_overflow(std::uint64_t(fs.f_blocks), fragment, &total) ||
        __builtin_mul_overflow(std::uint64_t(fs.f_bavail), fragment, &available)) {
        qCWarning(lcStats) << "volume figures out of range:" << fs.f_blocks << fs.f_bavail
                           << fragment;
        return std::nullopt;
    }
    return VolumeCapacity{total, available};
}

} // namespace ravlin::ProcReaders
