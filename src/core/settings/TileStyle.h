#pragma once

#include <QString>

#include <array>
#include <optional>

namespace ravlin {

// The four panel styles lay tiles out in a floating panel; the bar is one row of the hidden
// items' pictures hanging under the menu bar, the natural style on a notched display.
enum class TileStyle { Dashboard, Capsules, Grid, Strip, Bar };

inline constexpr std::array<TileStyle, 5> allTileStyles = {
    TileStyle::Dashboard, TileStyle::Capsules, TileStyle::Grid, TileStyle::Strip, TileStyle::Bar};
// The styles that show a panel of tiles.
inline constexpr std::array<TileStyle, 4> panelTileStyles = {
    TileStyle::Dashboard, TileStyle::Capsules, TileStyle::Grid, TileStyle::Strip};

QString tileStyleRawValue(TileStyle style);
std::optional<TileStyle> tileStyleFromRawValue(const QString& raw);
// The text key of the style's name in menus and the settings window ("style.grid").
QString tileStyleTitleKey(TileStyle style);

} // namespace ravlin
