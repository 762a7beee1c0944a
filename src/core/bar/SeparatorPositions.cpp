#include "SeparatorPositions.h"

#include "foundation/DefaultsStore.h"

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

// The split of [begin, end) that costs least: an item left of it costs what it costs to hide
// it, one right of it what it costs to show it. The rightmost of equal splits: a tie hides.
std::size_t bestSplit(const std::vector<int>& costLeft, const std::vector<int>& costRight,
                      std::size_t begin, std::size_t end)
{
    int cost = 0; // with the split at `begin`, everything stands right of it
    for (std::size_t i = begin; i < end; ++i)
        cost += costRight[i];
    std::size_t best = begin;
    int lowest = cost;
    for (std::size_t i = begin; i < end; ++i) {
        cost += costLeft[i] - costRight[i];
        if (cost <= lowest) {
            lowest = cost;
            best = i + 1;
        }
    }
    return best;
}

} // namespace

SeparatorPositions SeparatorPositions::forBar(const std::vector<BarEntry>& all,
                                              const BarWishes::Now& wishes,
                                              const std::optional<ScreenRect>& mainItem)
{
    struct Place {
        double x = 0;
        double maxX = 0;
        bool inSight = false;
        bool off = false;
        bool always = false;
        QString key;
    };
    std::vector<Place> places;
    for (const BarEntry& e : all)
        if (!e.fixed && e.inBar)
            places.push_back({e.raw.x, e.raw.x + e.raw.w, wishes.wantsInSight(e.key),
                              wishes.placement(e.key) == ItemPlacement::Off,
                              wishes.inAlwaysHiddenSection(e.key), e.key});
    if (mainItem) {
        const Place main{mainItem->x, mainItem->maxX(), true, false, false, {}};
        places.insert(std::upper_bound(places.begin(), places.end(), main,
                                       [](const Place& a, const Place& b) { return a.x < b.x; }),
                      main);
    }
    const double right = rightEnd(all, mainItem);
    // Hiding what the user wants in the bar costs as much as showing what belongs in the
    // panel; showing what belongs nowhere costs twice that.
    const std::size_t n = places.size();
    std::vector<int> hideCost(n), showCost(n), inAlwaysCost(n), outOfAlwaysCost(n);
    for (std::size_t i = 0; i < n; ++i) {
        hideCost[i] = places[i].inSight ? 1 : 0;
        showCost[i] = places[i].off ? 2 : places[i].inSight ? 0 : 1;
        inAlwaysCost[i] = places[i].always ? 0 : 1;
        outOfAlwaysCost[i] = places[i].always ? 1 : 0;
    }
    const std::size_t split = bestSplit(hideCost, showCost, 0, n);
    // The always-hidden section takes only what the user put there: a tie leaves it smaller.
    // Each item left of the split adds one, less than any real difference: the smallest wins.
    const int scale = int(n) + 1;
    std::vector<int> leftOfAlways(n), rightOfAlways(n);
    for (std::size_t i = 0; i < n; ++i) {
        leftOfAlways[i] = inAlwaysCost[i] * scale + 1;
        rightOfAlways[i] = outOfAlwaysCost[i] * scale;
    }
    const std::size_t alwaysSplit = bestSplit(leftOfAlways, rightOfAlways, 0, split);
    auto leftEdgeOf = [&](std::size_t i) {
        if (i < n)
            return places[i].x;
        return n > 0 ? places[n - 1].maxX : right;
    };
    SeparatorPositions positions{
        right - leftEdgeOf(split),
        alwaysSplit == 0 ? farLeft(all, right) : right - leftEdgeOf(alwaysSplit), {}};
    for (std::size_t i = 0; i < split; ++i)
        positions.leftOfHidden.insert(places[i].key);
    return positions;
}

double SeparatorPositions::farLeft(const std::vector<BarEntry>& entries, double rightEnd)
{
    double left = rightEnd;
    for (const BarEntry& e : entries)
        if (!e.fixed && e.inBar)
            left = std::min(left, e.raw.x);
    // Beyond the leftmost item: the bar puts an item asked for a place past the end at the end.
    return rightEnd - left + 1.0;
}

double SeparatorPositions::rightEnd(const std::vector<BarEntry>& entries,
                                    const std::optional<ScreenRect>& mainItem)
{
    double right = mainItem ? mainItem->maxX() : 0.0;
    for (const BarEntry& e : entries)
        if (!e.fixed && e.inBar)
            right = std::max(right, e.raw.x + e.raw.w);
    return right;
}

void SeparatorPositions::store(DefaultsStore& defaults, const QString& autosaveName,
                               double position)
{
    const PlistValue value = std::trunc(position) == position ? PlistValue(std::int64_t(position))
                                                              : PlistValue(position);
    defaults.set(QStringLiteral("NSStatusItem Preferred Position ") + autosaveName, value);
}

} // namespace ravlin
