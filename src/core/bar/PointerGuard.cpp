#include "PointerGuard.h"

#include "foundation/Scheduler.h"
#include "platform/Events.h"

#include <algorithm>

namespace ravlin {
namespace {

constexpr std::uint64_t modifierFlags =
    EventFlag::shift | EventFlag::control | EventFlag::option | EventFlag::command;
// How often a wait looks again while a button or a key is held.
constexpr double heldStep = 0.1;

} // namespace

std::optional<QString> PointerGuard::busy() const
{
    if (m_events.mouseButtonDown())
        return QStringLiteral("a mouse button is held");
    if (m_events.modifierFlagsHeld() & modifierFlags)
        return QStringLiteral("a modifier key is held");
    const double since = m_events.secondsSinceUserInput();
    if (since < quietSeconds)
        return QStringLiteral("the user typed or moved the pointer %1 s ago")
            .arg(since, 0, 'f', 2);
    return std::nullopt;
}

double PointerGuard::secondsToQuiet() const
{
    if (m_events.mouseButtonDown() || (m_events.modifierFlagsHeld() & modifierFlags))
        return heldStep;
    return std::max(0.0, quietSeconds - m_events.secondsSinceUserInput());
}

bool PointerGuard::waitUntilFree(double patience) const
{
    double waited = 0;
    while (busy()) {
        if (waited >= patience)
            return false;
        const double step =
            std::min(std::max(secondsToQuiet(), 0.01), patience - waited);
        m_scheduler.sleepBlocking(step);
        waited += step;
    }
    return true;
}

} // namespace ravlin
