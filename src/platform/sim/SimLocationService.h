#pragma once

#include "platform/LocationService.h"

#include <optional>

namespace ravlin {

class Scheduler;

// A location service whose status and position a script sets. Answers come on
// the main queue, as the real service's delegate calls do. Nobody answers an
// authorisation request by itself: the script decides, by setting a status.
class SimLocationService final : public LocationService {
public:
    explicit SimLocationService(Scheduler& scheduler) : m_scheduler(scheduler) {}

    void setDelegate(LocationServiceDelegate* delegate) override { m_delegate = delegate; }
    void setDesiredAccuracy(double metres) override { m_accuracy = metres; }
    LocationAuthorization authorizationStatus() const override { return m_status; }
    void requestWhenInUseAuthorization() override { ++m_authorizationRequests; }
    void requestLocation() override;

    // A changed status is told to the delegate when announce is set (a change
    // after launch); setting up the world before launch tells nobody.
    void setStatus(LocationAuthorization status, bool announce = true);
    void setPosition(std::optional<Coordinate> position) { m_position = position; }

    double desiredAccuracy() const { return m_accuracy; }
    int authorizationRequests() const { return m_authorizationRequests; }
    int locationRequests() const { return m_locationRequests; }

private:
    Scheduler& m_scheduler;
    LocationServiceDelegate* m_delegate = nullptr;
    LocationAuthorization m_status = LocationAuthorization::NotDetermined;
    std::optional<Coordinate> m_position;
    double m_accuracy = 0;
    int m_authorizationRequests = 0;
    int m_locationRequests = 0;
};

} // namespace ravlin
