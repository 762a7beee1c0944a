#include "RateText.h"

#include <cmath>

namespace ravlin {

QString rateText(double megabytesPerSecond)
{
    // A rate is never negative or undefined; show such a value as no traffic.
    const double v =
        std::isfinite(megabytesPerSecond) && megabytesPerSecond > 0 ? megabytesPerSecond : 0.0;
    if (v >= 1.0)
        return QString::asprintf("%.1f MB/s", v);
    return QString::asprintf("%.0f KB/s", v * 1000.0);
}

QString networkRatesText(double down, double up, RateLayout layout)
{
    const QString gap = layout == RateLayout::Wide ? QStringLiteral("  ") : QStringLiteral(" ");
    return QString(QChar(u'↓')) + rateText(down) + gap + QChar(u'↑') + rateText(up);
}

} // namespace ravlin
