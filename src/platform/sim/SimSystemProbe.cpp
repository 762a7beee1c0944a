#include "SimSystemProbe.h"

#include "foundation/Scheduler.h"

namespace ravlin {

double SimSystemProbe::absoluteTime()
{
    return m_scheduler.now();
}

void SimSystemProbe::setBattery(std::optional<PowerSource> battery)
{
    m_powerSources = battery ? QList<PowerSource>{*battery} : QList<PowerSource>{};
}

void SimSystemProbe::setNetwork(std::optional<std::pair<std::uint64_t, std::uint64_t>> rxTx)
{
    if (!rxTx) {
        m_interfaces.reset();
        return;
    }
    m_interfaces = QList<InterfaceBytes>{
        {QStringLiteral("en0"), rxTx->first, rxTx->second, true},
        // Loopback traffic must never show in the figures.
        {QStringLiteral("lo0"), 987654321, 987654321, false},
    };
}

} // namespace ravlin
