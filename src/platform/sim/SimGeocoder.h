#pragma once

#include "platform/Geocoder.h"

namespace ravlin {

class Scheduler;

// A geocoder that names every place with the city a script set (an empty name:
// no place found). Answers come on the main queue.
class SimGeocoder final : public Geocoder {
public:
    explicit SimGeocoder(Scheduler& scheduler) : m_scheduler(scheduler) {}

    void reverseGeocode(const Coordinate& coordinate, Completion completion) override;

    void setCity(const QString& city) { m_city = city; }
    // Every later request fails.
    void setFailing(bool failing) { m_failing = failing; }
    int requests() const { return m_requests; }

private:
    Scheduler& m_scheduler;
    QString m_city;
    bool m_failing = false;
    int m_requests = 0;
};

} // namespace ravlin
