#pragma once

#include "ui/DesktopRenderer.h"

namespace ravlin::sandbox {

class SandboxSession;

// The simulated desktop as the renderer draws it: displays, the on-screen status
// items (ours by their symbol or separator mark, the others by their window images)
// and, when asked, the application's visible windows.
DesktopScene desktopScene(SandboxSession& session, bool withWindows);

} // namespace ravlin::sandbox
