#include "MacEvents.h"

#include "CFRef.h"

#include <ApplicationServices/ApplicationServices.h>

#include <algorithm>
#include <limits>

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

// The HID system state holds the hardware's events only, so Ravlin's own drags do not count.
double MacEvents::secondsSinceUserInput()
{
    const CGEventType kinds[] = {kCGEventKeyDown,          kCGEventFlagsChanged,
                                 kCGEventMouseMoved,       kCGEventLeftMouseDown,
                                 kCGEventRightMouseDown,   kCGEventOtherMouseDown,
                                 kCGEventLeftMouseDragged, kCGEventRightMouseDragged,
                                 kCGEventScrollWheel};
    double least = std::numeric_limits<double>::infinity();
    for (CGEventType kind : kinds)
        least = std::min(least, CGEventSourceSecondsSinceLastEventType(
                                    kCGEventSourceStateHIDSystemState, kind));
    return least;
}

bool MacEvents::mouseButtonDown()
{
    for (CGMouseButton button : {kCGMouseButtonLeft, kCGMouseButtonRight, kCGMouseButtonCenter})
        if (CGEventSourceButtonState(kCGEventSourceStateHIDSystemState, button))
            return true;
    return false;
}

std::uint64_t MacEvents::modifierFlagsHeld()
{
    const CGEventFlags held = CGEventSourceFlagsState(kCGEventSourceStateHIDSystemState);
    return std::uint64_t(held) & (kCGEventFlagMaskShift | kCGEventFlagMaskControl |
                                  kCGEventFlagMaskAlternate | kCGEventFlagMaskCommand);
}

} // namespace ravlin
