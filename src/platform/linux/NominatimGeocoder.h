#pragma once

#include "platform/Geocoder.h"

#include <QUrl>

#include <memory>

namespace ravlin {

class HttpClient;

// Reverse geocoding with OpenStreetMap's Nominatim service: the city, town or
// village is the locality, the county the sub-administrative area, the state
// the administrative area.
class NominatimGeocoder final : public Geocoder {
public:
    static QUrl defaultEndpoint();

    explicit NominatimGeocoder(std::unique_ptr<HttpClient> http, QUrl endpoint = defaultEndpoint());
    ~NominatimGeocoder() override;

    void reverseGeocode(const Coordinate& coordinate, Completion completion) override;

    // The reverse request for a coordinate.
    QUrl requestUrl(const Coordinate& coordinate) const;
    // The placemarks of a reverse answer (none when the place is unknown); absent
    // when the answer is not a JSON object.
    static std::optional<QList<Placemark>> parseReverse(const QByteArray& body);

private:
    std::unique_ptr<HttpClient> m_http;
    QUrl m_endpoint;
};

} // namespace ravlin
