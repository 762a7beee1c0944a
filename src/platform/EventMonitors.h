#pragma once

#include <QPointF>

#include <cstdint>
#include <functional>
#include <memory>

namespace ravlin {

// Monitors of pointer events: global ones hear what is sent to other applications, local ones
// what is sent to this application itself (its own status items and windows).
class EventMonitors {
public:
    enum Kind { MouseMoved = 1, LeftMouseDown = 2, RightMouseDown = 4, ScrollWheel = 8 };

    // What a monitor hears of one event, as the system reports it.
    struct Event {
        Kind kind = MouseMoved;
        // The modifier keys held (EventFlag masks).
        std::uint64_t modifierFlags = 0;
        // Scroll wheel events: the vertical distance (lines for a wheel, points for a
        // trackpad, `precise` then), whether the system inverts it for the user ("natural"
        // scrolling), and whether it is the trackpad's glide after the fingers left.
        double scrollDeltaY = 0;
        bool precise = false;
        bool inverted = false;
        bool momentum = false;
    };

    // Removes its monitor when destroyed.
    class Monitor {
    public:
        virtual ~Monitor() = default;
    };

    virtual ~EventMonitors() = default;
    // kinds is a combination of Kind values; the handler hears each event of those kinds.
    virtual std::unique_ptr<Monitor> watch(int kinds,
                                           std::function<void(const Event&)> handler) = 0;
    // Events sent to this application; the handler only listens, the events go on.
    virtual std::unique_ptr<Monitor> watchOwn(int kinds,
                                              std::function<void(const Event&)> handler) = 0;
    // The same, for handlers that only need to know which kind happened.
    std::unique_ptr<Monitor> addGlobalMonitor(int kinds, std::function<void(Kind)> handler)
    {
        return watch(kinds, [handler = std::move(handler)](const Event& e) { handler(e.kind); });
    }
};

} // namespace ravlin
