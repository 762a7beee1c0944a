#pragma once

#include "foundation/PlistValue.h"

#include <optional>

namespace ravlin::PlistCodec {

// Reads an XML property list; absent when the bytes are not one.
std::optional<PlistValue> parse(const QByteArray& bytes, QString* error = nullptr);
// Writes an XML property list, the format `defaults export` writes.
QByteArray toXml(const PlistValue& value);

} // namespace ravlin::PlistCodec
