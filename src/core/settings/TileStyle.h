#pragma once

#include <QString>

#include <array>
#include <optional>

namespace ravlin {

enum class TileStyle { Dashboard, Capsules, Grid, Strip };

inline constexpr std::array<TileStyle, 4> allTileStyles = {
    TileStyle::Dashboard, TileStyle::Capsules, TileStyle::Grid, TileStyle::Strip};

QString tileStyleRawValue(TileStyle style);
std::optional<TileStyle> tileStyleFromRawValue(const QString& raw);
// The text key of the style's name in menus and the settings window ("style.grid").
QString tileStyleTitleKey(TileStyle style);

} // namespace ravlin
