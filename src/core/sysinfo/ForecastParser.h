#pragma once

#include <QByteArray>

#include <optional>

namespace ravlin {

// The figures read from one forecast answer; a member that is missing or of
// the wrong type is absent.
struct Forecast {
    std::optional<double> temperature; // current, degrees Celsius at 2 m
    std::optional<int> code;           // current WMO weather interpretation code
    std::optional<double> high;        // today's maximum
    std::optional<double> low;         // today's minimum

    bool operator==(const Forecast&) const = default;
};

namespace ForecastParser {

// Absent when the body is not a JSON object; such an answer changes nothing.
std::optional<Forecast> parse(const QByteArray& body);

} // namespace ForecastParser

} // namespace ravlin
