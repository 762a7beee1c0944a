#include "SimUserHands.h"

#include "foundation/Scheduler.h"

#include <algorithm>

namespace ravlin {

double SimUserHands::now() const
{
    return m_scheduler ? m_scheduler->now() : 0.0;
}

void SimUserHands::typeFor(double seconds)
{
    m_lastInput = std::max(m_lastInput, now() + std::max(0.0, seconds));
}

void SimUserHands::input()
{
    m_lastInput = std::max(m_lastInput, now());
}

void SimUserHands::rest()
{
    m_lastInput = std::min(m_lastInput, now());
    m_buttonHeld = false;
    m_modifiers = 0;
}

double SimUserHands::secondsSinceInput() const
{
    return std::max(0.0, now() - m_lastInput);
}

} // namespace ravlin
