#pragma once

#include <QPointF>

#include <functional>
#include <memory>

namespace ravlin {

// Global monitors of pointer events sent to other applications.
class EventMonitors {
public:
    enum Kind { MouseMoved = 1, LeftMouseDown = 2, RightMouseDown = 4 };

    // Removes its monitor when destroyed.
    class Monitor {
    public:
        virtual ~Monitor() = default;
    };

    virtual ~EventMonitors() = default;
    // kinds is a combination of Kind values; the handler gets the kind that happened.
    virtual std::unique_ptr<Monitor> addGlobalMonitor(int kinds,
                                                      std::function<void(Kind)> handler) = 0;
};

} // namespace ravlin
