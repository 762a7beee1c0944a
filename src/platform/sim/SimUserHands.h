#pragma once

#include <cstdint>
#include <limits>

namespace ravlin {

class Scheduler;

// The person at the simulated Mac, as far as their hands go: typing or moving the pointer for
// a while, holding a mouse button or modifier keys. The window server reads this state (time
// since the last input, buttons and modifiers held) for the checks that keep synthetic drags
// off a pointer in use. Synthesised events are not the person's and never change it.
class SimUserHands {
public:
    void setScheduler(Scheduler* scheduler) { m_scheduler = scheduler; }

    // From now on, for `seconds`, key presses (or pointer movements) keep coming.
    void typeFor(double seconds);
    void movePointerFor(double seconds) { typeFor(seconds); }
    // One key press or pointer movement, now.
    void input();
    void holdButton(bool held) { m_buttonHeld = held; }
    void holdModifiers(std::uint64_t flags) { m_modifiers |= flags; }
    void releaseModifiers(std::uint64_t flags) { m_modifiers &= ~flags; }
    // Stops typing and moving and lets go of everything.
    void rest();

    double secondsSinceInput() const;
    bool buttonHeld() const { return m_buttonHeld; }
    std::uint64_t modifiers() const { return m_modifiers; }

private:
    double now() const;

    Scheduler* m_scheduler = nullptr;
    // The last input happens at this moment, or is still going on while it lies ahead.
    double m_lastInput = -std::numeric_limits<double>::infinity();
    bool m_buttonHeld = false;
    std::uint64_t m_modifiers = 0;
};

} // namespace ravlin
