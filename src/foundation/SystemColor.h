#pragma once

#include <QColor>

namespace ravlin::SystemColor {

// The platform's named system colours (light appearance), for accents that the
// core decides and the interface only paints.
inline QColor blue()
{
    return QColor(0, 122, 255);
}
inline QColor green()
{
    return QColor(52, 199, 89);
}
inline QColor indigo()
{
    return QColor(88, 86, 214);
}
inline QColor pink()
{
    return QColor(255, 45, 85);
}
inline QColor gray()
{
    return QColor(142, 142, 147);
}
inline QColor orange()
{
    return QColor(255, 149, 0);
}
inline QColor purple()
{
    return QColor(175, 82, 222);
}

} // namespace ravlin::SystemColor
