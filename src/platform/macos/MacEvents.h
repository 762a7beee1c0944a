#pragma once

#include "platform/Events.h"

namespace ravlin {

// Synthesised mouse events and the cursor through Core Graphics events.
class MacEvents final : public Events {
public:
    EventSource createCombinedSessionSource() override;
    std::optional<WindowServerPoint> cursorPosition() override;
    bool post(const EventSource& source, const MouseEvent& event, EventTap tap) override;
    void warpCursor(WindowServerPoint point) override;
    double secondsSinceUserInput() override;
    bool mouseButtonDown() override;
    std::uint64_t modifierFlagsHeld() override;
};

} // namespace ravlin
