#include "ForecastRequest.h"

#include "foundation/Logging.h"
#include "platform/LocationService.h"

#include <QUrlQuery>

namespace ravlin::ForecastRequest {
namespace {

const QString forecastPath = QStringLiteral("/v1/forecast");

} // namespace

QUrl defaultEndpoint()
{
    QUrl endpoint(QStringLiteral("https://api.open-meteo.com"));
    const QString configured = qEnvironmentVariable("RAVLIN_FORECAST_URL");
    if (!configured.isEmpty()) {
        const QUrl candidate(configured, QUrl::StrictMode);
        if (candidate.isValid() && !candidate.host().isEmpty())
            endpoint = candidate;
        else
            qCWarning(lcWeather) << "RAVLIN_FORECAST_URL is not a usable URL, ignored:"
                                 << configured;
    }
    if (endpoint.path().isEmpty() || endpoint.path() == u"/")
        endpoint.setPath(forecastPath);
    return endpoint;
}

QUrl url(const QUrl& endpoint, const Coordinate& coordinate)
{
    QUrl url = endpoint;
    QUrlQuery query;
    // asprintf formats with a point whatever the locale.
    query.setQueryItems({
        {QStringLiteral("latitude"), QString::asprintf("%.3f", coordinate.latitude)},
        {QStringLiteral("longitude"), QString::asprintf("%.3f", coordinate.longitude)},
        {QStringLiteral("current"), QStringLiteral("temperature_2m,weather_code")},
        {QStringLiteral("daily"), QStringLiteral("temperature_2m_max,temperature_2m_min")},
        {QStringLiteral("timezone"), QStringLiteral("auto")},
        {QStringLiteral("forecast_days"), QStringLiteral("1")},
    });
    url.setQuery(query);
    return url;
}

} // namespace ravlin::ForecastRequest
