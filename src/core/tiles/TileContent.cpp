#include "TileContent.h"

namespace ravlin {

bool isFullWidth(const TileContent& content)
{
    return std::holds_alternative<NetworkRates>(content);
}

std::vector<std::vector<TileContent>> packRows(const std::vector<TileContent>& contents)
{
    return packRows(contents, [](const TileContent& c) { return isFullWidth(c); });
}

} // namespace ravlin
