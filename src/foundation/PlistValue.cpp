#include "PlistValue.h"

#include <cmath>

namespace ravlin {

PlistValue PlistValue::fromStringList(const QStringList& list)
{
    PlistArray array;
    array.reserve(list.size());
    for (const QString& s : list)
        array.emplace_back(s);
    return PlistValue(std::move(array));
}

std::optional<bool> PlistValue::asBool() const
{
    if (auto* b = std::get_if<bool>(&m_v))
        return *b;
    return std::nullopt;
}

std::optional<std::int64_t> PlistValue::asInteger() const
{
    if (auto* i = std::get_if<std::int64_t>(&m_v))
        return *i;
    if (auto* d = std::get_if<double>(&m_v)) {
        if (std::isfinite(*d) && std::trunc(*d) == *d && std::fabs(*d) < 9.2e18)
            return std::int64_t(*d);
    }
    return std::nullopt;
}

std::optional<double> PlistValue::asDouble() const
{
    if (auto* i = std::get_if<std::int64_t>(&m_v))
        return double(*i);
    if (auto* d = std::get_if<double>(&m_v))
        return *d;
    if (auto* b = std::get_if<bool>(&m_v))
        return *b ? 1.0 : 0.0;
    return std::nullopt;
}

std::optional<QString> PlistValue::asString() const
{
    if (auto* s = std::get_if<QString>(&m_v))
        return *s;
    return std::nullopt;
}

const PlistArray* PlistValue::asArray() const
{
    return std::get_if<PlistArray>(&m_v);
}

const PlistDict* PlistValue::asDict() const
{
    return std::get_if<PlistDict>(&m_v);
}

std::optional<QDateTime> PlistValue::asDate() const
{
    if (auto* d = std::get_if<QDateTime>(&m_v))
        return *d;
    return std::nullopt;
}

std::optional<QByteArray> PlistValue::asData() const
{
    if (auto* d = std::get_if<QByteArray>(&m_v))
        return *d;
    return std::nullopt;
}

const PlistValue& PlistValue::operator[](const QString& key) const
{
    static const PlistValue null;
    if (auto* dict = asDict()) {
        auto it = dict->constFind(key);
        if (it != dict->constEnd())
            return *it;
    }
    return null;
}

bool PlistValue::operator==(const PlistValue& other) const
{
    return m_v == other.m_v;
}

} // namespace ravlin
