#include "WeatherService.h"

#include "ForecastParser.h"
#include "ForecastRequest.h"
#include "foundation/Logging.h"
#include "foundation/Scheduler.h"
#include "platform/Geocoder.h"
#include "platform/HttpClient.h"

#include <QPointer>

#include <cmath>

namespace ravlin {
namespace {

bool isUsable(const Coordinate& c)
{
    return std::isfinite(c.latitude) && std::isfinite(c.longitude) &&
           std::abs(c.latitude) <= 90.0 && std::abs(c.longitude) <= 180.0;
}

std::optional<QString> placeName(const Placemark& placemark)
{
    if (placemark.locality)
        return placemark.locality;
    if (placemark.subAdministrativeArea)
        return placemark.subAdministrativeArea;
    return placemark.administrativeArea;
}

} // namespace

WeatherService::WeatherService(Scheduler& scheduler, LocationService& location, Geocoder& geocoder,
                               HttpClient& http, QObject* parent)
    : QObject(parent), m_scheduler(scheduler), m_location(location), m_geocoder(geocoder),
      m_http(http), m_endpoint(ForecastRequest::defaultEndpoint())
{
    m_location.setDelegate(this);
    m_location.setDesiredAccuracy(desiredAccuracyMetres);
}

WeatherService::~WeatherService()
{
    m_location.setDelegate(nullptr);
}

template <class Write> void WeatherService::publish(Write&& write)
{
    Q_EMIT willChange();
    write();
    Q_EMIT changed();
}

void WeatherService::refreshIfStale()
{
    if (m_lastFetch && m_scheduler.now() - *m_lastFetch <= freshness)
        return;
    switch (m_location.authorizationStatus()) {
    case LocationAuthorization::NotDetermined:
        m_location.requestWhenInUseAuthorization();
        break;
    case LocationAuthorization::AuthorizedAlways:
        m_location.requestLocation();
        break;
    default:
        // Only full authorisation counts; when-in-use is treated as refused, as the tile always
        // has.
        setDenied(true);
        break;
    }
}

bool WeatherService::hasLocationAccess() const
{
    return m_location.authorizationStatus() == LocationAuthorization::AuthorizedAlways;
}

bool WeatherService::askForLocationAccess()
{
    if (m_location.authorizationStatus() != LocationAuthorization::NotDetermined)
        return false;
    m_location.requestWhenInUseAuthorization();
    return true;
}

void WeatherService::locationAuthorizationChanged(LocationAuthorization status)
{
    switch (status) {
    case LocationAuthorization::Restricted:
    case LocationAuthorization::Denied:
        setDenied(true);
        break;
    case LocationAuthorization::AuthorizedAlways:
        setDenied(false);
        m_location.requestLocation();
        break;
    default:
        break;
    }
    Q_EMIT locationAccessChanged();
}

void WeatherService::locationsUpdated(const QList<Coordinate>& locations)
{
    if (locations.isEmpty())
        return;
    const Coordinate coordinate = locations.last();
    if (!isUsable(coordinate)) {
        qCWarning(lcWeather) << "location service gave an impossible position"
                             << coordinate.latitude << coordinate.longitude;
        return;
    }
    reverseGeocode(coordinate);
    fetch(coordinate);
}

void WeatherService::locationFailed(const QString& error)
{
    // No retry of its own: lastFetch stays where it was, so the next refresh tries again.
    qCInfo(lcWeather) << "no location:" << error;
}

void WeatherService::reverseGeocode(const Coordinate& coordinate)
{
    QPointer<WeatherService> self(this);
    m_geocoder.reverseGeocode(coordinate, [self](std::optional<QList<Placemark>> placemarks) {
        if (!self || !placemarks || placemarks->isEmpty())
            return;
        const std::optional<QString> name = placeName(placemarks->first());
        self->m_scheduler.async([self, name] {
            if (self)
                self->setCity(name);
        });
    });
}

void WeatherService::fetch(const Coordinate& coordinate)
{
    const QUrl url = ForecastRequest::url(m_endpoint, coordinate);
    if (!url.isValid()) {
        qCWarning(lcWeather) << "cannot form the forecast request from" << m_endpoint;
        return;
    }
    QPointer<WeatherService> self(this);
    m_http.get(url, [self](std::optional<QByteArray> body) {
        if (!self || !body)
            return;
        self->m_scheduler.background<std::optional<Forecast>>(
            [body = std::move(*body)] { return ForecastParser::parse(body); },
            [self](std::optional<Forecast> forecast) {
                if (self && forecast)
                    self->apply(*forecast);
            });
    });
}

void WeatherService::apply(const Forecast& forecast)
{
    publish([&] {
        // A missing figure leaves the current one standing; the day's range follows the answer.
        if (forecast.temperature)
            m_temp = forecast.temperature;
        if (forecast.code)
            m_code = forecast.code;
        m_high = forecast.high;
        m_low = forecast.low;
    });
    m_lastFetch = m_scheduler.now();
}

void WeatherService::setDenied(bool denied)
{
    publish([&] { m_denied = denied; });
}

void WeatherService::setCity(const std::optional<QString>& city)
{
    publish([&] { m_city = city; });
}

} // namespace ravlin
