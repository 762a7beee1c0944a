#pragma once

#include "LocationService.h"

#include <QList>
#include <QString>

#include <functional>
#include <optional>

namespace ravlin {

// The names of a place, each as the geocoder knows it.
struct Placemark {
    std::optional<QString> locality;
    std::optional<QString> subAdministrativeArea;
    std::optional<QString> administrativeArea;
};

// Names the place at a coordinate.
class Geocoder {
public:
    // The placemarks found, best first (empty when none); absent on failure.
    // Called once, on the main thread; possibly before reverseGeocode returns.
    using Completion = std::function<void(std::optional<QList<Placemark>>)>;

    virtual ~Geocoder() = default;
    virtual void reverseGeocode(const Coordinate& coordinate, Completion completion) = 0;
};

} // namespace ravlin
