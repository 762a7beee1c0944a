#pragma once

#include "platform/Screens.h"

#include <memory>

namespace ravlin {

// The displays and the mouse location as AppKit reports them (screen coordinates already),
// and their changes as the application hears of them.
class MacScreens final : public Screens {
public:
    MacScreens();
    ~MacScreens() override;

    std::vector<ScreenInfo> screens() override;
    std::optional<ScreenInfo> mainScreen() override;
    ScreenPoint mouseLocation() override;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace ravlin
