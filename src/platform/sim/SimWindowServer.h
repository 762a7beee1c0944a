#pragma once

#include "platform/WindowServer.h"

namespace ravlin {

class SimDesktop;

// The window list of the simulated desktop: its menu-bar backdrop, every status
// item as a layer-25 window, and any raw entries a test added.
class SimWindowServer final : public WindowServer {
public:
    explicit SimWindowServer(SimDesktop& desktop) : m_desktop(desktop) {}

    std::optional<PlistArray> windowList(WindowListOption option) override;
    QImage windowImage(std::uint32_t windowNumber) override;

private:
    SimDesktop& m_desktop;
};

} // namespace ravlin
