#pragma once

#include <QJsonValue>
#include <QString>

#include <optional>

namespace ravlin::sandbox::JsonPointer {

// Resolves an RFC 6901 pointer ("/bar/0/title"); absent when it leads nowhere.
std::optional<QJsonValue> resolve(const QJsonValue& root, const QString& pointer);
// The reference tokens of a pointer, unescaped (~1 → /, ~0 → ~).
QStringList tokens(const QString& pointer);

} // namespace ravlin::sandbox::JsonPointer
