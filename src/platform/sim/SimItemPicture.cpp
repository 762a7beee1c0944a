#include "SimItemPicture.h"

#include <QColor>
#include <QPainter>

#include <algorithm>

namespace ravlin {

QImage simItemPicture(const SimPlacedItem& p, int badge)
{
    constexpr double scale = 2.0;
    const QSize size(qMax(1, int(p.frame.width * scale)), qMax(1, int(p.frame.height * scale)));
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const QString name =
        p.item.title.isEmpty() || p.item.title == u"Item-0" ? p.item.owner : p.item.title;
    const QString letter = name.isEmpty() ? QStringLiteral("?") : name.left(1).toUpper();
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    // As tall as a glyph of a 24-point bar, whatever the bar's and the item's size.
    const double side =
        std::min(size.width() * 0.9, std::min(double(size.height()), 24 * scale) * 0.62);
    const QRectF box((size.width() - side) / 2, (size.height() - side) / 2, side, side);
    painter.setPen(QPen(QColor(255, 255, 255, 235), scale * 1.4));
    painter.drawRoundedRect(box, side * 0.24, side * 0.24);
    QFont font;
    font.setPixelSize(qMax(1, int(side * 0.62)));
    font.setBold(true);
    painter.setFont(font);
    painter.drawText(box, Qt::AlignCenter, letter);
    if (badge > 0) {
        const double d = side * 0.62;
        const QRectF dot(box.right() - d * 0.6, box.top() - d * 0.3, d, d);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(255, 59, 48));
        painter.drawEllipse(dot);
        font.setPixelSize(qMax(1, int(d * 0.7)));
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(dot, Qt::AlignCenter, badge > 9 ? QStringLiteral("9+") : QString::number(badge));
    }
    return image;
}

} // namespace ravlin
