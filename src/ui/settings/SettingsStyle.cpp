#include "SettingsStyle.h"

#include "TextLabel.h"
#include "ui/Theme.h"

#include <QLabel>
#include <QPainter>

namespace ravlin::SettingsStyle {

QFont bodyFont()
{
    return Theme::font(13);
}
QFont captionFont()
{
    return Theme::font(11);
}
QFont headingFont()
{
    return Theme::font(13, QFont::DemiBold);
}
QFont smallFont()
{
    return Theme::font(11);
}

void paintFocusRing(QPainter& painter, const QWidget& widget, const QRectF& shape, double radius)
{
    if (!widget.hasFocus())
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    QColor ring = accent();
    ring.setAlphaF(0.5);
    painter.setPen(QPen(ring, 2.5));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(shape, radius, radius);
    painter.restore();
}

void setTextColor(QWidget* widget, const QColor& color)
{
    QPalette palette = widget->palette();
    palette.setColor(QPalette::WindowText, color);
    palette.setColor(QPalette::Text, color);
    palette.setColor(QPalette::ButtonText, color);
    widget->setPalette(palette);
}

QLabel* label(const QString& text, const QFont& font, const QColor& color, QWidget* parent,
              bool wrap)
{
    auto* l = new TextLabel(text, parent);
    l->setFont(font);
    l->setTextFormat(Qt::PlainText);
    setTextColor(l, color);
    if (wrap) {
        l->setWordWrap(true);
        // A long translation wraps instead of widening the fixed-width window.
        QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        policy.setHeightForWidth(true);
        l->setSizePolicy(policy);
        l->setMinimumWidth(40);
    }
    return l;
}

} // namespace ravlin::SettingsStyle
