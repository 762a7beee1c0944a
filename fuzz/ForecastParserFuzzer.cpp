// Feeds arbitrary bytes to the forecast parser and describes whatever code it finds.
#include "core/sysinfo/ForecastParser.h"
#include "core/sysinfo/WeatherService.h"

#include <QLoggingCategory>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace ravlin;

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    // A log line per rejected answer would drown the fuzzer's own output.
    QLoggingCategory::setFilterRules(QStringLiteral("de.vexa.Ravlin.*=false"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    const auto forecast = ForecastParser::parse(bytes);
    if (!forecast)
        return 0;
    // Every figure that is present is a finite number.
    for (const auto& figure : {forecast->temperature, forecast->high, forecast->low}) {
        if (figure && !std::isfinite(*figure))
            std::abort();
    }
    const WeatherDescription description = WeatherService::describe(forecast->code);
    if (description.symbol.isEmpty() || description.text.isEmpty())
        std::abort();
    return 0;
}
