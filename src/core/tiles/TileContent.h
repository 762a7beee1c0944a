#pragma once

#include "BarItem.h"
#include "core/sysinfo/Stat.h"

#include <utility>
#include <variant>
#include <vector>

namespace ravlin {

// The network tile's figures: its Stat and both rates in MB/s.
struct NetworkRates {
    Stat stat;
    double down = 0;
    double up = 0;

    bool operator==(const NetworkRates&) const = default;
};

// One tile of a panel section, in the order of its tags: a statistic (0), an
// item (1) or the network throughput (2).
using TileContent = std::variant<Stat, BarItem, NetworkRates>;

// Only the network tile takes a row of its own.
bool isFullWidth(const TileContent& content);

// Pairs half-width tiles in order; a full-width tile always stands alone, and a
// single half-width tile before it keeps its row to itself.
template <class T, class FullWidth>
std::vector<std::vector<T>> packRows(const std::vector<T>& tiles, FullWidth fullWidth)
{
    std::vector<std::vector<T>> rows;
    std::vector<T> current;
    for (const T& tile : tiles) {
        if (fullWidth(tile)) {
            if (!current.empty())
                rows.push_back(std::exchange(current, {}));
            rows.push_back({tile});
            continue;
        }
        current.push_back(tile);
        if (current.size() == 2)
            rows.push_back(std::exchange(current, {}));
    }
    if (!current.empty())
        rows.push_back(std::move(current));
    return rows;
}

std::vector<std::vector<TileContent>> packRows(const std::vector<TileContent>& contents);

} // namespace ravlin
