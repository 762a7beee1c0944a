#pragma once

#include "BarGroup.h"

#include <vector>

namespace ravlin {

class BarItemFactory;
class LanguageManager;

// Splits the panel's items into the applications' group and the system's group.
class BarGrouping {
public:
    BarGrouping(BarItemFactory& factory, const LanguageManager& language);

    std::vector<BarGroup> makeGroups(const std::vector<MenuBarItemInfo>& infos);
    // Items that would read alike are named apart first.
    std::vector<BarGroup> group(std::vector<BarItem> items) const;

private:
    BarItemFactory& m_factory;
    const LanguageManager& m_language;
};

} // namespace ravlin
