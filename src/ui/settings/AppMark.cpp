#include "AppMark.h"

#include "ui/SymbolRenderer.h"

#include <QLinearGradient>
#include <QPainter>

namespace ravlin {

AppMark::AppMark(QWidget* parent) : QWidget(parent)
{
    setFixedSize(64, 64);
}

void AppMark::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF tile = QRectF(rect()).adjusted(4, 3, -4, -5);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 28));
    p.drawRoundedRect(tile.translated(0, 1.5), 13, 13);
    QLinearGradient fill(tile.topLeft(), tile.bottomLeft());
    fill.setColorAt(0, QColor(64, 156, 255));
    fill.setColorAt(1, QColor(0, 98, 224));
    p.setBrush(fill);
    p.drawRoundedRect(tile, 13, 13);
    SymbolRenderer::paint(p, tile.adjusted(12, 12, -12, -12), QStringLiteral("chevron.left"),
                          Qt::white);
}

} // namespace ravlin
