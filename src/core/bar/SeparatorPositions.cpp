#include "SeparatorPositions.h"

#include "foundation/DefaultsStore.h"

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

// The split of [begin, end) that puts the fewest items on the wrong side: items before it
// want the left side. The leftmost of equal splits.
std::size_t bestSplit(const std::vector<bool>& wantsLeft, std::size_t begin, std::size_t end)
{
    std::size_t wrong = 0; // with the split at `begin`: every item wanting the left is right
    for (std::size_t i = begin; i < end; ++i)
        wrong += wantsLeft[i] ? 1 : 0;
    std::size_t best = begin, fewest = wrong;
    for (std::size_t i = begin; i < end; ++i) {
        wrong = wantsLeft[i] ? wrong - 1 : wrong + 1;
        if (wrong < fewest) {
            fewest = wrong;
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
        bool hidden = false;
        bool always = false;
    };
    std::vector<Place> places;
    for (const BarEntry& e : all)
        if (!e.fixed && e.inBar)
            places.push_back({e.raw.x, e.raw.x + e.raw.w, !wishes.wantsInSight(e.key),
                              wishes.inAlwaysHiddenSection(e.key)});
    if (mainItem) {
        const Place main{mainItem->x, mainItem->maxX(), false, false};
        places.insert(std::upper_bound(places.begin(), places.end(), main,
                                       [](const Place& a, const Place& b) { return a.x < b.x; }),
                      main);
    }
    const double right = rightEnd(all, mainItem);
    const std::size_t n = places.size();
    std::vector<bool> hidden(n), always(n);
    for (std::size_t i = 0; i < n; ++i) {
        hidden[i] = places[i].hidden;
        always[i] = places[i].always;
    }
    // Everything hidden wants the left: ties keep an item in sight rather than hide it.
    const std::size_t split = bestSplit(hidden, 0, n);
    const std::size_t alwaysSplit = bestSplit(always, 0, split);
    auto leftEdgeOf = [&](std::size_t i) {
        if (i < n)
            return places[i].x;
        return n > 0 ? places[n - 1].maxX : right;
    };
    return {right - leftEdgeOf(split),
            alwaysSplit == 0 ? farLeft(all, right) : right - leftEdgeOf(alwaysSplit)};
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
