#pragma once

#include <functional>

namespace ravlin::ReopenHandler {

// Calls handler when the user opens the running application again (Finder, Spotlight,
// the Dock), whatever windows are visible. Qt's application delegate does not pass
// that request on, so the method is added to it at run time.
void install(std::function<void()> handler);

} // namespace ravlin::ReopenHandler
