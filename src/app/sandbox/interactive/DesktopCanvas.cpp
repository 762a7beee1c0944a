#include "DesktopCanvas.h"

#include "sandbox/DesktopScene.h"
#include "sandbox/SandboxSession.h"

#include "foundation/Scheduler.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimEventMonitors.h"
#include "platform/sim/SimStatusBar.h"

#include <QMenu>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QPainter>

namespace ravlin::sandbox {
namespace {

bool commandHeld(Qt::KeyboardModifiers m)
{
    return m & (Qt::AltModifier | Qt::MetaModifier);
}

void fillMenu(QMenu& menu, const std::vector<MenuEntry>& entries, const QStringList& path,
              QStringList& chosen)
{
    for (const MenuEntry& e : entries) {
        if (e.separator) {
            menu.addSeparator();
            continue;
        }
        const QStringList here = path + QStringList{e.title};
        if (!e.submenu.empty()) {
            QMenu* sub = menu.addMenu(e.title);
            sub->setLayoutDirection(menu.layoutDirection());
            fillMenu(*sub, e.submenu, here, chosen);
            continue;
        }
        // The key equivalent goes after a tab, which the menu shows in its own column, as
        // the Mac writes it ("⌘,") rather than as this desktop would ("Ctrl+,").
        const QString shortcut = e.shownKeyEquivalent();
        QAction* action = menu.addAction(shortcut.isEmpty() ? e.title : e.title + u'\t' + shortcut);
        action->setCheckable(e.checked);
        action->setChecked(e.checked);
        QObject::connect(action, &QAction::triggered, &menu, [here, &chosen] { chosen = here; });
    }
}

} // namespace

DesktopCanvas::DesktopCanvas(QWidget* parent) : QWidget(parent)
{
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void DesktopCanvas::setSession(SandboxSession* session)
{
    m_session = session;
    m_dragging.reset();
    m_shownKey.clear();
    updateGeometry();
    update();
}

void DesktopCanvas::refresh()
{
    if (!m_session)
        return;
    QByteArray key = desktopSceneKey(*m_session);
    if (key == m_shownKey)
        return;
    m_shownKey = std::move(key);
    ++m_repaintsAsked;
    update();
}

QSize DesktopCanvas::sizeHint() const
{
    if (!m_session)
        return {1280, 800};
    const SimScreen s = m_session->desktop().mainScreen();
    return {int(s.width), int(s.height)};
}

void DesktopCanvas::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    if (m_session && painter) {
        painter(p, *m_session);
        return;
    }
    QLinearGradient wallpaper(0, 0, width(), height());
    wallpaper.setColorAt(0, QColor(64, 92, 140));
    wallpaper.setColorAt(1, QColor(120, 86, 140));
    p.fillRect(rect(), wallpaper);
}

void DesktopCanvas::mousePressEvent(QMouseEvent* event)
{
    if (!m_session || !m_session->started())
        return;
    SimDesktop& desktop = m_session->desktop();
    const WindowServerPoint point{event->position().x(), event->position().y()};
    if (event->button() == Qt::LeftButton && commandHeld(event->modifiers())) {
        if (auto hit = desktop.itemAt(point)) {
            m_dragging = hit->item.window;
            return;
        }
    }
    SimUserClick click;
    click.point = point;
    click.button = event->button() == Qt::RightButton ? MouseButton::Right : MouseButton::Left;
    if (event->modifiers() & Qt::ControlModifier)
        click.flags |= EventFlag::control;
    const auto hit = desktop.itemAt(point);
    desktop.userClick(click);
    m_session->scheduler().runDue();
    Q_EMIT acted(QStringLiteral("%1 click at (%2, %3)%4")
                     .arg(click.button == MouseButton::Right ? QStringLiteral("right")
                                                             : QStringLiteral("left"))
                     .arg(point.x, 0, 'f', 0)
                     .arg(point.y, 0, 'f', 0)
                     .arg(hit ? QStringLiteral(" on ") + hit->item.title : QString()));
    showOpenMenu();
    update();
}

void DesktopCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (!m_session || !m_dragging)
        return;
    const std::int64_t window = *std::exchange(m_dragging, std::nullopt);
    m_session->desktop().dragItem(window, event->position().x());
    m_session->scheduler().runDue();
    Q_EMIT acted(QStringLiteral("command-drag of window %1 to x=%2")
                     .arg(window)
                     .arg(event->position().x(), 0, 'f', 0));
    update();
}

void DesktopCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_session || !m_session->started() || m_dragging)
        return;
    m_session->desktop().setCursor({event->position().x(), event->position().y()});
    m_session->monitors().deliver(EventMonitors::MouseMoved);
    m_session->scheduler().runDue();
}

void DesktopCanvas::wheelEvent(QWheelEvent* event)
{
    if (!m_session || !m_session->started())
        return;
    SimDesktop& desktop = m_session->desktop();
    const WindowServerPoint point{event->position().x(), event->position().y()};
    desktop.setCursor(point);
    EventMonitors::Event scroll;
    scroll.kind = EventMonitors::ScrollWheel;
    scroll.precise = !event->pixelDelta().isNull();
    scroll.scrollDeltaY = scroll.precise ? event->pixelDelta().y() : event->angleDelta().y() / 120.0;
    scroll.inverted = event->inverted();
    scroll.momentum = event->phase() == Qt::ScrollMomentum;
    const auto hit = desktop.itemAt(point);
    if (hit && hit->item.own)
        m_session->monitors().deliverOwn(scroll);
    else
        m_session->monitors().deliver(scroll);
    m_session->scheduler().runDue();
    update();
}

// The status menu the application popped up, as a real menu under the pointer.
void DesktopCanvas::showOpenMenu()
{
    SimStatusBar& bar = m_session->statusBar();
    if (!bar.openMenu())
        return;
    const MenuModel model = *bar.openMenu();
    QMenu menu(this);
    menu.setLayoutDirection(model.rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
    QStringList chosen;
    fillMenu(menu, model.entries, {}, chosen);
    const WindowServerPoint cursor = m_session->desktop().cursor();
    menu.exec(
        mapToGlobal(QPoint(int(cursor.x), int(m_session->desktop().mainScreen().menuBarHeight))));
    if (chosen.isEmpty()) {
        bar.closeMenu();
    } else {
        bar.choose(chosen);
        Q_EMIT acted(QStringLiteral("menu: ") + chosen.join(QStringLiteral(" › ")));
    }
    m_session->scheduler().runDue();
    update();
}

} // namespace ravlin::sandbox
