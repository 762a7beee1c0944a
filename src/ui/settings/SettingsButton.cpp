#include "SettingsButton.h"

#include "SettingsStyle.h"

#include <QFontMetrics>
#include <QPainter>

namespace ravlin {

SettingsButton::SettingsButton(Kind kind, const QString& text, QWidget* parent)
    : QPushButton(text, parent), m_kind(kind)
{
    setFont(kind == Kind::Segment ? SettingsStyle::smallFont() : SettingsStyle::bodyFont());
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setCheckable(kind == Kind::Segment);
}

QSize SettingsButton::sizeHint() const
{
    const int textWidth = QFontMetrics(font()).horizontalAdvance(text());
    switch (m_kind) {
    case Kind::Push:
        return {qMax(textWidth + 24, 64), 23};
    case Kind::Segment:
        return {qMax(textWidth + 18, 52), 20};
    case Kind::Link:
        return {textWidth + 2, QFontMetrics(font()).height()};
    }
    return {textWidth, 22};
}

void SettingsButton::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    p.setFont(font());
    switch (m_kind) {
    case Kind::Push:
        paintPush(p);
        break;
    case Kind::Segment:
        paintSegment(p);
        break;
    case Kind::Link:
        p.setPen(isDown() ? SettingsStyle::accent().darker(130) : SettingsStyle::accent());
        p.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeading, text());
        break;
    }
}

void SettingsButton::paintPush(QPainter& p)
{
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -1.5);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, isEnabled() ? 20 : 8));
    p.drawRoundedRect(face.translated(0, 1), 5.5, 5.5);
    p.setBrush(!isEnabled() ? QColor(250, 250, 250)
               : isDown()   ? QColor(232, 232, 235)
                            : QColor(255, 255, 255));
    p.setPen(QPen(QColor(0, 0, 0, isEnabled() ? 34 : 18), 1));
    p.drawRoundedRect(face, 5.5, 5.5);
    p.setPen(isEnabled() ? SettingsStyle::primaryText() : SettingsStyle::tertiaryText());
    p.drawText(face, Qt::AlignCenter, text());
    SettingsStyle::paintFocusRing(p, *this, face.adjusted(1, 1, -1, -1), 4.5);
}

void SettingsButton::paintSegment(QPainter& p)
{
    if (isChecked()) {
        const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -1.0);
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 22));
        p.drawRoundedRect(face.translated(0, 0.7), 5, 5);
        p.setBrush(QColor(255, 255, 255));
        p.setPen(QPen(QColor(0, 0, 0, 20), 0.8));
        p.drawRoundedRect(face, 5, 5);
    } else if (isDown()) {
        p.setPen(Qt::NoPen);
        p.setBrush(QColor(0, 0, 0, 14));
        p.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -1.0), 5, 5);
    }
    p.setPen(isEnabled() ? SettingsStyle::primaryText() : SettingsStyle::tertiaryText());
    p.drawText(QRectF(rect()).adjusted(0, 0, 0, -0.5), Qt::AlignCenter, text());
    SettingsStyle::paintFocusRing(p, *this, QRectF(rect()).adjusted(1.5, 1.5, -1.5, -2), 4);
}

} // namespace ravlin
