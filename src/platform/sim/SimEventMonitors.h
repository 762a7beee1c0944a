#pragma once

#include "platform/EventMonitors.h"

#include <vector>

namespace ravlin {

// Global monitors over the simulated desktop: the sandbox tells them of the
// person's pointer moves and of clicks that go to other applications.
class SimEventMonitors final : public EventMonitors {
public:
    std::unique_ptr<Monitor> addGlobalMonitor(int kinds,
                                              std::function<void(Kind)> handler) override;

    void deliver(Kind kind);
    int installed(int kinds) const;

private:
    struct Entry {
        int kinds;
        std::shared_ptr<std::function<void(Kind)>> handler;
    };
    class SimMonitor;
    std::vector<Entry> m_entries;
};

} // namespace ravlin
