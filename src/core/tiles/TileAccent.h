#pragma once

#include <QColor>
#include <QString>

namespace ravlin {

// The accent colour of an item tile, chosen by keywords in its label (German and
// English). Substrings count, so "ton" also matches inside longer words.
QColor tileAccent(const QString& label);

} // namespace ravlin
