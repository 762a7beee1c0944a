#pragma once

#include "foundation/PlistValue.h"

#include <optional>

namespace ravlin::PlistCodec {

// How deeply arrays and dictionaries may nest, the top-level dictionary counting as one.
// Ravlin's own settings nest three levels and hand-made property lists rarely pass ten. Both
// libplist and PlistValue free their trees recursively, so a file hundreds of thousands of levels
// deep would overflow the stack: such a file is refused whole before any tree is built, which also
// means a value is never read cut down (and then written back so).
inline constexpr int maxNesting = 512;

// Reads an XML or binary property list; absent when the bytes are not one or nest more deeply
// than maxNesting. Integers beyond the 64-bit range read as the nearest 64-bit value, and each
// such change is described in `warnings`.
std::optional<PlistValue> parse(const QByteArray& bytes, QString* error = nullptr,
                                QStringList* warnings = nullptr);
// Writes an XML property list, the format `defaults export` writes.
QByteArray toXml(const PlistValue& value);
// Whether XML carries every value exactly (see encode).
bool xmlHoldsAll(const PlistValue& value);
// XML when it carries every value exactly, else the binary form, so that whatever was read is
// written back as it was: dates with fractions of a second, UIDs, text with characters XML has
// no place for, reals that are not finite.
QByteArray encode(const PlistValue& value);

// Property-list dates count seconds from this moment.
QDateTime referenceDate();
// The reason given for a list that nests more deeply than maxNesting.
QString nestingError();

} // namespace ravlin::PlistCodec
