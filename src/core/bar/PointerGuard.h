#pragma once

#include <QString>

#include <optional>

namespace ravlin {

class Events;
class Scheduler;

// Decides whether the pointer is the user's right now. A synthetic drag takes the pointer for
// a moment; it must never happen while the user works with it: not while a mouse button or a
// modifier key is held, nor within half a second of a key press or a movement of the pointer.
class PointerGuard {
public:
    static constexpr double quietSeconds = 0.5;

    PointerGuard(Events& events, Scheduler& scheduler) : m_events(events), m_scheduler(scheduler)
    {
    }

    // Why the pointer is the user's now, or nothing when Ravlin may take it for a moment.
    std::optional<QString> busy() const;
    // Waits (blocking, like the platform's settle waits; for work off the main thread) until
    // busy() says nothing, at most `patience` seconds. Whether the pointer is free now.
    bool waitUntilFree(double patience) const;
    // How long until the hands have been quiet long enough, as far as one can tell now.
    double secondsToQuiet() const;

private:
    Events& m_events;
    Scheduler& m_scheduler;
};

} // namespace ravlin
