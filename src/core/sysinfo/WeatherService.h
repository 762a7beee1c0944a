#pragma once

#include "platform/LocationService.h"

#include <QObject>
#include <QString>
#include <QUrl>

#include <optional>

namespace ravlin {

class Geocoder;
class HttpClient;
class Scheduler;
struct Forecast;

// A weather code as the tile shows it: a symbol name and a fixed German text.
struct WeatherDescription {
    QString symbol;
    QString text;

    bool operator==(const WeatherDescription&) const = default;
};

// The local weather for the weather tile: the place's name, the current
// temperature and weather code, today's high and low. It asks for a new
// forecast at most once every ten minutes. Every change is announced by
// willChange() before and changed() after.
class WeatherService : public QObject, private LocationServiceDelegate {
    Q_OBJECT
public:
    // Seconds a successful forecast stays fresh.
    static constexpr double freshness = 600;
    static constexpr double desiredAccuracyMetres = 1000;

    WeatherService(Scheduler& scheduler, LocationService& location, Geocoder& geocoder,
                   HttpClient& http, QObject* parent = nullptr);
    ~WeatherService() override;

    // Looks for the place and asks for a forecast, unless the last one is fresh.
    void refreshIfStale();

    static WeatherDescription describe(std::optional<int> code);

    QUrl endpoint() const { return m_endpoint; }
    void setEndpoint(const QUrl& endpoint) { m_endpoint = endpoint; }

    std::optional<QString> city() const { return m_city; }
    std::optional<double> temp() const { return m_temp; }
    std::optional<double> high() const { return m_high; }
    std::optional<double> low() const { return m_low; }
    std::optional<int> code() const { return m_code; }
    bool denied() const { return m_denied; }
    // Whether the weather may look for the place (full authorisation only).
    bool hasLocationAccess() const;
    // Asks the system for location access where it still asks; false where the person
    // must grant it in the privacy settings instead.
    bool askForLocationAccess();

Q_SIGNALS:
    void willChange();
    void changed();
    // The person granted or withdrew location access (the Wi-Fi network's name hangs on it too).
    void locationAccessChanged();

private:
    void locationAuthorizationChanged(LocationAuthorization status) override;
    void locationsUpdated(const QList<Coordinate>& locations) override;
    void locationFailed(const QString& error) override;

    void reverseGeocode(const Coordinate& coordinate);
    void fetch(const Coordinate& coordinate);
    void apply(const Forecast& forecast);
    void setDenied(bool denied);
    void setCity(const std::optional<QString>& city);
    template <class Write> void publish(Write&& write);

    Scheduler& m_scheduler;
    LocationService& m_location;
    Geocoder& m_geocoder;
    HttpClient& m_http;
    QUrl m_endpoint;

    std::optional<QString> m_city;
    std::optional<double> m_temp;
    std::optional<double> m_high;
    std::optional<double> m_low;
    std::optional<int> m_code;
    bool m_denied = false;
    // Monotonic seconds of the last parsed forecast; none yet counts as long ago.
    std::optional<double> m_lastFetch;
};

} // namespace ravlin
