// Reading forecast answers, forming the request and naming weather codes.
#include "core/sysinfo/ForecastParser.h"
#include "core/sysinfo/ForecastRequest.h"
#include "core/sysinfo/WeatherService.h"
#include "platform/LocationService.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

std::optional<Forecast> parse(const char* json)
{
    return ForecastParser::parse(QByteArray(json));
}

} // namespace

TEST(ForecastParser, AGoodAnswerGivesAllFourFigures)
{
    const auto f = parse(
        R"({"latitude":52.52,"current":{"time":"2026-01-05T09:00","temperature_2m":-1.4,"weather_code":71},
                             "daily":{"time":["2026-01-05"],"temperature_2m_max":[0.5],"temperature_2m_min":[-4.25]}})");
    ASSERT_TRUE(f);
    EXPECT_EQ(*f, (Forecast{-1.4, 71, 0.5, -4.25}));
}

TEST(ForecastParser, MissingOrMistypedMembersAreAbsentOneByOne)
{
    const auto noCode = parse(
        R"({"current":{"temperature_2m":3},"daily":{"temperature_2m_max":[5],"temperature_2m_min":[1]}})");
    ASSERT_TRUE(noCode);
    EXPECT_EQ(*noCode, (Forecast{3.0, std::nullopt, 5.0, 1.0}));

    const auto strings = parse(
        R"({"current":{"temperature_2m":"3","weather_code":"2"},"daily":{"temperature_2m_max":5}})");
    ASSERT_TRUE(strings);
    EXPECT_EQ(*strings, Forecast{});

    const auto notObjects = parse(R"({"current":[1,2],"daily":"x"})");
    ASSERT_TRUE(notObjects);
    EXPECT_EQ(*notObjects, Forecast{});
}

TEST(ForecastParser, ACodeMustBeAWholeNumberInRange)
{
    EXPECT_EQ(parse(R"({"current":{"weather_code":3.0}})")->code, 3);
    EXPECT_FALSE(parse(R"({"current":{"weather_code":3.5}})")->code);
    EXPECT_FALSE(parse(R"({"current":{"weather_code":1e12}})")->code);
    EXPECT_FALSE(parse(R"({"current":{"weather_code":true}})")->code);
}

TEST(ForecastParser, EmptyOrImpureDailyListsGiveNoHighOrLow)
{
    const auto empty = parse(R"({"daily":{"temperature_2m_max":[],"temperature_2m_min":[]}})");
    ASSERT_TRUE(empty);
    EXPECT_FALSE(empty->high);
    EXPECT_FALSE(empty->low);

    const auto impure =
        parse(R"({"daily":{"temperature_2m_max":[4, null],"temperature_2m_min":[2, 3]}})");
    ASSERT_TRUE(impure);
    EXPECT_FALSE(impure->high); // one element that is not a number spoils the list
    EXPECT_EQ(impure->low, 2.0);
}

TEST(ForecastParser, AnythingButAJsonObjectIsNoAnswer)
{
    EXPECT_FALSE(parse(""));
    EXPECT_FALSE(parse("garbage"));
    EXPECT_FALSE(parse("[1,2,3]"));
    EXPECT_FALSE(parse("\"text\""));
    EXPECT_FALSE(parse("<html><body>502 Bad Gateway</body></html>"));
    EXPECT_FALSE(parse(R"({"current":{"temperature_2m":3})"));
    EXPECT_TRUE(parse("{}"));
}

TEST(ForecastRequest, CoordinatesGoWithThreeDecimalsAndTheQueryInItsOrder)
{
    const QUrl url =
        ForecastRequest::url(QUrl(QStringLiteral("https://api.open-meteo.com/v1/forecast")),
                             Coordinate{52.52003, -0.1278});
    EXPECT_EQ(url.toString(QUrl::FullyEncoded),
              QStringLiteral(
                  "https://api.open-meteo.com/v1/forecast?latitude=52.520&longitude=-0.128"
                  "&current=temperature_2m,weather_code&daily=temperature_2m_max,temperature_2m_min"
                  "&timezone=auto&forecast_days=1"));
}

TEST(ForecastRequest, TheEndpointCanBeMovedByTheEnvironment)
{
    const QByteArray saved = qgetenv("RAVLIN_FORECAST_URL");
    qunsetenv("RAVLIN_FORECAST_URL");
    EXPECT_EQ(ForecastRequest::defaultEndpoint(),
              QUrl(QStringLiteral("https://api.open-meteo.com/v1/forecast")));
    qputenv("RAVLIN_FORECAST_URL", "http://127.0.0.1:8123");
    EXPECT_EQ(ForecastRequest::defaultEndpoint(),
              QUrl(QStringLiteral("http://127.0.0.1:8123/v1/forecast")));
    qputenv("RAVLIN_FORECAST_URL", "http://127.0.0.1:8123/custom/path");
    EXPECT_EQ(ForecastRequest::defaultEndpoint(),
              QUrl(QStringLiteral("http://127.0.0.1:8123/custom/path")));
    qputenv("RAVLIN_FORECAST_URL", "not a url at all");
    EXPECT_EQ(ForecastRequest::defaultEndpoint().host(), QStringLiteral("api.open-meteo.com"));
    if (saved.isNull())
        qunsetenv("RAVLIN_FORECAST_URL");
    else
        qputenv("RAVLIN_FORECAST_URL", saved);
}

TEST(WeatherDescribe, TheTableMapsCodesToSymbolAndGermanText)
{
    EXPECT_EQ(WeatherService::describe(std::nullopt),
              (WeatherDescription{QStringLiteral("cloud.fill"), QStringLiteral("—")}));
    EXPECT_EQ(WeatherService::describe(4),
              (WeatherDescription{QStringLiteral("cloud.fill"), QStringLiteral("—")}));
    EXPECT_EQ(WeatherService::describe(96),
              (WeatherDescription{QStringLiteral("cloud.bolt.rain.fill"),
                                  QStringLiteral("Gewitter mit Hagel")}));
    EXPECT_EQ(WeatherService::describe(1).symbol, QStringLiteral("sun.max.fill"));
    EXPECT_EQ(WeatherService::describe(1).text, QStringLiteral("Überwiegend klar"));
    EXPECT_EQ(WeatherService::describe(48).text, QStringLiteral("Nebel"));
    EXPECT_EQ(WeatherService::describe(57).symbol, QStringLiteral("cloud.sleet.fill"));
    EXPECT_EQ(WeatherService::describe(67).text, QStringLiteral("Gefrierender Regen"));
    EXPECT_EQ(WeatherService::describe(77).symbol, QStringLiteral("cloud.snow.fill"));
    EXPECT_EQ(WeatherService::describe(82).symbol, QStringLiteral("cloud.heavyrain.fill"));
    EXPECT_EQ(WeatherService::describe(86).text, QStringLiteral("Schneeschauer"));
    EXPECT_EQ(WeatherService::describe(95).text, QStringLiteral("Gewitter"));
    EXPECT_EQ(WeatherService::describe(-1).text, QStringLiteral("—"));
}
