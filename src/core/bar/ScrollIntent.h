#pragma once

#include "platform/EventMonitors.h"

#include <limits>
#include <optional>

namespace ravlin {

// Turns scroll events into at most one decision per gesture: up or down, as the user's
// fingers or wheel moved (whatever way the system scrolls content for them). A wheel decides
// with its first notch, a trackpad once the fingers have travelled a little; the rest of the
// gesture and the glide after it decide nothing. A pause starts a new gesture.
class ScrollIntent {
public:
    static constexpr double wheelLines = 0.9;
    static constexpr double trackpadPoints = 12;
    static constexpr double pause = 0.35;

    enum class Direction { Up, Down };

    // `now` is the scheduler's time of the event.
    std::optional<Direction> feed(const EventMonitors::Event& event, double now);
    // Forget the gesture (the pointer left the menu bar).
    void reset();

private:
    double m_travel = 0;
    double m_last = -std::numeric_limits<double>::infinity();
    bool m_decided = false;
};

} // namespace ravlin
