#include "ScrollIntent.h"

#include <cmath>

namespace ravlin {

std::optional<ScrollIntent::Direction> ScrollIntent::feed(const EventMonitors::Event& event,
                                                          double now)
{
    const bool fresh = now - m_last > pause;
    m_last = now;
    if (fresh)
        reset();
    // The glide belongs to the gesture that set it off, whatever it did.
    if (event.momentum || m_decided)
        return std::nullopt;
    // The system reports how content moves; inverted ("natural") scrolling turns that
    // around, so undoing it gives the way the fingers went.
    m_travel += event.inverted ? -event.scrollDeltaY : event.scrollDeltaY;
    const double needed = event.precise ? trackpadPoints : wheelLines;
    if (std::abs(m_travel) < needed)
        return std::nullopt;
    m_decided = true;
    return m_travel > 0 ? Direction::Up : Direction::Down;
}

void ScrollIntent::reset()
{
    m_travel = 0;
    m_decided = false;
}

} // namespace ravlin
