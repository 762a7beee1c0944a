#pragma once

#include "platform/LocationService.h"

#include <memory>

namespace ravlin {

// The position from CoreLocation's location manager, one request at a time.
class MacLocationService final : public LocationService {
public:
    MacLocationService();
    ~MacLocationService() override;

    void setDelegate(LocationServiceDelegate* delegate) override;
    void setDesiredAccuracy(double metres) override;
    LocationAuthorization authorizationStatus() const override;
    void requestWhenInUseAuthorization() override;
    void requestLocation() override;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace ravlin
