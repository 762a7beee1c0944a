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

} // namespace

std::unique_ptr<EventMonitors::Monitor>
MacEventMonitors::addGlobalMonitor(int kinds, std::function<void(Kind)> handler)
{
    NSEventMask mask = 0;
    if (kinds & MouseMoved)
        mask |= NSEventMaskMouseMoved;
    if (kinds & LeftMouseDown)
        mask |= NSEventMaskLeftMouseDown;
    if (kinds & RightMouseDown)
        mask |= NSEventMaskRightMouseDown;
    auto shared = std::make_shared<std::function<void(Kind)>>(std::move(handler));
    id token = [NSEvent
        addGlobalMonitorForEventsMatchingMask:mask
                                      handler:^(NSEvent* event) {
                                        Kind kind = event.type == NSEventTypeMouseMoved ? MouseMoved
                                                    : event.type == NSEventTypeRightMouseDown
                                                        ? RightMouseDown
                                                        : LeftMouseDown;
                                        (*shared)(kind);
                                      }];
    return std::make_unique<MacMonitor>(token);
}

} // namespace ravlin
