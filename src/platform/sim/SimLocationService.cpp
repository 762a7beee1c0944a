#include "SimLocationService.h"

#include "foundation/Scheduler.h"

namespace ravlin {

void SimLocationService::requestLocation()
{
    ++m_locationRequests;
    const bool granted = m_status == LocationAuthorization::AuthorizedAlways ||
                         m_status == LocationAuthorization::AuthorizedWhenInUse;
    const std::optional<Coordinate> position = granted ? m_position : std::nullopt;
    m_scheduler.async([this, position] {
        if (!m_delegate)
            return;
        if (position)
            m_delegate->locationsUpdated({*position});
        else
            m_delegate->locationFailed(QStringLiteral("no position known"));
    });
}

void SimLocationService::setStatus(LocationAuthorization status, bool announce)
{
    if (status == m_status)
        return;
    m_status = status;
    if (!announce)
        return;
    m_scheduler.async([this, status] {
        if (m_delegate)
            m_delegate->locationAuthorizationChanged(status);
    });
}

} // namespace ravlin
