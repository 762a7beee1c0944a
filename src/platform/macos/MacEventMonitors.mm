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

NSEventMask maskOf(int kinds)
{
    NSEventMask mask = 0;
    if (kinds & EventMonitors::MouseMoved)
        mask |= NSEventMaskMouseMoved;
    if (kinds & EventMonitors::LeftMouseDown)
        mask |= NSEventMaskLeftMouseDown;
    if (kinds & EventMonitors::RightMouseDown)
        mask |= NSEventMaskRightMouseDown;
    if (kinds & EventMonitors::ScrollWheel)
        mask |= NSEventMaskScrollWheel;
    return mask;
}

} // namespace

std::unique_ptr<EventMonitors::Monitor>
MacEventMonitors::watch(int kinds, std::function<void(const Event&)> handler)
{
    auto shared = std::make_shared<std::function<void(const Event&)>>(std::move(handler));
    id token = [NSEvent addGlobalMonitorForEventsMatchingMask:maskOf(kinds)
                                                      handler:^(NSEvent* event) {
                                                        (*shared)(translated(event));
                                                      }];
    return std::make_unique<MacMonitor>(token);
}

std::unique_ptr<EventMonitors::Monitor>
MacEventMonitors::watchOwn(int kinds, std::function<void(const Event&)> handler)
{
    auto shared = std::make_shared<std::function<void(const Event&)>>(std::move(handler));
    id token = [NSEvent addLocalMonitorForEventsMatchingMask:maskOf(kinds)
                                                     handler:^NSEvent*(NSEvent* event) {
                                                       (*shared)(translated(event));
                                                       return event;
                                                     }];
    return std::make_unique<MacMonitor>(token);
}

} // namespace ravlin
