#pragma once

#include <QString>
#include <QVariant>

namespace ravlin {

// Fills a printf-style format as the platform's string formatting does: %@ (any
// value's text), %d %i %u %ld %lld %x, %f %.1f %e %g, %s, %c, %%, and positional
// forms such as %1$@. Missing arguments format as empty text, never crash.
QString formatPrintf(const QString& format, const QVariantList& args);

// The placeholders of a format in order ("%@", "%1$@", "%.1f" …), for checking translations.
QStringList printfPlaceholders(const QString& format);

} // namespace ravlin
