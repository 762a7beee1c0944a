#include "ItemPlacement.h"

namespace ravlin {

QString itemPlacementName(ItemPlacement placement)
{
    switch (placement) {
    case ItemPlacement::Bar:
        return QStringLiteral("bar");
    case ItemPlacement::Panel:
        return QStringLiteral("panel");
    case ItemPlacement::Off:
        return QStringLiteral("off");
    }
    return QStringLiteral("panel");
}

std::optional<ItemPlacement> itemPlacementFromName(const QString& name)
{
    for (auto p : {ItemPlacement::Bar, ItemPlacement::Panel, ItemPlacement::Off}) {
        if (itemPlacementName(p) == name)
            return p;
    }
    return std::nullopt;
}

} // namespace ravlin
