#include "PlistValue.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace ravlin {

// The same bits are the same date; a date that is not a number equals itself.
bool PlistDate::operator==(const PlistDate& other) const
{
    return std::memcmp(&seconds, &other.seconds, sizeof seconds) == 0 || seconds == other.seconds;
}

PlistValue::PlistValue(const QDateTime& d)
    : m_v(PlistDate{d.isValid() ? double(referenceDate().msecsTo(d)) / 1000.0
                                : std::numeric_limits<double>::quiet_NaN()})
{
}

PlistValue PlistValue::fromUnsigned(std::uint64_t value)
{
    PlistValue v;
    if (value <= std::uint64_t(std::numeric_limits<std::int64_t>::max()))
        v.m_v = std::int64_t(value);
    else
        v.m_v = value;
    return v;
}

QDateTime PlistValue::referenceDate()
{
    return QDateTime(QDate(2001, 1, 1), QTime(0, 0), Qt::UTC);
}

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
    if (auto* u = std::get_if<std::uint64_t>(&m_v))
        return double(*u);
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
    const auto* d = std::get_if<PlistDate>(&m_v);
    if (!d)
        return std::nullopt;
    if (!std::isfinite(d->seconds))
        return QDateTime();
    // Beyond some three thousand years either way QDateTime has nothing to say.
    const double bounded = std::clamp(d->seconds, -1e11, 1e11);
    return referenceDate().addMSecs(qint64(std::llround(bounded * 1000.0)));
}

std::optional<PlistDate> PlistValue::asPlistDate() const
{
    if (auto* d = std::get_if<PlistDate>(&m_v))
        return *d;
    return std::nullopt;
}

std::optional<std::uint64_t> PlistValue::asUnsigned() const
{
    if (auto* u = std::get_if<std::uint64_t>(&m_v))
        return *u;
    return std::nullopt;
}

std::optional<PlistUid> PlistValue::asUid() const
{
    if (auto* u = std::get_if<PlistUid>(&m_v))
        return *u;
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
