#include "WindowPlacement.h"

#include "foundation/Geometry.h"
#include "platform/Screens.h"

#include <QGuiApplication>

#include <algorithm>
#include <QRect>
#include <QScreen>

namespace ravlin {
namespace {

// The main display's visible part in top-left coordinates.
QRect visibleArea(Screens* screens)
{
    const std::optional<ScreenInfo> main = screens ? screens->mainScreen() : std::nullopt;
    const std::vector<ScreenInfo> all = screens ? screens->screens() : std::vector<ScreenInfo>{};
    if (main && !all.empty()) {
        const WindowServerRect r = Geometry::toWindowServer(main->visibleFrame, all.front().frame.height);
        return QRect(qRound(r.x), qRound(r.y), qRound(r.width), qRound(r.height));
    }
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect();
}

} // namespace

QPoint newWindowOrigin(Screens* screens, QSize size)
{
    const QRect area = visibleArea(screens);
    return {area.x() + (area.width() - size.width()) / 2,
            area.y() + std::max(0, (area.height() - size.height()) / 3)};
}

} // namespace ravlin
