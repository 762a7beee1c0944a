#pragma once

#include <QString>

namespace ravlin {

// A throughput in megabytes per second as the network tile shows it:
// "%.1f MB/s" from 1.0 MB/s on, "%.0f KB/s" of the value × 1000 below. The decimal
// point is the interface language's ("1,5 MB/s" in German).
QString rateText(double megabytesPerSecond, const QString& decimalPoint = QStringLiteral("."));

// Both directions, down first. The wide tile puts two blanks before the upward
// arrow, the compact form one; the two forms are kept apart on purpose.
enum class RateLayout { Compact, Wide };
QString networkRatesText(double down, double up, RateLayout layout,
                         const QString& decimalPoint = QStringLiteral("."));

} // namespace ravlin
