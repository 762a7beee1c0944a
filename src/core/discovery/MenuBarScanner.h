#pragma once

#include "MenuBarItemInfo.h"

#include <vector>

namespace ravlin {

class WindowServer;

// The status-item windows on screen, own ones included, left to right.
class MenuBarScanner {
public:
    static constexpr double maxItemHeight = 40;

    explicit MenuBarScanner(WindowServer& windowServer) : m_windowServer(windowServer) {}

    std::vector<MenuBarItemInfo> scan() const;

private:
    WindowServer& m_windowServer;
};

} // namespace ravlin
