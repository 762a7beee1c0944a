#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

namespace ravlin {

class PlistValue;
using PlistArray = std::vector<PlistValue>;
using PlistDict = QMap<QString, PlistValue>;

// A date as property lists hold it: seconds since the start of 2001 (UTC), with every fraction
// the file had, which QDateTime's milliseconds would round.
struct PlistDate {
    double seconds = 0;
    bool operator==(const PlistDate& other) const;
};

// A reference into an archive's object table, a type of its own in binary property lists.
struct PlistUid {
    std::uint64_t value = 0;
    bool operator==(const PlistUid&) const = default;
};

// One property-list value: what the user defaults store and the window server's
// dictionaries hold. An absent value (null) stands for "no value".
class PlistValue {
public:
    // Unsigned: an integer above the signed 64-bit range (smaller ones are Integer), which
    // the system's own tools write; it is read and written back as it is.
    enum class Type { Null, Bool, Integer, Real, String, Date, Data, Array, Dict, Unsigned, Uid };

    PlistValue() = default;
    PlistValue(bool b) : m_v(b) {}
    // int64_t is long on Linux and long long on Apple: naming the three standard types covers
    // both without declaring one of them twice.
    PlistValue(int i) : m_v(std::int64_t(i)) {}
    PlistValue(long i) : m_v(std::int64_t(i)) {}
    PlistValue(long long i) : m_v(std::int64_t(i)) {}
    PlistValue(double d) : m_v(d) {}
    PlistValue(const char*) = delete; // say QStringLiteral or u"…"_s: no implicit ASCII casts
    PlistValue(QString s) : m_v(std::move(s)) {}
    PlistValue(const QDateTime& d);
    PlistValue(PlistDate d) : m_v(d) {}
    PlistValue(PlistUid u) : m_v(u) {}
    PlistValue(QByteArray d) : m_v(std::move(d)) {}
    PlistValue(PlistArray a) : m_v(std::move(a)) {}
    PlistValue(PlistDict d) : m_v(std::move(d)) {}

    static PlistValue fromStringList(const QStringList& list);
    // An Integer when it fits the signed range, else an Unsigned.
    static PlistValue fromUnsigned(std::uint64_t value);
    // Property-list dates count from this moment.
    static QDateTime referenceDate();

    Type type() const { return Type(m_v.index()); }
    bool isNull() const { return type() == Type::Null; }
    bool isBool() const { return type() == Type::Bool; }
    bool isInteger() const { return type() == Type::Integer; }
    bool isReal() const { return type() == Type::Real; }
    bool isUnsigned() const { return type() == Type::Unsigned; }
    bool isNumber() const { return isInteger() || isReal() || isBool() || isUnsigned(); }
    bool isString() const { return type() == Type::String; }
    bool isArray() const { return type() == Type::Array; }
    bool isDict() const { return type() == Type::Dict; }

    // Strict accessors: absent unless the value has exactly that shape.
    std::optional<bool> asBool() const;
    std::optional<std::int64_t> asInteger() const; // integers, and reals without fraction
    std::optional<double> asDouble() const;        // any number
    std::optional<QString> asString() const;
    const PlistArray* asArray() const;
    const PlistDict* asDict() const;
    std::optional<QDateTime> asDate() const; // to the millisecond
    std::optional<PlistDate> asPlistDate() const;
    std::optional<std::uint64_t> asUnsigned() const; // Unsigned values only
    std::optional<PlistUid> asUid() const;
    std::optional<QByteArray> asData() const;

    // Dictionary member, or null.
    const PlistValue& operator[](const QString& key) const;

    bool operator==(const PlistValue& other) const;
    bool operator!=(const PlistValue& other) const { return !(*this == other); }

private:
    std::variant<std::monostate, bool, std::int64_t, double, QString, PlistDate, QByteArray,
                 PlistArray, PlistDict, std::uint64_t, PlistUid>
        m_v;
};

} // namespace ravlin
