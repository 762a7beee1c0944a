#pragma once

#include "platform/EventMonitors.h"

#include <vector>

namespace ravlin {

// Global monitors over the simulated desktop: the sandbox tells them of the
// person's pointer moves and of clicks that go to other applications.
class SimEventMonitors final : public EventMonitors {
public:
    std::unique_ptr<Monitor> watch(int kinds, std::function<void(const Event&)> handler) override;

    void deliver(Kind kind) { deliver(Event{kind}); }
    void deliver(const Event& event);
    int installed(int kinds) const;

private:
    struct Entry {
        int kinds;
        std::shared_ptr<std::function<void(const Event&)>> handler;
    };
    class SimMonitor;
    std::vector<Entry> m_entries;
};

} // namespace ravlin
