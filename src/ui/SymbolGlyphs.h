#pragma once

#include <QHash>
#include <QString>

namespace ravlin::SymbolGlyphs {

// Every symbol name the program uses, mapped to the code point of its glyph in the
// Material Design icon font (what draws the symbols off macOS).
const QHash<QString, char32_t>& table();

} // namespace ravlin::SymbolGlyphs
