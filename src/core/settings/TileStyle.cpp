#include "TileStyle.h"

namespace ravlin {

QString tileStyleRawValue(TileStyle style)
{
    switch (style) {
    case TileStyle::Dashboard:
        return QStringLiteral("dashboard");
    case TileStyle::Capsules:
        return QStringLiteral("capsules");
    case TileStyle::Grid:
        return QStringLiteral("grid");
    case TileStyle::Strip:
        return QStringLiteral("strip");
    case TileStyle::Bar:
        return QStringLiteral("bar");
    }
    return QStringLiteral("dashboard");
}

std::optional<TileStyle> tileStyleFromRawValue(const QString& raw)
{
    for (TileStyle style : allTileStyles) {
        if (tileStyleRawValue(style) == raw)
            return style;
    }
    return std::nullopt;
}

QString tileStyleTitleKey(TileStyle style)
{
    return QStringLiteral("style.") + tileStyleRawValue(style);
}

} // namespace ravlin
