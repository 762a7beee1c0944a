#include "SimGeocoder.h"

#include "foundation/Scheduler.h"

namespace ravlin {

void SimGeocoder::reverseGeocode(const Coordinate&, Completion completion)
{
    ++m_requests;
    std::optional<QList<Placemark>> answer;
    if (!m_failing) {
        answer = QList<Placemark>{};
        if (!m_city.isEmpty())
            answer->append(Placemark{m_city, std::nullopt, std::nullopt});
    }
    m_scheduler.async([completion = std::move(completion), answer] { completion(answer); });
}

} // namespace ravlin
