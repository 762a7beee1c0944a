#include "PanelWindow.h"

#include <QEvent>

namespace ravlin {

PanelWindow::PanelWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowTitle(QStringLiteral("Ravlin"));
}

bool PanelWindow::event(QEvent* event)
{
    if (event->type() == QEvent::WindowDeactivate && isVisible() && onResignKey)
        onResignKey();
    return QWidget::event(event);
}

} // namespace ravlin
