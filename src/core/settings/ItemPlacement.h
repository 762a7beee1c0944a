#pragma once

#include <QString>

#include <optional>

namespace ravlin {

// Where an item appears: kept visible in the menu bar, as a tile in the panel, or nowhere.
enum class ItemPlacement { Bar, Panel, Off };

QString itemPlacementName(ItemPlacement placement); // "bar", "panel", "off"
std::optional<ItemPlacement> itemPlacementFromName(const QString& name);

} // namespace ravlin
