#include "Scheduler.h"

namespace ravlin {

void Timer::invalidate()
{
    if (!m_state || !m_state->valid)
        return;
    m_state->valid = false;
    if (auto hook = std::move(m_state->onInvalidate))
        hook();
}

bool Timer::isValid() const
{
    return m_state && m_state->valid;
}

} // namespace ravlin
