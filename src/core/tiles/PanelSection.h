#pragma once

#include "TileContent.h"

#include <QColor>
#include <QString>

#include <optional>
#include <vector>

namespace ravlin {

enum class TileKind { Weather, Stat, Network, Item, Permission };

// "weather", "stat", "network", "item" or "permission".
QString tileKindName(TileKind kind);

// Everything a tile shows, decided before anything is drawn.
struct PanelTile {
    TileKind kind = TileKind::Item;
    QString key; // item key, "sys.cpu"…, "weather", "bar.grant"/"bar.grantAX"
    QString label;
    QString subtitle; // may be empty
    QString detail;   // may be empty
    QString note;     // the weather's description in words
    QString symbol;   // may be empty: an item of another application shows its image
    std::optional<QColor> accent;
    std::optional<double> percent;      // a statistic's gauge, 0–100
    std::optional<TileContent> content; // the tiles the style arranges
    bool isNew = false;                 // an item first seen within the last day
    bool placedInBar = false;           // set to stay in the bar, but out of sight
    bool changed = false;               // it changed while hidden, and has not been seen since
    bool asksForAccess = false;         // the weather header asks for location access
};

// One titled block of the panel. The weather header and the permission tiles
// have no title and are not arranged by the tile style.
struct PanelSection {
    std::optional<QString> title;
    std::vector<PanelTile> tiles;
    bool arranged = true;
};

} // namespace ravlin
