#pragma once

#include "platform/EventMonitors.h"

namespace ravlin {

// NSEvent monitors: global ones see only events sent to other applications, local ones the
// events sent to this application (passed on unchanged).
class MacEventMonitors final : public EventMonitors {
public:
    std::unique_ptr<Monitor> watch(int kinds, std::function<void(const Event&)> handler) override;
    std::unique_ptr<Monitor> watchOwn(int kinds,
                                      std::function<void(const Event&)> handler) override;
};

} // namespace ravlin
