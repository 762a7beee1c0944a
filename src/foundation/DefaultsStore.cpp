#include "DefaultsStore.h"

#include <cmath>
#include <limits>

namespace ravlin {
namespace {

// The leading decimal number of a text, as the platform's string scanners read
// it: blanks skipped, optional sign, digits and an optional fraction; 0 if none.
double leadingNumber(const QString& text)
{
    const QString t = text.trimmed();
    qsizetype end = 0;
    if (end < t.size() && (t[end] == u'+' || t[end] == u'-'))
        ++end;
    while (end < t.size() && t[end].isDigit())
        ++end;
    if (end < t.size() && t[end] == u'.') {
        ++end;
        while (end < t.size() && t[end].isDigit())
            ++end;
    }
    bool ok = false;
    const double value = t.left(end).toDouble(&ok);
    return ok ? value : 0.0;
}

std::int64_t clampToInteger(double value)
{
    if (!std::isfinite(value))
        return 0;
    if (value >= 9.2e18)
        return std::numeric_limits<std::int64_t>::max();
    if (value <= -9.2e18)
        return std::numeric_limits<std::int64_t>::min();
    return std::int64_t(value);
}

} // namespace

void DefaultsStore::registerDefaults(const PlistDict& defaults)
{
    for (auto it = defaults.cbegin(); it != defaults.cend(); ++it)
        m_registered.insert(it.key(), it.value());
}

PlistValue DefaultsStore::object(const QString& key) const
{
    PlistValue value = persistentValue(key);
    if (!value.isNull())
        return value;
    return m_registered.value(key);
}

bool DefaultsStore::toBool(const PlistValue& value)
{
    if (auto b = value.asBool())
        return *b;
    if (auto d = value.asDouble())
        return *d != 0.0;
    if (auto s = value.asString()) {
        const QString t = s->trimmed();
        if (t.compare(u"yes", Qt::CaseInsensitive) == 0 ||
            t.compare(u"true", Qt::CaseInsensitive) == 0)
            return true;
        if (t.compare(u"no", Qt::CaseInsensitive) == 0 ||
            t.compare(u"false", Qt::CaseInsensitive) == 0)
            return false;
        return leadingNumber(t) != 0.0;
    }
    return false;
}

std::int64_t DefaultsStore::toInteger(const PlistValue& value)
{
    if (value.isInteger())
        return *value.asInteger();
    if (auto d = value.asDouble())
        return clampToInteger(*d);
    if (auto s = value.asString()) {
        const QString t = s->trimmed();
        if (t.compare(u"yes", Qt::CaseInsensitive) == 0 ||
            t.compare(u"true", Qt::CaseInsensitive) == 0)
            return 1;
        return clampToInteger(leadingNumber(t));
    }
    return 0;
}

double DefaultsStore::toDouble(const PlistValue& value)
{
    if (auto d = value.asDouble())
        return *d;
    if (auto s = value.asString())
        return leadingNumber(*s);
    return 0.0;
}

bool DefaultsStore::boolForKey(const QString& key) const
{
    return toBool(object(key));
}

std::int64_t DefaultsStore::integerForKey(const QString& key) const
{
    return toInteger(object(key));
}

double DefaultsStore::doubleForKey(const QString& key) const
{
    return toDouble(object(key));
}

std::optional<QString> DefaultsStore::stringForKey(const QString& key) const
{
    const PlistValue value = object(key);
    if (auto s = value.asString())
        return s;
    if (value.isInteger())
        return QString::number(*value.asInteger());
    if (value.isUnsigned())
        return QString::number(*value.asUnsigned());
    if (value.isReal())
        return QString::number(*value.asDouble(), 'g', 17);
    if (value.isBool())
        return *value.asBool() ? QStringLiteral("1") : QStringLiteral("0");
    return std::nullopt;
}

std::optional<QStringList> DefaultsStore::stringArrayForKey(const QString& key) const
{
    const PlistValue value = object(key);
    const PlistArray* array = value.asArray();
    if (!array)
        return std::nullopt;
    QStringList list;
    list.reserve(qsizetype(array->size()));
    for (const PlistValue& element : *array) {
        auto s = element.asString();
        if (!s)
            return std::nullopt;
        list.append(*s);
    }
    return list;
}

std::optional<PlistArray> DefaultsStore::arrayForKey(const QString& key) const
{
    const PlistValue value = object(key);
    if (auto* array = value.asArray())
        return *array;
    return std::nullopt;
}

std::optional<PlistDict> DefaultsStore::dictionaryForKey(const QString& key) const
{
    const PlistValue value = object(key);
    if (auto* dict = value.asDict())
        return *dict;
    return std::nullopt;
}

void InMemoryDefaultsStore::set(const QString& key, const PlistValue& value)
{
    if (value.isNull())
        m_values.remove(key);
    else
        m_values.insert(key, value);
}

} // namespace ravlin
