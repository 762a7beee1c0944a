#pragma once

#include "platform/EventMonitors.h"

#include <vector>

namespace ravlin {

// Global monitors over the simulated desktop: the sandbox tells them of the
// person's pointer moves and of clicks that go to other applications.
class SimEventMonitors final : public EventMonitors {
public:
    std::unique_ptr<Monitor> watch(int kinds, std::function<void(const Event&)> handler) override;
    std::unique_ptr<Monitor> watchOwn(int kinds,
                                      std::function<void(const Event&)> handler) override;

    // An event sent to another application (heard by global monitors), or to this one.
    void deliver(Kind kind) { deliver(Event{kind}); }
    void deliver(const Event& event) { deliver(event, false); }
    void deliverOwn(const Event& event) { deliver(event, true); }
    int installed(int kinds) const;

private:
    void deliver(const Event& event, bool own);
    std::unique_ptr<Monitor> add(int kinds, bool own, std::function<void(const Event&)> handler);

    struct Entry {
        int kinds;
        bool own;
        std::shared_ptr<std::function<void(const Event&)>> handler;
    };
    class SimMonitor;
    std::vector<Entry> m_entries;
};

} // namespace ravlin
