#include "RateText.h"

#include <cmath>

namespace ravlin {

QString rateText(double megabytesPerSecond, const QString& decimalPoint)
{
    // A rate is never negative or undefined; show such a value as no traffic.
    const double v =
        std::isfinite(megabytesPerSecond) && megabytesPerSecond > 0 ? megabytesPerSecond : 0.0;
    if (v >= 1.0)
        return QString::asprintf("%.1f MB/s", v).replace(u'.', decimalPoint);
    return QString::asprintf("%.0f KB/s", v * 1000.0);
}

QString networkRatesText(double down, double up, RateLayout layout, const QString& decimalPoint)
{
    const QString gap = layout == RateLayout::Wide ? QStringLiteral("  ") : QStringLiteral(" ");
    return QString(QChar(u'↓')) + rateText(down, decimalPoint) + gap + QChar(u'↑') +
           rateText(up, decimalPoint);
}

} // namespace ravlin
