#pragma once

#include "platform/EventMonitors.h"

namespace ravlin {

// NSEvent global monitors: they see only events sent to other applications.
class MacEventMonitors final : public EventMonitors {
public:
    std::unique_ptr<Monitor> watch(int kinds, std::function<void(const Event&)> handler) override;
};

} // namespace ravlin
