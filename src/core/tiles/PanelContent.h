#pragma once

#include "BarGroup.h"
#include "PanelSection.h"

#include <optional>
#include <vector>

namespace ravlin {

class LanguageManager;
class SystemStats;
class TileModel;
class WeatherService;

// What the panel is asked to show, as it stands when it is shown.
struct PanelRequest {
    std::vector<BarGroup> groups;
    bool showWeather = true;
    bool showSystemTiles = true;
    bool hasScreenRecording = true;
    bool hasAccessibility = true;
    // Tiles that ask for the missing permissions (the bar style's row has no room for them).
    bool offerPermissions = true;
    // A line under everything else, when there is something to explain (empty: none).
    QString footnote;
    // What the user typed to find a tile (empty: everything shows).
    QString query;
};

// Decides the panel's sections top to bottom: the weather header, the "System"
// statistics, one section per group in the saved tile order, and a tile for each
// permission that is missing. Reads the live figures each time it is asked.
class PanelContent {
public:
    // The permission tiles' keys, which are also their label keys.
    static inline const QString screenRecordingKey = QStringLiteral("bar.grant");
    static inline const QString accessibilityKey = QStringLiteral("bar.grantAX");

    PanelContent(const SystemStats& stats, const WeatherService& weather, const TileModel& tiles,
                 const LanguageManager& language);

    std::vector<PanelSection> sections(const PanelRequest& request) const;
    // The texts a search looks for in a tile: its names, and for an item also its
    // application's name, its title and its accessibility title and description. The
    // weather is found by its place, never by its description or a request.
    static QStringList searchTexts(const PanelTile& tile);

    PanelTile weatherTile() const;
    std::vector<PanelTile> statisticsTiles() const;
    std::vector<PanelTile> itemTiles(const BarGroup& group) const;
    std::vector<PanelTile> permissionTiles(bool hasScreenRecording, bool hasAccessibility) const;

    // "42%" in English, "42 %" in German: the value rounded to a whole number.
    QString percentText(double value) const;
    // "21°", or "--°" while there is no figure.
    static QString temperatureText(std::optional<double> celsius);
    // "H: 24°  L: 13°", in the interface language's words for high and low.
    QString rangeText(std::optional<double> high, std::optional<double> low) const;

private:
    static std::vector<PanelSection> filtered(std::vector<PanelSection> sections,
                                              const QString& query);

    const SystemStats& m_stats;
    const WeatherService& m_weather;
    const TileModel& m_tiles;
    const LanguageManager& m_language;
};

} // namespace ravlin
