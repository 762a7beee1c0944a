// The weather rules over the simulated location, geocoder and forecast service, in virtual time.
#include "core/sysinfo/WeatherService.h"
#include "foundation/VirtualScheduler.h"
#include "platform/sim/SimGeocoder.h"
#include "platform/sim/SimHttpClient.h"
#include "platform/sim/SimLocationService.h"

#include <cmath>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

const QByteArray goodAnswer = R"({"current":{"temperature_2m":12.5,"weather_code":3},
    "daily":{"temperature_2m_max":[15.1],"temperature_2m_min":[8.2]}})";

class WeatherServiceTest : public ::testing::Test {
protected:
    WeatherServiceTest()
    {
        location.setStatus(LocationAuthorization::AuthorizedAlways, false);
        location.setPosition(Coordinate{52.52003, 13.405});
        geocoder.setCity(QStringLiteral("Berlin"));
        http.setAnswer(goodAnswer);
    }

    void refresh()
    {
        weather.refreshIfStale();
        scheduler.runDue();
    }

    VirtualScheduler scheduler;
    SimLocationService location{scheduler};
    SimGeocoder geocoder{scheduler};
    SimHttpClient http{scheduler};
    WeatherService weather{scheduler, location, geocoder, http};
};

} // namespace

TEST_F(WeatherServiceTest, AGoodAnswerSetsTheFiguresAndThePlace)
{
    refresh();
    EXPECT_EQ(weather.city(), QStringLiteral("Berlin"));
    EXPECT_EQ(weather.temp(), 12.5);
    EXPECT_EQ(weather.code(), 3);
    EXPECT_EQ(weather.high(), 15.1);
    EXPECT_EQ(weather.low(), 8.2);
    EXPECT_FALSE(weather.denied());
    EXPECT_EQ(location.desiredAccuracy(), 1000);
}

TEST_F(WeatherServiceTest, RefreshesAtMostOnceInTenMinutes)
{
    refresh();
    ASSERT_EQ(http.requests().size(), 1);
    scheduler.advance(300);
    refresh();
    scheduler.advance(300); // exactly ten minutes: still fresh
    refresh();
    EXPECT_EQ(http.requests().size(), 1);
    scheduler.advance(0.001);
    refresh();
    EXPECT_EQ(http.requests().size(), 2);
}

TEST_F(WeatherServiceTest, ThePlaceNameFallsBackToTheWiderAreas)
{
    struct Case {
        Placemark placemark;
        std::optional<QString> expected;
    };
    // The simulated geocoder names only localities; a stand-in answers with whole placemarks.
    class FixedGeocoder final : public Geocoder {
    public:
        QList<Placemark> answer;
        void reverseGeocode(const Coordinate&, Completion completion) override
        {
            completion(answer);
        }
    } fixed;
    WeatherService service(scheduler, location, fixed, http);
    const QString county = QStringLiteral("Landkreis Harz"),
                  state = QStringLiteral("Sachsen-Anhalt");
    for (const Case& c :
         {Case{{std::nullopt, county, state}, county},
          Case{{std::nullopt, std::nullopt, state}, state}, Case{{}, std::nullopt}}) {
        fixed.answer = {c.placemark};
        scheduler.advance(601);
        service.refreshIfStale();
        scheduler.runDue();
        EXPECT_EQ(service.city(), c.expected);
    }
}

TEST_F(WeatherServiceTest, NoPlaceFoundOrAFailedGeocoderKeepsTheCity)
{
    refresh();
    geocoder.setCity(QString());
    scheduler.advance(601);
    refresh();
    EXPECT_EQ(weather.city(), QStringLiteral("Berlin"));
    geocoder.setFailing(true);
    scheduler.advance(601);
    refresh();
    EXPECT_EQ(weather.city(), QStringLiteral("Berlin"));
}

TEST_F(WeatherServiceTest, NotDeterminedAsksForAuthorisationAndTheAnswerDecides)
{
    location.setStatus(LocationAuthorization::NotDetermined, false);
    refresh();
    EXPECT_EQ(location.authorizationRequests(), 1);
    EXPECT_TRUE(http.requests().isEmpty());
    location.setStatus(LocationAuthorization::AuthorizedAlways);
    scheduler.runDue();
    EXPECT_EQ(http.requests().size(), 1);
    EXPECT_EQ(weather.temp(), 12.5);
}

TEST_F(WeatherServiceTest, OnlyFullAuthorisationCountsWhenInUseIsTreatedAsDenied)
{
    location.setStatus(LocationAuthorization::AuthorizedWhenInUse, false);
    refresh();
    EXPECT_TRUE(weather.denied());
    EXPECT_TRUE(http.requests().isEmpty());
    location.setStatus(LocationAuthorization::Denied);
    scheduler.runDue();
    location.setStatus(
        LocationAuthorization::AuthorizedWhenInUse); // the callback with 4 changes nothing
    scheduler.runDue();
    EXPECT_TRUE(weather.denied());
    EXPECT_EQ(location.locationRequests(), 0);
}

TEST_F(WeatherServiceTest, DeniedIsLiftedOnlyByFullAuthorisation)
{
    location.setStatus(LocationAuthorization::Restricted, false);
    refresh();
    ASSERT_TRUE(weather.denied());
    location.setStatus(LocationAuthorization::AuthorizedAlways);
    scheduler.runDue();
    EXPECT_FALSE(weather.denied());
    EXPECT_EQ(weather.code(), 3);
}

TEST_F(WeatherServiceTest, ALocationFailureFetchesNothingAndIsRetriedNextTime)
{
    location.setPosition(std::nullopt);
    refresh();
    EXPECT_TRUE(http.requests().isEmpty());
    location.setPosition(Coordinate{48.1, 11.6});
    refresh();
    EXPECT_EQ(http.requests().size(), 1);
}

TEST_F(WeatherServiceTest, AnImpossiblePositionIsIgnored)
{
    location.setPosition(Coordinate{std::nan(""), 500});
    refresh();
    EXPECT_TRUE(http.requests().isEmpty());
    EXPECT_EQ(geocoder.requests(), 0);
}

TEST(WeatherServiceLifetime, AnswersArrivingAfterTheServiceIsGoneAreDropped)
{
    // Services that hold on to their callers until told to answer.
    struct HeldHttp final : HttpClient {
        QList<Completion> pending;
        void get(const QUrl&, Completion completion) override
        {
            pending.append(std::move(completion));
        }
    } http;
    struct HeldGeocoder final : Geocoder {
        QList<Completion> pending;
        void reverseGeocode(const Coordinate&, Completion completion) override
        {
            pending.append(std::move(completion));
        }
    } geocoder;
    VirtualScheduler scheduler;
    SimLocationService location{scheduler};
    location.setStatus(LocationAuthorization::AuthorizedAlways, false);
    location.setPosition(Coordinate{1, 2});
    auto weather = std::make_unique<WeatherService>(scheduler, location, geocoder, http);
    weather->refreshIfStale();
    scheduler.runDue();
    ASSERT_EQ(http.pending.size(), 1);
    ASSERT_EQ(geocoder.pending.size(), 1);
    weather.reset();
    http.pending[0](goodAnswer);
    geocoder.pending[0](
        QList<Placemark>{Placemark{QStringLiteral("X"), std::nullopt, std::nullopt}});
    scheduler.advance(1);
    SUCCEED();
}

TEST(WeatherServiceLifetime, ParsedAnswerArrivingAfterTheServiceIsGoneIsDropped)
{
    VirtualScheduler scheduler;
    SimLocationService location{scheduler};
    SimGeocoder geocoder{scheduler};
    struct HeldHttp final : HttpClient {
        Completion pending;
        void get(const QUrl&, Completion completion) override { pending = std::move(completion); }
    } http;
    location.setStatus(LocationAuthorization::AuthorizedAlways, false);
    location.setPosition(Coordinate{1, 2});
    auto weather = std::make_unique<WeatherService>(scheduler, location, geocoder, http);
    weather->refreshIfStale();
    scheduler.runDue();
    ASSERT_TRUE(http.pending);
    http.pending(goodAnswer); // parsed at once here; the result waits for the main queue
    weather.reset();
    scheduler.advance(1);
    SUCCEED();
}
