#include "HudContainer.h"

#include "Theme.h"

#include <QPainter>
#include <QPainterPath>

namespace ravlin {

HudContainer::HudContainer(QWidget* parent) : QWidget(parent)
{
    setAttribute(Qt::WA_TranslucentBackground);
}

void HudContainer::setContent(QWidget* content)
{
    m_content = content;
    content->setParent(this);
    content->setGeometry(rect());
    content->show();
}

void HudContainer::resizeEvent(QResizeEvent*)
{
    if (m_content)
        m_content->setGeometry(rect());
}

void HudContainer::paintEvent(QPaintEvent*)
{
    if (m_native)
        return;
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF r = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath shape;
    shape.addRoundedRect(r, m_radius, m_radius);
    // A faint light from above, as the HUD material shows over a desktop.
    QLinearGradient glass(r.topLeft(), r.bottomLeft());
    glass.setColorAt(0, m_palette.backdropTop());
    glass.setColorAt(1, m_palette.backdropBottom());
    p.fillPath(shape, glass);
    p.setPen(QPen(m_palette.border(), 1));
    p.drawPath(shape);
}

} // namespace ravlin
