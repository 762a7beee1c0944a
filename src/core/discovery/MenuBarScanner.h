#pragma once

#include "MenuBarItemInfo.h"

#include <vector>

namespace ravlin {

class MenuBarReader;

// The status-item windows on screen, own ones included, left to right.
class MenuBarScanner {
public:
    static constexpr double maxItemHeight = 40;

    explicit MenuBarScanner(const MenuBarReader& reader) : m_reader(reader) {}

    std::vector<MenuBarItemInfo> scan() const;

private:
    const MenuBarReader& m_reader;
};

} // namespace ravlin
