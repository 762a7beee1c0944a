#pragma once

#include "foundation/Scheduler.h"

#include <functional>

namespace ravlin {

class PointerGuard;

// Waits, through the scheduler, for a moment the user's hands rest, and then runs `quiet`;
// when none comes within `patience` seconds it runs `gaveUp` instead. It looks again only
// when the hands may have come to rest (half a second after the last input, or a tenth of a
// second while a button or key is held), and not at all once it is done. Destroying it
// ends the wait without running either.
class QuietMoment {
public:
    QuietMoment(const PointerGuard& guard, Scheduler& scheduler, double patience,
                std::function<void()> quiet, std::function<void()> gaveUp);
    ~QuietMoment();
    QuietMoment(const QuietMoment&) = delete;
    QuietMoment& operator=(const QuietMoment&) = delete;

    bool isWaiting() const { return m_timer.isValid(); }

private:
    void look();

    const PointerGuard& m_guard;
    Scheduler& m_scheduler;
    double m_deadline;
    std::function<void()> m_quiet;
    std::function<void()> m_gaveUp;
    Timer m_timer;
};

} // namespace ravlin
