#include "ToggleSwitch.h"

#include "SettingsStyle.h"

#include <QPainter>
#include <QPainterPath>
#include <QSignalBlocker>

namespace ravlin {

ToggleSwitch::ToggleSwitch(QWidget* parent) : QAbstractButton(parent)
{
    setCheckable(true);
    setCursor(Qt::PointingHandCursor);
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize ToggleSwitch::sizeHint() const
{
    return {32, 18};
}

void ToggleSwitch::setCheckedQuietly(bool on)
{
    const QSignalBlocker quiet(this);
    setChecked(on);
}

void ToggleSwitch::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF track = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    const double radius = track.height() / 2;
    const bool on = isChecked();
    QColor fill = on ? SettingsStyle::accent() : SettingsStyle::controlTrack();
    if (!isEnabled())
        fill.setAlphaF(fill.alphaF() * 0.45);
    p.setPen(on ? Qt::NoPen : QPen(QColor(0, 0, 0, 14), 1));
    p.setBrush(fill);
    p.drawRoundedRect(track, radius, radius);

    // The knob sits at the trailing end when on, so right-to-left mirrors it.
    const double knob = track.height() - 3;
    const bool trailing = on != (layoutDirection() == Qt::RightToLeft);
    const double x = trailing ? track.right() - 1.5 - knob : track.left() + 1.5;
    const QRectF knobRect(x, track.top() + 1.5, knob, knob);
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(0, 0, 0, 30));
    p.drawEllipse(knobRect.translated(0, 0.6));
    p.setBrush(isEnabled() ? QColor(255, 255, 255) : QColor(250, 250, 250));
    p.setPen(QPen(QColor(0, 0, 0, 20), 0.5));
    p.drawEllipse(knobRect);
    SettingsStyle::paintFocusRing(p, *this, track.adjusted(1, 1, -1, -1), radius - 1);
}

} // namespace ravlin
