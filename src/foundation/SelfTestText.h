#pragma once

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <vector>

namespace ravlin::SelfTestText {

// How the self-test reports write their values.

// "2026-01-05 09:00:00 +0000": the moment in UTC.
QString date(const QDateTime& moment);
// Cut towards zero. A value that is not finite or does not fit 64 bits is
// written "nil" with a warning instead of stopping the program.
QString wholeNumber(double value);
// [412, 97, 1033]
QString numberList(const std::vector<std::int64_t>& numbers);
// ["Wi-Fi", "Foo"], quotes and backslashes escaped
QString quotedList(const QStringList& texts);

} // namespace ravlin::SelfTestText
