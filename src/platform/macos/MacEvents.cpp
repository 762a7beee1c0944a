#include "MacEvents.h"

#include "CFRef.h"

#include <ApplicationServices/ApplicationServices.h>

namespace ravlin {

EventSource MacEvents::createCombinedSessionSource()
{
    CGEventSourceRef source = CGEventSourceCreate(kCGEventSourceStateCombinedSessionState);
    if (!source)
        return nullptr;
    return EventSource(source, [](const void* ref) { CFRelease(ref); });
}

std::optional<WindowServerPoint> MacEvents::cursorPosition()
{
    CFRef<CGEventRef> event(CGEventCreate(nullptr));
    if (!event)
        return std::nullopt;
    const CGPoint location = CGEventGetLocation(event.get());
    return WindowServerPoint{location.x, location.y};
}

bool MacEvents::post(const EventSource& source, const MouseEvent& e, EventTap tap)
{
    auto sourceRef = static_cast<CGEventSourceRef>(const_cast<void*>(source.get()));
    CFRef<CGEventRef> event(CGEventCreateMouseEvent(sourceRef, CGEventType(e.type),
                                                    CGPointMake(e.location.x, e.location.y),
                                                    CGMouseButton(e.button)));
    if (!event)
        return false;
    CGEventSetFlags(event.get(), CGEventFlags(e.flags));
    for (const auto& [field, value] : e.integerFields)
        CGEventSetIntegerValueField(event.get(), CGEventField(field), value);
    CGEventPost(CGEventTapLocation(tap), event.get());
    return true;
}

void MacEvents::warpCursor(WindowServerPoint point)
{
    CGWarpMouseCursorPosition(CGPointMake(point.x, point.y));
}

} // namespace ravlin
