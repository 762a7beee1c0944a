#include "WindowListReader.h"

#include "foundation/Logging.h"
#include "platform/WindowServer.h"

#include <limits>

namespace ravlin {

namespace {

std::optional<WindowServerRect> readBounds(const PlistValue& value)
{
    if (!value.isDict())
        return std::nullopt;
    const auto x = value[QStringLiteral("X")].asDouble();
    const auto y = value[QStringLiteral("Y")].asDouble();
    const auto w = value[QStringLiteral("Width")].asDouble();
    const auto h = value[QStringLiteral("Height")].asDouble();
    if (!x || !y || !w || !h)
        return std::nullopt;
    return WindowServerRect{*x, *y, *w, *h};
}

std::optional<std::int32_t> readPid(const PlistValue& value)
{
    const std::optional<std::int64_t> pid = value.asInteger();
    if (!pid || *pid < std::numeric_limits<std::int32_t>::min() ||
        *pid > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
    return std::int32_t(*pid);
}

std::optional<StatusWindow> readEntry(const PlistValue& entry, std::size_t index)
{
    if (!entry.isDict()) {
        qCWarning(lcDiscovery) << "window list entry" << index << "is not a dictionary; skipped";
        return std::nullopt;
    }
    if (entry[WindowKey::layer].asInteger() != WindowListReader::statusWindowLayer)
        return std::nullopt;
    const std::optional<std::int64_t> number = entry[WindowKey::number].asInteger();
    if (!number) {
        qCWarning(lcDiscovery) << "status window entry" << index << "has no window number; skipped";
        return std::nullopt;
    }
    if (*number < 0 || *number > std::numeric_limits<std::uint32_t>::max()) {
        qCWarning(lcDiscovery) << "status window entry" << index << "has the window number"
                               << *number << "outside the unsigned 32-bit range; skipped";
        return std::nullopt;
    }
    StatusWindow w;
    w.number = std::uint32_t(*number);
    w.pid = readPid(entry[WindowKey::ownerPID]);
    w.bounds = readBounds(entry[WindowKey::bounds]);
    w.owner = entry[WindowKey::ownerName].asString().value_or(QString());
    w.name = entry[WindowKey::name].asString().value_or(QString());
    if (!w.pid || !w.bounds)
        qCDebug(lcDiscovery) << "status window" << w.number << "lacks"
                             << (w.pid ? "its bounds" : "its owner's pid");
    return w;
}

} // namespace

std::optional<std::vector<StatusWindow>>
WindowListReader::statusWindows(WindowListOption option) const
{
    const std::optional<PlistArray> list = m_windowServer.windowList(option);
    if (!list) {
        qCWarning(lcDiscovery) << "the window list could not be read";
        return std::nullopt;
    }
    std::vector<StatusWindow> windows;
    for (std::size_t i = 0; i < list->size(); ++i) {
        if (std::optional<StatusWindow> w = readEntry((*list)[i], i))
            windows.push_back(std::move(*w));
    }
    return windows;
}

} // namespace ravlin
