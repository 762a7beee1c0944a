#pragma once

#include <QColor>
#include <QFont>

namespace ravlin::Theme {

// The interface font: the system's on macOS; pinned families elsewhere so that
// screenshots do not depend on which fallback fonts a machine has. Sizes are in
// macOS points (one logical pixel).
QFont font(double pointSize, QFont::Weight weight = QFont::Normal);

// Colours of the dark HUD surfaces (tile panel, arrange guide).
inline QColor hudBackground()
{
    return QColor(28, 28, 30, 236);
}
inline QColor hudBorder()
{
    return QColor(255, 255, 255, 20);
}
inline QColor hudPrimaryText()
{
    return QColor(255, 255, 255, 235);
}
inline QColor hudSecondaryText()
{
    return QColor(235, 235, 245, 150);
}
inline QColor hudFill()
{
    return QColor(255, 255, 255, 18);
}
inline QColor hudFillHover()
{
    return QColor(255, 255, 255, 34);
}

// The platform's system colours (dark appearance).
inline QColor systemBlue()
{
    return QColor(10, 132, 255);
}
inline QColor systemGreen()
{
    return QColor(48, 209, 88);
}
inline QColor systemIndigo()
{
    return QColor(94, 92, 230);
}
inline QColor systemPink()
{
    return QColor(255, 55, 95);
}
inline QColor systemGray()
{
    return QColor(142, 142, 147);
}
inline QColor systemOrange()
{
    return QColor(255, 159, 10);
}
inline QColor systemPurple()
{
    return QColor(191, 90, 242);
}
inline QColor systemRed()
{
    return QColor(255, 69, 58);
}

} // namespace ravlin::Theme
