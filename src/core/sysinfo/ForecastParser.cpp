#include "ForecastParser.h"

#include "foundation/Logging.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>

#include <cmath>
#include <limits>

namespace ravlin::ForecastParser {
namespace {

std::optional<double> number(const QJsonValue& value)
{
    if (!value.isDouble() || !std::isfinite(value.toDouble()))
        return std::nullopt;
    return value.toDouble();
}

// A whole number only: 3 and 3.0 are a code, 3.5 is not.
std::optional<int> integer(const QJsonValue& value)
{
    const std::optional<double> n = number(value);
    if (!n || std::trunc(*n) != *n || *n < std::numeric_limits<int>::min() ||
        *n > std::numeric_limits<int>::max())
        return std::nullopt;
    return int(*n);
}

// The first element of a list of numbers; a list holding anything else counts as absent.
std::optional<double> firstOfNumbers(const QJsonValue& value)
{
    if (!value.isArray())
        return std::nullopt;
    const QJsonArray list = value.toArray();
    for (const QJsonValue& element : list) {
        if (!number(element))
            return std::nullopt;
    }
    if (list.isEmpty())
        return std::nullopt;
    return number(list.first());
}

} // namespace

std::optional<Forecast> parse(const QByteArray& body)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        qCInfo(lcWeather) << "forecast answer is not a JSON object:"
                          << (error.error != QJsonParseError::NoError
                                  ? error.errorString()
                                  : QStringLiteral("other JSON"));
        return std::nullopt;
    }
    const QJsonObject root = document.object();
    const QJsonObject current = root.value(QStringLiteral("current")).toObject();
    const QJsonObject daily = root.value(QStringLiteral("daily")).toObject();
    Forecast forecast;
    forecast.temperature = number(current.value(QStringLiteral("temperature_2m")));
    forecast.code = integer(current.value(QStringLiteral("weather_code")));
    forecast.high = firstOfNumbers(daily.value(QStringLiteral("temperature_2m_max")));
    forecast.low = firstOfNumbers(daily.value(QStringLiteral("temperature_2m_min")));
    return forecast;
}

} // namespace ravlin::ForecastParser
