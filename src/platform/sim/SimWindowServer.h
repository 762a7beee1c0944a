#pragma once

#include "platform/WindowServer.h"

namespace ravlin {

class SimDesktop;

// The window list of the simulated desktop: its menu-bar backdrop, every status
// item as a layer-25 window (or, where items have no windows, one bar window per
// display), and any raw entries a test added.
class SimWindowServer final : public WindowServer {
public:
    // The bar windows' numbers, one per display from this one on.
    static constexpr std::uint32_t barWindowBase = 40;

    explicit SimWindowServer(SimDesktop& desktop) : m_desktop(desktop) {}

    std::optional<PlistArray> windowList(WindowListOption option) override;
    QImage windowImage(std::uint32_t windowNumber) override;

private:
    void appendItemWindows(PlistArray& list, WindowListOption option);
    void appendBarWindows(PlistArray& list);

    SimDesktop& m_desktop;
};

} // namespace ravlin
