#include "QuietMoment.h"

#include "PointerGuard.h"

#include <algorithm>

namespace ravlin {

QuietMoment::QuietMoment(const PointerGuard& guard, Scheduler& scheduler, double patience,
                         std::function<void()> quiet, std::function<void()> gaveUp)
    : m_guard(guard), m_scheduler(scheduler), m_deadline(scheduler.now() + patience),
      m_quiet(std::move(quiet)), m_gaveUp(std::move(gaveUp))
{
    const double first = std::clamp(m_guard.secondsToQuiet(), 0.01, patience);
    m_timer = m_scheduler.after(first, [this] { look(); });
}

QuietMoment::~QuietMoment()
{
    m_timer.invalidate();
}

// The callbacks may destroy this object: each is taken out before it runs.
void QuietMoment::look()
{
    m_timer = Timer();
    if (!m_guard.busy()) {
        const std::function<void()> quiet = std::exchange(m_quiet, {});
        if (quiet)
            quiet();
        return;
    }
    const double left = m_deadline - m_scheduler.now();
    if (left <= 0) {
        const std::function<void()> gaveUp = std::exchange(m_gaveUp, {});
        if (gaveUp)
            gaveUp();
        return;
    }
    m_timer = m_scheduler.after(std::clamp(m_guard.secondsToQuiet(), 0.01, left), [this] { look(); });
}

} // namespace ravlin
