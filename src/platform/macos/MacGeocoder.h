#pragma once

#include "platform/Geocoder.h"

#include <memory>

namespace ravlin {

// Reverse geocoding through CoreLocation's geocoder.
class MacGeocoder final : public Geocoder {
public:
    MacGeocoder();
    ~MacGeocoder() override;

    void reverseGeocode(const Coordinate& coordinate, Completion completion) override;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace ravlin
