#include "WeatherService.h"

#include <algorithm>
#include <array>

namespace ravlin {
namespace {

struct CodeRow {
    int count;
    std::array<int, 4> codes;
    const char16_t* symbol;
    const char16_t* text;
};

// Tried in order. The texts are fixed German and not translated; code 1 shares
// the clear-sky symbol on purpose.
const CodeRow codeRows[] = {
    {1, {0}, u"sun.max.fill", u"Klar"},
    {1, {1}, u"sun.max.fill", u"Überwiegend klar"},
    {1, {2}, u"cloud.sun.fill", u"Teils bewölkt"},
    {1, {3}, u"cloud.fill", u"Bewölkt"},
    {2, {45, 48}, u"cloud.fog.fill", u"Nebel"},
    {3, {51, 53, 55}, u"cloud.drizzle.fill", u"Nieselregen"},
    {2, {56, 57}, u"cloud.sleet.fill", u"Gefrierender Niesel"},
    {3, {61, 63, 65}, u"cloud.rain.fill", u"Regen"},
    {2, {66, 67}, u"cloud.sleet.fill", u"Gefrierender Regen"},
    {4, {71, 73, 75, 77}, u"cloud.snow.fill", u"Schnee"},
    {3, {80, 81, 82}, u"cloud.heavyrain.fill", u"Schauer"},
    {2, {85, 86}, u"cloud.snow.fill", u"Schneeschauer"},
    {1, {95}, u"cloud.bolt.fill", u"Gewitter"},
    {2, {96, 99}, u"cloud.bolt.rain.fill", u"Gewitter mit Hagel"},
};

} // namespace

WeatherDescription WeatherService::describe(std::optional<int> code)
{
    if (code) {
        for (const CodeRow& row : codeRows) {
            const auto end = row.codes.begin() + row.count;
            if (std::find(row.codes.begin(), end, *code) != end)
                return {QString::fromUtf16(row.symbol), QString::fromUtf16(row.text)};
        }
    }
    return {QStringLiteral("cloud.fill"), QStringLiteral("—")};
}

} // namespace ravlin
