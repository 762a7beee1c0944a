#pragma once

#include "platform/Platform.h"

namespace ravlin::macos {

// The real macOS services.
Platform makePlatform();

} // namespace ravlin::macos
