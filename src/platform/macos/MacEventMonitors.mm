#include "MacEventMonitors.h"

#import <AppKit/AppKit.h>

namespace ravlin {
namespace {

class MacMonitor final : public EventMonitors::Monitor {
public:
    explicit MacMonitor(id token) : m_token(token) {}
    ~MacMonitor() override
    {
        if (m_token)
            [NSEvent removeMonitor:m_token];
    }

private:
    id m_token;
};

EventMonitors::Kind kindOf(NSEvent* event)
{
    switch (event.type) {
    case NSEventTypeMouseMoved:
        return EventMonitors::MouseMoved;
    case NSEventTypeRightMouseDown:
        return EventMonitors::RightMouseDown;
    case NSEventTypeScrollWheel:
        return EventMonitors::ScrollWheel;
    default:
        return EventMonitors::LeftMouseDown;
    }
}

// What the event says, as the system says it; the core decides what it means.
EventMonitors::Event translated(NSEvent* event)
{
    EventMonitors::Event e;
    e.kind = kindOf(event);
    // The device-independent modifier masks have the same values as the event flags.
    e.modifierFlags = std::uint64_t(event.modifierFlags &
                                    NSEventModifierFlagDeviceIndependentFlagsMask);
    if (e.kind == EventMonitors::ScrollWheel) {
        e.scrollDeltaY = event.scrollingDeltaY;
        e.precise = event.hasPreciseScrollingDeltas;
        e.inverted = event.isDirectionInvertedFromDevice;
        e.momentum = event.momentumPhase != NSEventPhaseNone;
    }
    return e;
}

} // namespace

std::unique_ptr<EventMonitors::Monitor>
MacEventMonitors::watch(int kinds, std::function<void(const Event&)> handler)
{
    NSEventMask mask = 0;
    if (kinds & MouseMoved)
        mask |= NSEventMaskMouseMoved;
    if (kinds & LeftMouseDown)
        mask |= NSEventMaskLeftMouseDown;
    if (kinds & RightMouseDown)
        mask |= NSEventMaskRightMouseDown;
    if (kinds & ScrollWheel)
        mask |= NSEventMaskScrollWheel;
    auto shared = std::make_shared<std::function<void(const Event&)>>(std::move(handler));
    id token = [NSEvent addGlobalMonitorForEventsMatchingMask:mask
                                                      handler:^(NSEvent* event) {
                                                        (*shared)(translated(event));
                                                      }];
    return std::make_unique<MacMonitor>(token);
}

} // namespace ravlin
