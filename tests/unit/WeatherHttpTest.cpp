// The forecast and the geocoder over real HTTP against a server on 127.0.0.1.
#include "LocalHttpServer.h"

#include "foundation/VirtualScheduler.h"
#include "core/sysinfo/WeatherService.h"
#include "platform/linux/NominatimGeocoder.h"
#include "platform/qt/QtHttpClient.h"
#include "platform/sim/SimGeocoder.h"
#include "platform/sim/SimLocationService.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

using namespace ravlin;
using ravlin::test::LocalHttpServer;

namespace {

const QByteArray goodAnswer = R"({"current":{"temperature_2m":12.5,"weather_code":61},
    "daily":{"temperature_2m_max":[15.1],"temperature_2m_min":[8.2]}})";

// Runs the real event loop (the sockets) and the virtual main queue until done
// holds. The real-time limit is only a failsafe against a broken test.
bool runUntil(VirtualScheduler& scheduler, const std::function<bool()>& done)
{
    QElapsedTimer clock;
    clock.start();
    QTimer failsafe;
    failsafe.start(200);
    while (!done()) {
        if (clock.elapsed() > 20000)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        scheduler.runDue();
    }
    return true;
}

// Counts finished exchanges on their way from the real client to the service.
class CountingClient final : public HttpClient {
public:
    CountingClient(Scheduler& scheduler, int& count) : m_inner(scheduler), m_count(count) {}
    void get(const QUrl& url, Completion completion) override
    {
        m_inner.get(url,
                    [this, completion = std::move(completion)](std::optional<QByteArray> body) {
                        ++m_count;
                        completion(std::move(body));
                    });
    }

private:
    QtHttpClient m_inner;
    int& m_count;
};

class WeatherHttpTest : public ::testing::Test {
protected:
    WeatherHttpTest()
    {
        location.setStatus(LocationAuthorization::AuthorizedAlways, false);
        location.setPosition(Coordinate{52.52003, -0.1278});
        geocoder.setCity(QStringLiteral("London"));
        weather.setEndpoint(server.url(QStringLiteral("/v1/forecast")));
    }

    // One refresh carried to the end: the exchange over and its result applied.
    bool refreshAndWait()
    {
        const int before = completions;
        weather.refreshIfStale();
        scheduler.runDue();
        const bool over = runUntil(scheduler, [&] { return completions > before; });
        scheduler.runDue();
        return over;
    }

    VirtualScheduler scheduler;
    LocalHttpServer server;
    SimLocationService location{scheduler};
    SimGeocoder geocoder{scheduler};
    int completions = 0;
    CountingClient http{scheduler, completions};
    WeatherService weather{scheduler, location, geocoder, http};
};

} // namespace

TEST_F(WeatherHttpTest, AGoodAnswerIsAppliedAndTheRequestCarriesTheCoordinatesAndAUserAgent)
{
    server.setJson(200, goodAnswer);
    ASSERT_TRUE(refreshAndWait());
    EXPECT_EQ(weather.temp(), 12.5);
    EXPECT_EQ(weather.code(), 61);
    EXPECT_EQ(weather.high(), 15.1);
    EXPECT_EQ(weather.low(), 8.2);
    EXPECT_EQ(weather.city(), QStringLiteral("London"));
    EXPECT_EQ(server.target(0),
              QByteArray("/v1/forecast?latitude=52.520&longitude=-0.128&current=temperature_2m,"
                         "weather_code&daily=temperature_2m_max,temperature_2m_min&timezone=auto&"
                         "forecast_days=1"));
    EXPECT_TRUE(server.requestHeads().at(0).toLower().contains("user-agent: ravlin/"));
}

TEST_F(WeatherHttpTest, MissingCodeKeepsTheOldOneAndEmptyListsClearTheRange)
{
    server.setJson(200, goodAnswer);
    ASSERT_TRUE(refreshAndWait());
    scheduler.advance(601);
    server.setJson(
        200,
        R"({"current":{"temperature_2m":-3},"daily":{"temperature_2m_max":[],"temperature_2m_min":[]}})");
    ASSERT_TRUE(refreshAndWait());
    EXPECT_EQ(weather.temp(), -3.0);
    EXPECT_EQ(weather.code(), 61);
    EXPECT_FALSE(weather.high());
    EXPECT_FALSE(weather.low());
    // A parsed answer counts as fetched, figures or not.
    weather.refreshIfStale();
    scheduler.runDue();
    EXPECT_EQ(server.requestHeads().size(), 2);
}

TEST_F(WeatherHttpTest, TheHttpStatusIsNotLookedAtOnlyTheBody)
{
    server.setJson(404, R"({"current":{"temperature_2m":7,"weather_code":2}})");
    ASSERT_TRUE(refreshAndWait());
    EXPECT_EQ(weather.code(), 2);
}

TEST_F(WeatherHttpTest, GarbageAndAnErrorPageChangeNothingAndAreRetried)
{
    server.setResponse("HTTP/1.1 200 OK\r\nContent-Length: 7\r\nConnection: close\r\n\r\ngarbage");
    ASSERT_TRUE(refreshAndWait());
    server.setResponse("HTTP/1.1 502 Bad Gateway\r\nContent-Type: text/html\r\nContent-Length: "
                       "21\r\nConnection: close"
                       "\r\n\r\n<h1>Bad Gateway</h1>\n");
    ASSERT_TRUE(refreshAndWait()); // not fresh: the garbage did not count
    EXPECT_EQ(server.requestHeads().size(), 2);
    EXPECT_FALSE(weather.temp());
    EXPECT_FALSE(weather.code());
}

TEST_F(WeatherHttpTest, AServerThatNeverAnswersIsGivenUpAfterFifteenSeconds)
{
    server.setSilent();
    weather.refreshIfStale();
    scheduler.runDue();
    ASSERT_TRUE(runUntil(scheduler, [&] { return !server.requestHeads().isEmpty(); }));
    scheduler.advance(14.9);
    EXPECT_EQ(completions, 0);
    scheduler.advance(0.2);
    EXPECT_EQ(completions, 1);
    EXPECT_FALSE(weather.temp());
    // Given up, not fetched: the next refresh asks again.
    server.setJson(200, goodAnswer);
    ASSERT_TRUE(refreshAndWait());
    EXPECT_EQ(server.requestHeads().size(), 2);
}

TEST_F(WeatherHttpTest, AnAnswerOverOneMebibyteIsAbandonedWithOrWithoutItsLength)
{
    const QByteArray huge =
        "{\"pad\":\"" + QByteArray(2 << 20, 'x') + "\",\"current\":{\"temperature_2m\":1}}";
    server.setJson(200, huge);
    ASSERT_TRUE(refreshAndWait());
    server.setResponse("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + huge);
    ASSERT_TRUE(refreshAndWait());
    EXPECT_EQ(completions, 2);
    EXPECT_FALSE(weather.temp());
}

TEST(NominatimGeocoder, ReverseAnswersNameTheTownCountyAndState)
{
    VirtualScheduler scheduler;
    LocalHttpServer server;
    server.setJson(
        200, R"({"place_id":1,"address":{"village":"Wernigerode-Nord","county":"Landkreis Harz",
                           "state":"Sachsen-Anhalt","country":"Deutschland"}})");
    NominatimGeocoder geocoder(std::make_unique<QtHttpClient>(scheduler),
                               server.url(QStringLiteral("/reverse")));
    std::optional<std::optional<QList<Placemark>>> answer;
    geocoder.reverseGeocode(Coordinate{51.83, 10.78},
                            [&](std::optional<QList<Placemark>> p) { answer = p; });
    ASSERT_TRUE(runUntil(scheduler, [&] { return answer.has_value(); }));
    ASSERT_TRUE(*answer);
    ASSERT_EQ((*answer)->size(), 1);
    const Placemark& p = (*answer)->first();
    EXPECT_EQ(p.locality, QStringLiteral("Wernigerode-Nord"));
    EXPECT_EQ(p.subAdministrativeArea, QStringLiteral("Landkreis Harz"));
    EXPECT_EQ(p.administrativeArea, QStringLiteral("Sachsen-Anhalt"));
    EXPECT_EQ(
        server.target(0),
        QByteArray("/reverse?format=jsonv2&lat=51.83000&lon=10.78000&zoom=10&addressdetails=1"));
}

TEST(NominatimGeocoder, CityBeatsTownBeatsVillageAndUnknownPlacesGiveNone)
{
    const auto city =
        NominatimGeocoder::parseReverse(R"({"address":{"village":"V","town":"T","city":"C"}})");
    EXPECT_EQ(city->first().locality, QStringLiteral("C"));
    const auto town =
        NominatimGeocoder::parseReverse(R"({"address":{"village":"V","town":"T","city":""}})");
    EXPECT_EQ(town->first().locality, QStringLiteral("T"));
    const auto sea = NominatimGeocoder::parseReverse(R"({"error":"Unable to geocode"})");
    ASSERT_TRUE(sea);
    EXPECT_TRUE(sea->isEmpty());
    EXPECT_FALSE(NominatimGeocoder::parseReverse("<html>busy</html>"));
    const auto odd = NominatimGeocoder::parseReverse(R"({"address":{"city":42,"state":"S"}})");
    EXPECT_FALSE(odd->first().locality);
    EXPECT_EQ(odd->first().administrativeArea, QStringLiteral("S"));
}
