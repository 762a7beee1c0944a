#pragma once

#include "platform/LocationService.h"

#include <memory>

class QGeoPositionInfoSource;

namespace ravlin {

// The position from Qt Positioning's default source. Without any source the
// service reports access as restricted, which the weather tile shows as denied.
// Linux has no authorisation step of its own: a source that exists counts as
// granted until it refuses access.
class QtPositioningLocationService final : public LocationService {
public:
    QtPositioningLocationService();
    ~QtPositioningLocationService() override;

    void setDelegate(LocationServiceDelegate* delegate) override { m_delegate = delegate; }
    void setDesiredAccuracy(double metres) override;
    LocationAuthorization authorizationStatus() const override { return m_status; }
    void requestWhenInUseAuthorization() override {}
    void requestLocation() override;

private:
    void connectSource();
    void setStatus(LocationAuthorization status);

    std::unique_ptr<QGeoPositionInfoSource> m_source;
    LocationServiceDelegate* m_delegate = nullptr;
    LocationAuthorization m_status = LocationAuthorization::Restricted;
};

} // namespace ravlin
