#pragma once

#include <QColor>
#include <QLinearGradient>
#include <QRectF>

#include <algorithm>

namespace ravlin {

// The tile panel's colours in the system's dark or light appearance. Faces, tracks and
// hover fills are one ink at different strengths: white over the dark glass, black over
// the light one, as the system's own panels do.
struct PanelPalette {
    bool dark = true;

    static PanelPalette forAppearance(bool dark) { return PanelPalette{dark}; }

    QColor primaryText() const { return dark ? QColor(255, 255, 255, 235) : QColor(0, 0, 0, 218); }
    QColor secondaryText() const
    {
        return dark ? QColor(235, 235, 245, 150) : QColor(60, 60, 67, 160);
    }
    // The ink of faces and tracks at a strength given in the dark appearance's terms.
    QColor ink(int alpha) const
    {
        return dark ? QColor(255, 255, 255, std::clamp(alpha, 0, 255))
                    : QColor(0, 0, 0, std::clamp(alpha * 11 / 20, 0, 255));
    }
    // A faint gradient of the ink, a touch stronger at the top, as light falls on glass.
    QBrush glass(const QRectF& r, int alpha) const
    {
        QLinearGradient g(r.topLeft(), r.bottomLeft());
        g.setColorAt(0, ink(dark ? alpha + 3 : alpha - 3));
        g.setColorAt(1, ink(dark ? std::max(0, alpha - 3) : alpha + 3));
        return g;
    }
    // The panel's own backdrop, top and bottom, and its hairline border.
    QColor backdropTop() const
    {
        return dark ? QColor(44, 44, 48, 240) : QColor(248, 248, 250, 244);
    }
    QColor backdropBottom() const
    {
        return dark ? QColor(30, 30, 33, 244) : QColor(238, 238, 242, 248);
    }
    QColor border() const { return dark ? QColor(255, 255, 255, 20) : QColor(0, 0, 0, 30); }
};

} // namespace ravlin
