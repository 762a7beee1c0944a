#pragma once

#include "platform/Events.h"

namespace ravlin {

class SimDesktop;

class SimEvents final : public Events {
public:
    explicit SimEvents(SimDesktop& desktop) : m_desktop(desktop) {}

    EventSource createCombinedSessionSource() override;
    std::optional<WindowServerPoint> cursorPosition() override;
    bool post(const EventSource& source, const MouseEvent& event, EventTap tap) override;
    void warpCursor(WindowServerPoint point) override;
    double secondsSinceUserInput() override;
    bool mouseButtonDown() override;
    std::uint64_t modifierFlagsHeld() override;

private:
    SimDesktop& m_desktop;
};

} // namespace ravlin
