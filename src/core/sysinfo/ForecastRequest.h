#pragma once

#include <QUrl>

namespace ravlin {

struct Coordinate;

namespace ForecastRequest {

// The public forecast service, or the one named by RAVLIN_FORECAST_URL (a base
// such as "http://127.0.0.1:8080", or a full endpoint with its own path).
QUrl defaultEndpoint();

// The request for the figures of one place: coordinates with three decimals,
// the current temperature and weather code, today's high and low.
QUrl url(const QUrl& endpoint, const Coordinate& coordinate);

} // namespace ForecastRequest

} // namespace ravlin
