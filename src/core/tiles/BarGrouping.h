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
    std::vector<BarGroup> group(const std::vector<BarItem>& items) const;

private:
    BarItemFactory& m_factory;
    const LanguageManager& m_language;
};

} // namespace ravlin
