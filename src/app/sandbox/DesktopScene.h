#pragma once

#include "ui/DesktopRenderer.h"

#include <QByteArray>

namespace ravlin::sandbox {

class SandboxSession;

// The simulated desktop as the renderer draws it: displays, the on-screen status
// items in every display's menu bar (ours by their symbol or separator mark, the others
// by their pictures), the open status menu unless a real menu shows it, and, when asked,
// the application's visible windows.
DesktopScene desktopScene(SandboxSession& session, bool withWindows, bool withMenus = true);

// What the desktop's picture depends on (displays, the items in the bar and where they
// stand, our items' symbols and lengths), cheap to take: equal keys, equal pictures.
QByteArray desktopSceneKey(SandboxSession& session);

} // namespace ravlin::sandbox
