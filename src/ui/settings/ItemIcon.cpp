#include "ItemIcon.h"

#include "SettingsStyle.h"
#include "ui/SymbolRenderer.h"
#include "ui/Theme.h"

#include <QPainter>

namespace ravlin {

ItemIcon::ItemIcon(QWidget* parent) : QWidget(parent)
{
    setFixedSize(sizeHint());
}

void ItemIcon::setImage(const QImage& image)
{
    m_image = image;
    update();
}

void ItemIcon::setSymbol(const QString& name, const QColor& colour)
{
    m_symbol = name;
    m_colour = colour;
    update();
}

void ItemIcon::setMonogram(const QString& name)
{
    const QString trimmed = name.trimmed();
    m_letter = trimmed.isEmpty() ? QStringLiteral("?") : trimmed.left(1).toUpper();
    update();
}

void ItemIcon::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF box = QRectF(rect());
    if (!m_image.isNull() && m_image.width() > 1) {
        // A picture taken of the menu bar is drawn for the bar's own backdrop (light
        // glyphs on a dark bar): a small bar-coloured chip keeps it readable here.
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(44, 44, 50));
        p.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
        // A menu-bar picture is wider than tall at times: fit it, keep its shape.
        QSizeF size = QSizeF(m_image.size()) / m_image.devicePixelRatio();
        size.scale(box.size() - QSizeF(4, 4), Qt::KeepAspectRatio);
        QRectF target(QPointF(), size);
        target.moveCenter(box.center());
        p.drawImage(target, m_image);
        return;
    }
    if (!m_symbol.isEmpty() &&
        SymbolRenderer::paint(p, box.adjusted(2, 2, -2, -2), m_symbol, m_colour))
        return;
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 16));
    p.drawRoundedRect(box.adjusted(1, 1, -1, -1), 5, 5);
    p.setPen(SettingsStyle::secondaryText());
    p.setFont(Theme::font(11, QFont::DemiBold));
    p.drawText(box, Qt::AlignCenter, m_letter);
}

} // namespace ravlin
