#include "DesktopScene.h"

#include "SandboxSession.h"

#include "core/bar/StatusBarController.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimItemPicture.h"
#include "platform/sim/SimStatusBar.h"
#include "ui/ArrangeHUD.h"
#include "ui/RavlinBar.h"

#include <QDataStream>
#include <QWidget>

#include <algorithm>

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

DesktopScene::Menu menuOf(const std::vector<MenuEntry>& entries, const QString& pointed,
                          bool rightToLeft)
{
    DesktopScene::Menu menu;
    menu.rightToLeft = rightToLeft;
    for (const MenuEntry& e : entries)
        menu.rows.push_back({e.title, e.separator, e.checked, !e.submenu.empty(),
                             !pointed.isEmpty() && e.title == pointed, e.shownKeyEquivalent()});
    return menu;
}

// The status menu hangs below its item; each submenu the pointer opened stands beside the
// entry that holds it, on its trailing side (the left, right to left) unless there is no
// room there.
void openMenus(const SimStatusBar& bar, DesktopScene& scene)
{
    const std::optional<MenuModel>& open = bar.openMenu();
    const std::optional<WindowServerRect> anchor = bar.menuAnchor();
    if (!open || !anchor)
        return;
    const double right = scene.displays.empty() ? 1440 : scene.displays.front().frame.right();
    const double left = scene.displays.empty() ? 0 : scene.displays.front().frame.left();
    const bool rtl = open->rightToLeft;
    const QStringList path = bar.pointedPath();
    const std::vector<MenuEntry>* entries = &open->entries;
    QPointF origin(anchor->x, anchor->maxY() + 2);
    for (qsizetype depth = 0;; ++depth) {
        DesktopScene::Menu menu = menuOf(*entries, path.value(depth), rtl);
        menu.origin = origin;
        const QSizeF size = DesktopRenderer::menuSize(menu);
        if (menu.origin.x() + size.width() > right - 4)
            menu.origin.setX(right - 4 - size.width());
        scene.menusOpen.push_back(menu);
        if (depth >= path.size())
            return;
        const auto holder = std::find_if(entries->begin(), entries->end(), [&](const MenuEntry& e) {
            return !e.separator && e.title == path[depth];
        });
        if (holder == entries->end())
            return;
        const double y =
            menu.origin.y() +
            DesktopRenderer::menuRowOffset(menu, std::size_t(holder - entries->begin()));
        const QSizeF sub = DesktopRenderer::menuSize(menuOf(holder->submenu, QString(), rtl));
        const double onRight = menu.origin.x() + size.width() - 2;
        const double onLeft = menu.origin.x() - sub.width() + 2;
        const bool leftwards = rtl ? onLeft >= left : onRight + sub.width() > right;
        origin = QPointF(leftwards ? onLeft : onRight, y - DesktopRenderer::menuRowOffset(menu, 0));
        entries = &holder->submenu;
    }
}

// Every display's menu bar shows the same items at the same distance from its right edge.
void mirrorOnOtherDisplays(DesktopScene& scene)
{
    if (scene.displays.size() < 2)
        return;
    const QRectF main = scene.displays.front().frame;
    const std::vector<DesktopScene::StatusItem> onMain = scene.items;
    for (std::size_t i = 1; i < scene.displays.size(); ++i) {
        const QRectF other = scene.displays[i].frame;
        const QPointF shift(other.right() - main.right(), other.top() - main.top());
        for (DesktopScene::StatusItem item : onMain) {
            item.frame.translate(shift);
            if (item.frame.left() >= other.left())
                scene.items.push_back(item);
        }
    }
}

} // namespace

DesktopScene desktopScene(SandboxSession& s, bool withWindows, bool withMenus)
{
    DesktopScene scene;
    SimDesktop& desktop = s.desktop();
    const auto screens = desktop.screens();
    for (std::size_t i = 0; i < screens.size(); ++i) {
        const WindowServerRect f = desktop.screenFrame(i);
        scene.displays.push_back({QRectF(f.x, f.y, f.width, f.height), screens[i].menuBarHeight,
                                  screens[i].notch});
    }
    for (const SimPlacedItem& placed : desktop.bar()) {
        if (!placed.onScreen || placed.frame.width <= 0)
            continue;
        if (placed.item.own) {
            if (const SimStatusItem* own = s.statusBar().item(placed.item.title))
                scene.items.push_back(ownItem(*own, placed.frame));
            continue;
        }
        if (placed.inOverflow)
            continue;
        // Drawn as the item looks, whether or not the system lets anyone take its picture.
        DesktopScene::StatusItem item;
        item.frame =
            QRectF(placed.frame.x, placed.frame.y, placed.frame.width, placed.frame.height);
        item.image = simItemPicture(placed, desktop.badgeOf(placed.item));
        scene.items.push_back(item);
    }
    mirrorOnOtherDisplays(scene);
    if (withWindows) {
        for (QWidget* window : s.visibleWindows())
            scene.windows.push_back(window);
    }
    if (withMenus)
        openMenus(s.statusBar(), scene);
    return scene;
}

QByteArray desktopSceneKey(SandboxSession& s)
{
    QByteArray key;
    QDataStream out(&key, QIODevice::WriteOnly);
    SimDesktop& desktop = s.desktop();
    for (std::size_t i = 0; i < desktop.screens().size(); ++i) {
        const WindowServerRect f = desktop.screenFrame(i);
        out << f.x << f.y << f.width << f.height << desktop.screens()[i].notch;
    }
    for (const SimPlacedItem& placed : desktop.bar()) {
        out << qint64(placed.item.window) << placed.item.title << placed.item.owner
            << placed.frame.x << placed.frame.width << placed.frame.height << placed.onScreen
            << placed.inOverflow;
        if (placed.item.own)
            if (const SimStatusItem* own = s.statusBar().item(placed.item.title))
                out << own->image() << own->length();
    }
    return key;
}

} // namespace ravlin::sandbox
