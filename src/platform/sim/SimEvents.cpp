#include "SimEvents.h"

#include "SimDesktop.h"

namespace ravlin {

EventSource SimEvents::createCombinedSessionSource()
{
    if (m_desktop.eventSourceFails)
        return nullptr;
    return std::make_shared<int>(0);
}

std::optional<WindowServerPoint> SimEvents::cursorPosition()
{
    if (!m_desktop.cursorReadable)
        return std::nullopt;
    return m_desktop.cursor();
}

bool SimEvents::post(const EventSource& source, const MouseEvent& event, EventTap tap)
{
    if (!source)
        return false;
    m_desktop.postMouseEvent(event, tap);
    return true;
}

void SimEvents::warpCursor(WindowServerPoint point)
{
    m_desktop.warpCursor(point);
}

double SimEvents::secondsSinceUserInput()
{
    return m_desktop.hands().secondsSinceInput();
}

bool SimEvents::mouseButtonDown()
{
    return m_desktop.hands().buttonHeld();
}

std::uint64_t SimEvents::modifierFlagsHeld()
{
    return m_desktop.hands().modifiers();
}

} // namespace ravlin
