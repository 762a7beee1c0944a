#pragma once

#include "PlistValue.h"

#include <QJsonValue>

namespace ravlin {

// JSON as the sandbox and its dumps speak it. A JSON number without fraction
// or exponent is an integer, any other number a real.
namespace PlistJson {

std::optional<PlistValue> parse(QStringView text, QString* error = nullptr);
QJsonValue toJson(const PlistValue& value);
PlistValue fromJson(const QJsonValue& value);

// Deep equality in which numbers compare by value (10000 == 10000.0).
bool equalByValue(const QJsonValue& a, const QJsonValue& b);

} // namespace PlistJson
} // namespace ravlin
