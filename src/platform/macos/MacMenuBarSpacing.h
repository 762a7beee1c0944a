#pragma once

#include "platform/MenuBarSpacing.h"

namespace ravlin {

// Writes NSStatusItemSpacing and NSStatusItemSelectionPadding into the current
// host's global domain, where the system's status bar reads them at login.
class MacMenuBarSpacing final : public MenuBarSpacing {
public:
    bool apply(int spacing, int padding) override;
};

} // namespace ravlin
