#include "PanelContent.h"

#include "SearchText.h"
#include "TileAccent.h"
#include "TileModel.h"
#include "foundation/SystemColor.h"
#include "core/settings/LanguageManager.h"
#include "core/sysinfo/RateText.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

const QColor weatherAccent = QColor::fromRgbF(0.39f, 0.82f, 0.94f);

QString statSymbol(const QString& key)
{
    static const QHash<QString, QString> symbols = {
        {QStringLiteral("sys.cpu"), QStringLiteral("cpu")},
        {QStringLiteral("sys.ram"), QStringLiteral("memorychip")},
        {QStringLiteral("sys.disk"), QStringLiteral("internaldrive")},
        {QStringLiteral("sys.batt"), QStringLiteral("battery.100")},
        {QStringLiteral("sys.net"), QStringLiteral("network")},
    };
    return symbols.value(key);
}

QString wholeDegrees(std::optional<double> celsius)
{
    if (!celsius || !std::isfinite(*celsius))
        return QStringLiteral("--");
    return QString::number(std::lround(*celsius));
}

} // namespace

QString tileKindName(TileKind kind)
{
    switch (kind) {
    case TileKind::Weather:
        return QStringLiteral("weather");
    case TileKind::Stat:
        return QStringLiteral("stat");
    case TileKind::Network:
        return QStringLiteral("network");
    case TileKind::Item:
        return QStringLiteral("item");
    case TileKind::Permission:
        return QStringLiteral("permission");
    }
    return {};
}

PanelContent::PanelContent(const SystemStats& stats, const WeatherService& weather,
                           const TileModel& tiles, const LanguageManager& language)
    : m_stats(stats), m_weather(weather), m_tiles(tiles), m_language(language)
{}

std::vector<PanelSection> PanelContent::sections(const PanelRequest& request) const
{
    std::vector<PanelSection> result;
    if (request.showWeather)
        result.push_back({std::nullopt, {weatherTile()}, false});
    // Items that changed while hidden wait above everything else to be seen.
    auto changed = [](const BarGroup& g) {
        return !g.items.empty() &&
               std::all_of(g.items.begin(), g.items.end(), [](const BarItem& i) { return i.changed; });
    };
    for (const BarGroup& group : request.groups)
        if (changed(group))
            result.push_back({group.title, itemTiles(group), true});
    if (request.showSystemTiles)
        result.push_back(
            {m_language.L(QStringLiteral("panel.statistics")), statisticsTiles(), true});
    for (const BarGroup& group : request.groups)
        if (!changed(group))
            result.push_back({group.title, itemTiles(group), true});
    std::vector<PanelTile> permissions =
        permissionTiles(request.hasScreenRecording, request.hasAccessibility);
    if (!permissions.empty() && request.offerPermissions && request.query.trimmed().isEmpty())
        result.push_back({std::nullopt, std::move(permissions), false});
    return filtered(std::move(result), request.query);
}

// Names only: a tile is not found by its figures, its state or a request it makes.
QStringList PanelContent::searchTexts(const PanelTile& tile)
{
    if (tile.asksForAccess)
        return {};
    QStringList texts{tile.label};
    if (tile.kind == TileKind::Item && tile.content) {
        const BarItem& item = std::get<BarItem>(*tile.content);
        texts << item.info.owner << item.info.name << item.searchTerms;
    }
    return texts;
}

// Matching tiles keep their order; sections left without tiles go.
std::vector<PanelSection> PanelContent::filtered(std::vector<PanelSection> sections,
                                                 const QString& query)
{
    const SearchText search(query);
    if (search.isEmpty())
        return sections;
    std::vector<PanelSection> kept;
    for (PanelSection& section : sections) {
        std::erase_if(section.tiles,
                      [&](const PanelTile& t) { return !search.matches(searchTexts(t)); });
        if (!section.tiles.empty())
            kept.push_back(std::move(section));
    }
    return kept;
}

PanelTile PanelContent::weatherTile() const
{
    PanelTile tile;
    tile.kind = TileKind::Weather;
    tile.key = QStringLiteral("weather");
    tile.accent = weatherAccent;
    // Without location access there are no figures: one line asks for it instead.
    if (!m_weather.hasLocationAccess() && !m_weather.temp()) {
        tile.label = m_language.L(QStringLiteral("weather.allowLocation"));
        tile.symbol = QStringLiteral("location.slash");
        tile.asksForAccess = true;
        return tile;
    }
    const std::optional<QString> city = m_weather.city();
    tile.label = city && !city->isEmpty() ? *city : m_language.L(QStringLiteral("weather.title"));
    tile.subtitle = temperatureText(m_weather.temp());
    tile.detail = rangeText(m_weather.high(), m_weather.low());
    const WeatherDescription description = WeatherService::describe(m_weather.code());
    tile.symbol = description.symbol;
    // Without location access there is no forecast to describe: say why instead.
    tile.note =
        m_weather.denied() ? m_language.L(QStringLiteral("weather.denied")) : description.text;
    return tile;
}

std::vector<PanelTile> PanelContent::statisticsTiles() const
{
    std::vector<PanelTile> tiles;
    for (const Stat& stat : makeStats(m_stats, m_language)) {
        PanelTile tile;
        tile.key = stat.key;
        tile.label = stat.label;
        tile.symbol = statSymbol(stat.key);
        tile.accent = stat.accent;
        if (stat.key == u"sys.net") {
            tile.kind = TileKind::Network;
            tile.subtitle = networkRatesText(m_stats.netDown(), m_stats.netUp(), RateLayout::Wide,
                                             m_language.decimalPoint());
            tile.detail = networkRatesText(m_stats.netDown(), m_stats.netUp(), RateLayout::Compact,
                                           m_language.decimalPoint());
            tile.content = NetworkRates{stat, m_stats.netDown(), m_stats.netUp()};
        } else {
            tile.kind = TileKind::Stat;
            tile.subtitle = percentText(stat.value);
            tile.percent = std::isfinite(stat.value) ? std::clamp(stat.value, 0.0, 100.0) : 0.0;
            tile.content = stat;
        }
        tiles.push_back(std::move(tile));
    }
    return tiles;
}

std::vector<PanelTile> PanelContent::itemTiles(const BarGroup& group) const
{
    std::vector<PanelTile> tiles;
    for (const BarItem& item : m_tiles.ordered(group.items)) {
        PanelTile tile;
        tile.kind = TileKind::Item;
        tile.key = item.key;
        tile.label = item.label;
        tile.symbol = item.symbolName.value_or(QString());
        tile.accent = tileAccent(item.label);
        tile.isNew = item.isNew;
        tile.placedInBar = item.placedInBar;
        tile.changed = item.changed;
        tile.content = item;
        tiles.push_back(std::move(tile));
    }
    return tiles;
}

std::vector<PanelTile> PanelContent::permissionTiles(bool hasScreenRecording,
                                                     bool hasAccessibility) const
{
    std::vector<PanelTile> tiles;
    auto add = [&](const QString& key, const QString& symbol) {
        PanelTile tile;
        tile.kind = TileKind::Permission;
        tile.key = key;
        tile.label = m_language.L(key);
        tile.subtitle = m_language.L(key + QStringLiteral(".desc"));
        tile.symbol = symbol;
        tile.accent = SystemColor::orange();
        tiles.push_back(std::move(tile));
    };
    if (!hasScreenRecording)
        add(screenRecordingKey, QStringLiteral("lock.shield"));
    if (!hasAccessibility)
        add(accessibilityKey, QStringLiteral("accessibility"));
    return tiles;
}

QString PanelContent::percentText(double value) const
{
    const int whole = std::isfinite(value) ? int(std::lround(std::clamp(value, -1e9, 1e9))) : 0;
    return m_language.L(QStringLiteral("format.percent"), whole);
}

QString PanelContent::temperatureText(std::optional<double> celsius)
{
    return wholeDegrees(celsius) + QChar(u'°');
}

QString PanelContent::rangeText(std::optional<double> high, std::optional<double> low) const
{
    return m_language.L(QStringLiteral("weather.range"), temperatureText(high),
                        temperatureText(low));
}

} // namespace ravlin
