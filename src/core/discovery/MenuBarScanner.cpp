#include "MenuBarScanner.h"

#include "MenuBarReader.h"
#include "platform/WindowServer.h"

#include <algorithm>

namespace ravlin {

std::vector<MenuBarItemInfo> MenuBarScanner::scan() const
{
    const auto windows = m_reader.statusWindows(WindowListOption::OnScreenOnly);
    std::vector<MenuBarItemInfo> items;
    for (const StatusWindow& w : windows.value_or(std::vector<StatusWindow>{})) {
        if (!w.bounds || w.bounds->height > maxItemHeight)
            continue;
        items.push_back({w.number, w.bounds->x, w.bounds->y, w.bounds->width, w.bounds->height,
                         w.owner, w.name});
    }
    std::stable_sort(items.begin(), items.end(),
                     [](const auto& a, const auto& b) { return a.x < b.x; });
    return items;
}

} // namespace ravlin
