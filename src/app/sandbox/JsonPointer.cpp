#include "JsonPointer.h"

#include <QJsonArray>
#include <QJsonObject>

namespace ravlin::sandbox::JsonPointer {

QStringList tokens(const QString& pointer)
{
    QStringList parts = pointer.split(u'/');
    parts.removeFirst(); // before the leading slash
    for (QString& part : parts)
        part.replace(QStringLiteral("~1"), QStringLiteral("/"))
            .replace(QStringLiteral("~0"), QStringLiteral("~"));
    return parts;
}

std::optional<QJsonValue> resolve(const QJsonValue& root, const QString& pointer)
{
    if (pointer.isEmpty())
        return root;
    if (!pointer.startsWith(u'/'))
        return std::nullopt;
    QJsonValue current = root;
    for (const QString& token : tokens(pointer)) {
        if (current.isObject()) {
            const QJsonObject object = current.toObject();
            if (!object.contains(token))
                return std::nullopt;
            current = object.value(token);
        } else if (current.isArray()) {
            bool ok = false;
            const qsizetype index = token.toLongLong(&ok);
            const QJsonArray array = current.toArray();
            if (!ok || index < 0 || index >= array.size() ||
                (token.size() > 1 && token.startsWith(u'0')))
                return std::nullopt;
            current = array.at(index);
        } else {
            return std::nullopt;
        }
    }
    return current;
}

} // namespace ravlin::sandbox::JsonPointer
