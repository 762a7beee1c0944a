#pragma once

#include "platform/MenuBarSpacing.h"

namespace ravlin {

// Reads and writes NSStatusItemSpacing and NSStatusItemSelectionPadding in the current
// host's global domain, where applications' status bars read them when they start.
class MacMenuBarSpacing final : public MenuBarSpacing {
public:
    SpacingValues stored() override;
    bool store(const SpacingValues& values) override;
};

} // namespace ravlin
