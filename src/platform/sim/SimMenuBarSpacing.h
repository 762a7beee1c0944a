#pragma once

#include "platform/MenuBarSpacing.h"

#include <optional>
#include <utility>

namespace ravlin {

// Records the spacing the application asked for; the simulated bar keeps its layout.
class SimMenuBarSpacing final : public MenuBarSpacing {
public:
    bool apply(int spacing, int padding) override
    {
        m_applied = std::make_pair(spacing, padding);
        return true;
    }
    // The last spacing and padding applied, if any.
    std::optional<std::pair<int, int>> applied() const { return m_applied; }

private:
    std::optional<std::pair<int, int>> m_applied;
};

} // namespace ravlin
