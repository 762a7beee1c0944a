#pragma once

#include "platform/Platform.h"

namespace ravlin {
class Scheduler;
}

namespace ravlin::macos {

// The real macOS services; the scheduler keeps the deadlines of network requests.
Platform makePlatform(Scheduler& scheduler);

} // namespace ravlin::macos
