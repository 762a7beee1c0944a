#pragma once

#include "platform/Screens.h"

namespace ravlin {

class SimDesktop;

class SimScreens final : public Screens {
public:
    explicit SimScreens(SimDesktop& desktop);

    std::vector<ScreenInfo> screens() override;
    std::optional<ScreenInfo> mainScreen() override;
    ScreenPoint mouseLocation() override;

private:
    SimDesktop& m_desktop;
};

} // namespace ravlin
