#include "DesktopScene.h"

#include "SandboxSession.h"

#include "core/bar/StatusBarController.h"
#include "platform/WindowServer.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimStatusBar.h"
#include "ui/ArrangeHUD.h"
#include "ui/RavlinBar.h"

#include <QWidget>

namespace ravlin::sandbox {
namespace {

DesktopScene::StatusItem ownItem(const SimStatusItem& item, const WindowServerRect& frame)
{
    DesktopScene::StatusItem shown;
    shown.frame = QRectF(frame.x, frame.y, frame.width, frame.height);
    shown.symbol = item.image();
    shown.separator =
        item.autosaveName() != StatusBarController::mainName && item.image().isEmpty();
    return shown;
}

} // namespace

DesktopScene desktopScene(SandboxSession& s, bool withWindows)
{
    DesktopScene scene;
    SimDesktop& desktop = s.desktop();
    const auto screens = desktop.screens();
    for (std::size_t i = 0; i < screens.size(); ++i) {
        const WindowServerRect f = desktop.screenFrame(i);
        scene.displays.push_back({QRectF(f.x, f.y, f.width, f.height), screens[i].menuBarHeight});
    }
    for (const SimPlacedItem& placed : desktop.bar()) {
        if (!placed.onScreen)
            continue;
        if (placed.item.own) {
            if (const SimStatusItem* own = s.statusBar().item(placed.item.title))
                scene.items.push_back(ownItem(*own, placed.frame));
            continue;
        }
        DesktopScene::StatusItem item;
        item.frame =
            QRectF(placed.frame.x, placed.frame.y, placed.frame.width, placed.frame.height);
        item.image = s.platform().windowServer->windowImage(std::uint32_t(placed.item.window));
        scene.items.push_back(item);
    }
    if (withWindows) {
        for (QWidget* window : s.visibleWindows())
            scene.windows.push_back(window);
    }
    return scene;
}

} // namespace ravlin::sandbox
