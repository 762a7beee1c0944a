#include "SimLoginItems.h"

namespace ravlin {

std::optional<QString> SimLoginItems::registerItem()
{
    ++m_registerCalls;
    if (!m_failure.isEmpty())
        return m_failure;
    m_status = LoginItemStatus::Enabled;
    return std::nullopt;
}

std::optional<QString> SimLoginItems::unregisterItem()
{
    ++m_unregisterCalls;
    if (!m_failure.isEmpty())
        return m_failure;
    m_status = LoginItemStatus::NotRegistered;
    return std::nullopt;
}

} // namespace ravlin
