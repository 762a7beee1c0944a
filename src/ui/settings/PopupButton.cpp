#include "PopupButton.h"

#include "SettingsStyle.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QSignalBlocker>

namespace ravlin {
namespace {

constexpr int wellWidth = 16;
constexpr int faceHeight = 22;

void drawArrows(QPainter& p, const QRectF& well)
{
    const QPointF c = well.center();
    QPen pen(Qt::white, 1.4, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    p.setPen(pen);
    p.setBrush(Qt::NoBrush);
    const double w = 3.0, h = 2.4, gap = 1.6;
    p.drawPolyline(QPolygonF({QPointF(c.x() - w, c.y() - gap), QPointF(c.x(), c.y() - gap - h),
                              QPointF(c.x() + w, c.y() - gap)}));
    p.drawPolyline(QPolygonF({QPointF(c.x() - w, c.y() + gap), QPointF(c.x(), c.y() + gap + h),
                              QPointF(c.x() + w, c.y() + gap)}));
}

} // namespace

PopupButton::PopupButton(QWidget* parent) : QComboBox(parent)
{
    setFont(SettingsStyle::bodyFont());
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setSizeAdjustPolicy(QComboBox::AdjustToContents);
}

QSize PopupButton::sizeHint() const
{
    const QFontMetrics metrics(font());
    int widest = 60;
    for (int i = 0; i < count(); ++i)
        widest = qMax(widest, metrics.horizontalAdvance(itemText(i)));
    return {widest + 10 + 8 + wellWidth + 6, faceHeight};
}

QSize PopupButton::minimumSizeHint() const
{
    return sizeHint();
}

void PopupButton::setCurrentDataQuietly(const QVariant& value)
{
    const QSignalBlocker quiet(this);
    const int index = findData(value);
    if (index >= 0)
        setCurrentIndex(index);
}

void PopupButton::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF face = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -1.5);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 22));
    p.drawRoundedRect(face.translated(0, 1), 5, 5);
    p.setPen(QPen(QColor(0, 0, 0, 30), 1));
    p.setBrush(isEnabled() ? QColor(255, 255, 255) : QColor(247, 247, 247));
    p.drawRoundedRect(face, 5, 5);

    const bool rtl = layoutDirection() == Qt::RightToLeft;
    const QRectF well =
        rtl ? QRectF(face.left() + 2.5, face.top() + 2.5, wellWidth, face.height() - 5)
            : QRectF(face.right() - 2.5 - wellWidth, face.top() + 2.5, wellWidth,
                     face.height() - 5);
    p.setPen(Qt::NoPen);
    QColor wellColour = SettingsStyle::accent();
    if (!isEnabled())
        wellColour.setAlphaF(0.35);
    p.setBrush(wellColour);
    p.drawRoundedRect(well, 3.5, 3.5);
    drawArrows(p, well);

    const QRectF text =
        rtl ? QRectF(well.right() + 6, face.top(), face.right() - well.right() - 14, face.height())
            : QRectF(face.left() + 9, face.top(), well.left() - face.left() - 15, face.height());
    p.setPen(isEnabled() ? SettingsStyle::primaryText() : SettingsStyle::tertiaryText());
    p.setFont(font());
    p.drawText(text, Qt::AlignVCenter | (rtl ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute,
               currentText());
    SettingsStyle::paintFocusRing(p, *this, face.adjusted(1, 1, -1, -1), 4);
}

} // namespace ravlin
