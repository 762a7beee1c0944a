#pragma once

#include <QHash>
#include <QString>

namespace ravlin {

// Symbol name → code point in the Material Design icon font. The keys are also
// the list of every symbol name the program draws, on every platform.
const QHash<QString, char32_t>& symbolGlyphs();

} // namespace ravlin
