#include "SandboxCommands.h"
#include "SandboxSession.h"
#include "ScriptRunner.h"

#include "core/app/AppDelegate.h"
#include "core/settings/LanguageManager.h"
#include "core/sysinfo/RateText.h"
#include "core/sysinfo/Stat.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "foundation/PlistJson.h"
#include "platform/Platform.h"
#include "platform/sim/SimGeocoder.h"
#include "platform/sim/SimHttpClient.h"
#include "platform/sim/SimLocationService.h"
#include "platform/sim/SimSituation.h"
#include "platform/sim/SimSystemProbe.h"

#include <QJsonArray>
#include <QJsonObject>

#include <limits>

namespace ravlin::sandbox {
namespace {

using Phase = ScriptRunner::Phase;

template <class T> QJsonValue orNull(const std::optional<T>& value)
{
    if (!value)
        return QJsonValue();
    if constexpr (std::is_integral_v<T>)
        return QJsonValue(qint64(*value));
    else
        return QJsonValue(*value);
}

std::uint64_t needUnsigned(CommandContext& c, qsizetype i, const QString& what,
                           std::uint64_t max = std::numeric_limits<std::uint64_t>::max())
{
    bool ok = false;
    const qulonglong value = c.need(i, what).toULongLong(&ok);
    if (!ok || value > max)
        c.fail(QStringLiteral("%1 must be a whole number from 0 to %2, not %3")
                   .arg(what)
                   .arg(max)
                   .arg(c.word(i)));
    return value;
}

std::int64_t needInteger(CommandContext& c, qsizetype i, const QString& what)
{
    bool ok = false;
    const qlonglong value = c.need(i, what).toLongLong(&ok);
    if (!ok)
        c.fail(QStringLiteral("%1 must be a whole number, not %2").arg(what, c.word(i)));
    return value;
}

// "battery": drawing on it; "ac": on external power; nothing: the state is not told.
std::optional<bool> batteryState(CommandContext& c, qsizetype i)
{
    const QString state = c.word(i);
    if (state.isEmpty())
        return std::nullopt;
    if (state != u"battery" && state != u"ac")
        c.fail(QStringLiteral("the power state is battery or ac, not %1").arg(state));
    return state == u"battery";
}

double needReal(CommandContext& c, qsizetype i, const QString& what)
{
    bool ok = false;
    const double value = c.need(i, what).toDouble(&ok);
    if (!ok || !std::isfinite(value))
        c.fail(QStringLiteral("%1 must be a number, not %2").arg(what, c.word(i)));
    return value;
}

void probeCpu(CommandContext& c, SimSystemProbe& probe)
{
    // The simulated machine counts like the platform it stands for: 32-bit
    // tick counters, unless bits=64 asks for the wide kind.
    const QString bits = c.options(6).value(QStringLiteral("bits"), QStringLiteral("32"));
    if (bits != u"32" && bits != u"64")
        c.fail(QStringLiteral("bits is 32 or 64, not %1").arg(bits));
    const bool wide = bits == u"64";
    const std::uint64_t max = wide ? std::numeric_limits<std::uint64_t>::max() : 0xffffffffu;
    CpuTicks ticks;
    ticks.user = needUnsigned(c, 2, QStringLiteral("USER"), max);
    ticks.system = needUnsigned(c, 3, QStringLiteral("SYSTEM"), max);
    ticks.idle = needUnsigned(c, 4, QStringLiteral("IDLE"), max);
    ticks.nice = needUnsigned(c, 5, QStringLiteral("NICE"), max);
    ticks.width = wide ? CpuTicks::Width::Bits64 : CpuTicks::Width::Bits32;
    probe.setCpu(ticks);
}

void probeFail(CommandContext& c, SimSystemProbe& probe)
{
    const QString what = c.need(2, QStringLiteral("cpu, ram, disk or net"));
    if (what == u"cpu")
        probe.setCpu(std::nullopt);
    else if (what == u"ram")
        probe.setMemory(std::nullopt);
    else if (what == u"disk")
        probe.setVolume(std::nullopt);
    else if (what == u"net")
        probe.setNetwork(std::nullopt);
    else
        c.fail(QStringLiteral("probe fail takes cpu, ram, disk or net, not %1").arg(what));
}

void probeCommand(CommandContext& c)
{
    const QString what = c.need(1, QStringLiteral("what the probe reports"));
    if (what == u"machine") {
        if (!c.session.useMachineProbe())
            c.fail(
                QStringLiteral("probe machine must come before anything starts the application"));
        return;
    }
    SimSystemProbe* probe = c.session.probe();
    if (!probe)
        c.fail(QStringLiteral("the probe reads this machine; its figures cannot be set"));
    if (what == u"cpu") {
        probeCpu(c, *probe);
    } else if (what == u"ram") {
        const std::uint64_t used = needUnsigned(c, 2, QStringLiteral("USEDBYTES"));
        probe->setMemory(MemoryUsage{used, needUnsigned(c, 3, QStringLiteral("TOTALBYTES"))});
    } else if (what == u"battery") {
        if (c.word(2) == u"none")
            probe->setBattery(std::nullopt);
        else
            probe->setBattery(PowerSource{needInteger(c, 2, QStringLiteral("CURRENT")),
                                          needInteger(c, 3, QStringLiteral("MAX")),
                                          batteryState(c, 4)});
        // The system tells of a change of the power source as it happens.
        c.session.situation().powerSourceChanged();
        c.session.scheduler().runDue();
    } else if (what == u"disk") {
        const std::int64_t total = needInteger(c, 2, QStringLiteral("TOTALBYTES"));
        probe->setVolume(
            VolumeCapacity{total, needInteger(c, 3, QStringLiteral("AVAILABLEBYTES"))});
    } else if (what == u"net") {
        const std::uint64_t rx = needUnsigned(c, 2, QStringLiteral("RXBYTES"));
        probe->setNetwork(std::pair{rx, needUnsigned(c, 3, QStringLiteral("TXBYTES"))});
    } else if (what == u"fail") {
        probeFail(c, *probe);
    } else {
        c.fail(QStringLiteral("unknown probe figure: %1").arg(what));
    }
}

void locationCommand(CommandContext& c)
{
    SimLocationService* location = c.session.location();
    if (!location)
        c.fail(QStringLiteral("the location is this machine's own"));
    static const std::map<QString, LocationAuthorization> statuses = {
        {QStringLiteral("notDetermined"), LocationAuthorization::NotDetermined},
        {QStringLiteral("restricted"), LocationAuthorization::Restricted},
        {QStringLiteral("denied"), LocationAuthorization::Denied},
        {QStringLiteral("whenInUse"), LocationAuthorization::AuthorizedWhenInUse},
    };
    const QString first = c.need(1, QStringLiteral("a position or an authorisation status"));
    if (auto it = statuses.find(first); it != statuses.end()) {
        location->setStatus(it->second, c.session.started());
    } else {
        const double latitude = needReal(c, 1, QStringLiteral("LAT"));
        const double longitude = needReal(c, 2, QStringLiteral("LON"));
        if (std::abs(latitude) > 90 || std::abs(longitude) > 180)
            c.fail(QStringLiteral("no such place: %1 %2").arg(latitude).arg(longitude));
        location->setPosition(Coordinate{latitude, longitude});
        c.session.geocoder()->setCity(c.need(3, QStringLiteral("the city (\"\" for none)")));
        location->setStatus(LocationAuthorization::AuthorizedAlways, c.session.started());
    }
    if (c.session.started())
        c.session.scheduler().runDue();
}

void forecastCommand(CommandContext& c)
{
    SimHttpClient* http = c.session.http();
    if (!http)
        c.fail(QStringLiteral("forecasts come from the real service here"));
    const QString what = c.need(1, QStringLiteral("the forecast answer"));
    if (what == u"error" && c.wordCount() == 2) {
        http->setAnswer(std::nullopt);
    } else if (what == u"raw") {
        // Any body at all, for answers that are not JSON.
        http->setAnswer(c.need(2, QStringLiteral("the body")).toUtf8());
    } else {
        const QString text = c.line.rest(1);
        QString error;
        if (!PlistJson::parse(text, &error))
            c.fail(QStringLiteral("the forecast answer must be a JSON value: %1").arg(error));
        http->setAnswer(text.toUtf8());
    }
}

void statsCommand(CommandContext& c)
{
    SystemStats& stats = c.session.app().systemStats();
    const QString what = c.need(1, QStringLiteral("start, stop or refresh"));
    if (what == u"start")
        stats.start(c.wordCount() > 2 ? needReal(c, 2, QStringLiteral("the interval"))
                                      : SystemStats::defaultInterval);
    else if (what == u"stop")
        stats.stop();
    else if (what == u"refresh")
        stats.refresh();
    else
        c.fail(QStringLiteral("stats knows start [INTERVAL], stop and refresh"));
    c.session.scheduler().runDue();
}

QString colorName(const QColor& color)
{
    return color.name(QColor::HexRgb);
}

QJsonValue statsSection(SandboxSession& s, bool)
{
    const SystemStats& stats = s.app().systemStats();
    QJsonArray tiles;
    for (const Stat& stat : makeStats(stats, s.app().languageManager())) {
        tiles.append(QJsonObject{{QStringLiteral("key"), stat.key},
                                 {QStringLiteral("label"), stat.label},
                                 {QStringLiteral("value"), stat.value},
                                 {QStringLiteral("accent"), colorName(stat.accent)}});
    }
    return QJsonObject{
        {QStringLiteral("cpu"), stats.cpu()},
        {QStringLiteral("ram"), stats.ram()},
        {QStringLiteral("disk"), stats.disk()},
        {QStringLiteral("diskUsedGB"), stats.diskUsedGB()},
        {QStringLiteral("diskTotalGB"), stats.diskTotalGB()},
        {QStringLiteral("battery"), orNull(stats.battery())},
        {QStringLiteral("netDown"), stats.netDown()},
        {QStringLiteral("netUp"), stats.netUp()},
        {QStringLiteral("sampling"), stats.isSampling()},
        {QStringLiteral("netText"),
         networkRatesText(stats.netDown(), stats.netUp(), RateLayout::Wide)},
        {QStringLiteral("netTextCompact"),
         networkRatesText(stats.netDown(), stats.netUp(), RateLayout::Compact)},
        {QStringLiteral("tiles"), tiles},
    };
}

QJsonValue weatherSection(SandboxSession& s, bool)
{
    const WeatherService& weather = s.app().weatherService();
    const WeatherDescription description = WeatherService::describe(weather.code());
    const SimHttpClient* http = s.http();
    const QJsonValue last = http && !http->requests().isEmpty()
                                ? QJsonValue(http->requests().last().toString(QUrl::FullyEncoded))
                                : QJsonValue();
    const SimLocationService* location = s.location();
    return QJsonObject{
        {QStringLiteral("city"), orNull(weather.city())},
        {QStringLiteral("temp"), orNull(weather.temp())},
        {QStringLiteral("high"), orNull(weather.high())},
        {QStringLiteral("low"), orNull(weather.low())},
        {QStringLiteral("code"), orNull(weather.code())},
        {QStringLiteral("denied"), weather.denied()},
        {QStringLiteral("requests"),
         http ? QJsonValue(int(http->requests().size())) : QJsonValue()},
        {QStringLiteral("lastRequest"), last},
        {QStringLiteral("symbol"), description.symbol},
        {QStringLiteral("description"), description.text},
        {QStringLiteral("authorization"),
         locationAuthorizationName(s.platform().location->authorizationStatus())},
        {QStringLiteral("authorizationRequests"),
         location ? QJsonValue(location->authorizationRequests()) : QJsonValue()},
    };
}

// The probe's raw readings as they are now, to set beside the machine's own tools.
QJsonValue probeSection(SandboxSession& s, bool)
{
    SystemProbe& probe = *s.platform().systemProbe;
    QJsonObject object;
    if (const auto t = probe.cpuTicks()) {
        object.insert(
            QStringLiteral("cpuTicks"),
            QJsonObject{{QStringLiteral("user"), double(t->user)},
                        {QStringLiteral("system"), double(t->system)},
                        {QStringLiteral("idle"), double(t->idle)},
                        {QStringLiteral("nice"), double(t->nice)},
                        {QStringLiteral("bits"), t->width == CpuTicks::Width::Bits64 ? 64 : 32}});
    } else {
        object.insert(QStringLiteral("cpuTicks"), QJsonValue());
    }
    const auto m = probe.memory();
    object.insert(QStringLiteral("memory"),
                  m ? QJsonValue(QJsonObject{{QStringLiteral("usedBytes"), double(m->usedBytes)},
                                             {QStringLiteral("totalBytes"), double(m->totalBytes)}})
                    : QJsonValue());
    const auto v = probe.rootVolume();
    object.insert(
        QStringLiteral("volume"),
        v ? QJsonValue(QJsonObject{{QStringLiteral("totalBytes"), orNull(v->totalBytes)},
                                   {QStringLiteral("availableBytes"), orNull(v->availableBytes)}})
          : QJsonValue());
    QJsonValue batteries;
    if (const auto sources = probe.powerSources()) {
        QJsonArray list;
        for (const PowerSource& p : *sources)
            list.append(QJsonObject{{QStringLiteral("current"), orNull(p.currentCapacity)},
                                    {QStringLiteral("max"), orNull(p.maxCapacity)}});
        batteries = list;
    }
    object.insert(QStringLiteral("powerSources"), batteries);
    QJsonValue interfaces;
    if (const auto list = probe.interfaces()) {
        QJsonArray array;
        for (const InterfaceBytes& i : *list)
            array.append(QJsonObject{{QStringLiteral("name"), i.name},
                                     {QStringLiteral("rxBytes"), double(i.rxBytes)},
                                     {QStringLiteral("txBytes"), double(i.txBytes)},
                                     {QStringLiteral("counted"), i.counted}});
        interfaces = array;
    }
    object.insert(QStringLiteral("interfaces"), interfaces);
    return object;
}

} // namespace

void registerSysinfoCommands(ScriptRunner& runner)
{
    runner.addCommand(QStringLiteral("probe"), Phase::Any,
                      [](CommandContext& c) { probeCommand(c); });
    runner.addCommand(QStringLiteral("location"), Phase::Any, locationCommand);
    runner.addCommand(QStringLiteral("forecast"), Phase::Any, forecastCommand);
    runner.addCommand(QStringLiteral("stats"), Phase::AfterStart, statsCommand);
    runner.addCommand(QStringLiteral("weather"), Phase::AfterStart, [](CommandContext& c) {
        if (c.word(1) != u"refresh")
            c.fail(QStringLiteral("weather knows only: weather refresh"));
        c.session.app().weatherService().refreshIfStale();
        c.session.scheduler().runDue();
    });
    runner.addSection(QStringLiteral("stats"), statsSection);
    runner.addSection(QStringLiteral("weather"), weatherSection);
    runner.addSection(QStringLiteral("probe"), probeSection);
}

} // namespace ravlin::sandbox
