#pragma once

#include "platform/Screens.h"

namespace ravlin {

// The displays and the mouse location as AppKit reports them (screen coordinates already).
class MacScreens final : public Screens {
public:
    std::vector<ScreenInfo> screens() override;
    std::optional<ScreenInfo> mainScreen() override;
    ScreenPoint mouseLocation() override;
};

} // namespace ravlin
