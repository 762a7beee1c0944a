#include "WatchButton.h"

#include "SettingsStyle.h"
#include "ui/SymbolRenderer.h"

#include <QPainter>

namespace ravlin {

WatchButton::WatchButton(QWidget* parent) : ToggleSwitch(parent)
{
    setToolTip(QString());
}

QSize WatchButton::sizeHint() const
{
    return {24, 22};
}

void WatchButton::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF box = QRectF(rect()).adjusted(1, 1, -1, -1);
    const bool on = isChecked();
    if (on) {
        QColor wash = SettingsStyle::accent();
        wash.setAlpha(36);
        p.setPen(Qt::NoPen);
        p.setBrush(wash);
        p.drawRoundedRect(box, 5, 5);
    }
    QColor ink = on ? SettingsStyle::accent() : SettingsStyle::tertiaryText();
    if (!isEnabled())
        ink.setAlphaF(ink.alphaF() * 0.5);
    SymbolRenderer::paint(p, box.adjusted(3, 3, -3, -3),
                          on ? QStringLiteral("bell.badge") : QStringLiteral("bell"), ink);
    SettingsStyle::paintFocusRing(p, *this, box, 5);
}

} // namespace ravlin
