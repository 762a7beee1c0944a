#include "PlistJson.h"

#include <QJsonArray>
#include <QJsonObject>

#include <cmath>

namespace ravlin::PlistJson {
namespace {

class Parser {
public:
    explicit Parser(QStringView text) : m_text(text) {}

    std::optional<PlistValue> parseDocument(QString* error)
    {
        auto value = parseValue();
        skipBlanks();
        if (value && m_pos != m_text.size())
            fail(QStringLiteral("unexpected text after the value"));
        if (!m_error.isEmpty()) {
            if (error)
                *error = m_error;
            return std::nullopt;
        }
        return value;
    }

private:
    QChar peek() const { return m_pos < m_text.size() ? m_text[m_pos] : QChar(); }
    bool atEnd() const { return m_pos >= m_text.size(); }
    void skipBlanks()
    {
        while (!atEnd() && peek().isSpace())
            ++m_pos;
    }
    std::optional<PlistValue> fail(const QString& message)
    {
        if (m_error.isEmpty())
            m_error = QStringLiteral("%1 (at offset %2)").arg(message).arg(m_pos);
        return std::nullopt;
    }
    bool consumeWord(QStringView word)
    {
        if (m_text.mid(m_pos).startsWith(word)) {
            m_pos += word.size();
            return true;
        }
        return false;
    }

    std::optional<PlistValue> parseValue()
    {
        if (++m_depth > 64)
            return fail(QStringLiteral("nested too deeply"));
        skipBlanks();
        std::optional<PlistValue> result;
        const QChar c = peek();
        if (c == u'{')
            result = parseObject();
        else if (c == u'[')
            result = parseArray();
        else if (c == u'"')
            result = parseStringValue();
        else if (c == u'-' || c.isDigit())
            result = parseNumber();
        else if (consumeWord(u"true"))
            result = PlistValue(true);
        else if (consumeWord(u"false"))
            result = PlistValue(false);
        else if (consumeWord(u"null"))
            result = PlistValue();
        else
            result = fail(atEnd() ? QStringLiteral("a value is missing")
                                  : QStringLiteral("not a JSON value"));
        --m_depth;
        return result;
    }

    std::optional<QString> parseString()
    {
        ++m_pos; // opening quote
        QString out;
        while (!atEnd()) {
            QChar c = m_text[m_pos++];
            if (c == u'"')
                return out;
            if (c.unicode() < 0x20) {
                --m_pos;
                fail(QStringLiteral("a control character inside a string"));
                return std::nullopt;
            }
            if (c != u'\\') {
                out += c;
                continue;
            }
            if (atEnd())
                break;
            const QChar e = m_text[m_pos++];
            switch (e.unicode()) {
            case '"':
                out += u'"';
                break;
            case '\\':
                out += u'\\';
                break;
            case '/':
                out += u'/';
                break;
            case 'b':
                out += u'\b';
                break;
            case 'f':
                out += u'\f';
                break;
            case 'n':
                out += u'\n';
                break;
            case 'r':
                out += u'\r';
                break;
            case 't':
                out += u'\t';
                break;
            case 'u': {
                bool ok = false;
                const uint code = m_text.mid(m_pos, 4).toUInt(&ok, 16);
                if (!ok || m_pos + 4 > m_text.size()) {
                    fail(QStringLiteral("bad \\u escape"));
                    return std::nullopt;
                }
                m_pos += 4;
                out += QChar(char16_t(code));
                break;
            }
            default:
                fail(QStringLiteral("bad escape"));
                return std::nullopt;
            }
        }
        fail(QStringLiteral("unterminated string"));
        return std::nullopt;
    }

    std::optional<PlistValue> parseStringValue()
    {
        auto s = parseString();
        if (!s)
            return std::nullopt;
        return PlistValue(*s);
    }

    std::optional<PlistValue> parseNumber()
    {
        const qsizetype start = m_pos;
        bool isReal = false;
        if (peek() == u'-')
            ++m_pos;
        while (!atEnd()) {
            const QChar c = peek();
            if (c.isDigit() || c == u'+' || c == u'-') {
                ++m_pos;
            } else if (c == u'.' || c == u'e' || c == u'E') {
                isReal = true;
                ++m_pos;
            } else {
                break;
            }
        }
        const QString literal = m_text.mid(start, m_pos - start).toString();
        bool ok = false;
        if (!isReal) {
            const qlonglong i = literal.toLongLong(&ok);
            if (ok)
                return PlistValue(std::int64_t(i));
        }
        const double d = literal.toDouble(&ok);
        if (!ok || !std::isfinite(d))
            return fail(QStringLiteral("bad number '%1'").arg(literal));
        return PlistValue(d);
    }

    std::optional<PlistValue> parseArray()
    {
        ++m_pos;
        PlistArray array;
        skipBlanks();
        if (peek() == u']') {
            ++m_pos;
            return PlistValue(std::move(array));
        }
        while (true) {
            auto element = parseValue();
            if (!element)
                return std::nullopt;
            array.push_back(std::move(*element));
            skipBlanks();
            if (peek() == u',') {
                ++m_pos;
                continue;
            }
            if (peek() == u']') {
                ++m_pos;
                return PlistValue(std::move(array));
            }
            return fail(QStringLiteral("expected , or ]"));
        }
    }

    std::optional<PlistValue> parseObject()
    {
        ++m_pos;
        PlistDict dict;
        skipBlanks();
        if (peek() == u'}') {
            ++m_pos;
            return PlistValue(std::move(dict));
        }
        while (true) {
            skipBlanks();
            if (peek() != u'"')
                return fail(QStringLiteral("expected a member name"));
            auto key = parseString();
            if (!key)
                return std::nullopt;
            skipBlanks();
            if (peek() != u':')
                return fail(QStringLiteral("expected :"));
            ++m_pos;
            auto value = parseValue();
            if (!value)
                return std::nullopt;
            dict.insert(*key, std::move(*value));
            skipBlanks();
            if (peek() == u',') {
                ++m_pos;
                continue;
            }
            if (peek() == u'}') {
                ++m_pos;
                return PlistValue(std::move(dict));
            }
            return fail(QStringLiteral("expected , or }"));
        }
    }

    QStringView m_text;
    qsizetype m_pos = 0;
    int m_depth = 0;
    QString m_error;
};

} // namespace

std::optional<PlistValue> parse(QStringView text, QString* error)
{
    return Parser(text).parseDocument(error);
}

QJsonValue toJson(const PlistValue& value)
{
    switch (value.type()) {
    case PlistValue::Type::Null:
        return QJsonValue(QJsonValue::Null);
    case PlistValue::Type::Bool:
        return *value.asBool();
    case PlistValue::Type::Integer:
        return qint64(*value.asInteger());
    case PlistValue::Type::Real:
        return *value.asDouble();
    case PlistValue::Type::String:
        return *value.asString();
    case PlistValue::Type::Date:
        return value.asDate()->toUTC().toString(Qt::ISODate);
    case PlistValue::Type::Data:
        return QString::fromLatin1(value.asData()->toBase64());
    case PlistValue::Type::Unsigned:
        // JSON numbers are doubles: the exact value goes as text.
        return QString::number(*value.asUnsigned());
    case PlistValue::Type::Uid:
        return QJsonObject{{QStringLiteral("CF$UID"), qint64(value.asUid()->value)}};
    case PlistValue::Type::Array: {
        QJsonArray array;
        for (const PlistValue& element : *value.asArray())
            array.append(toJson(element));
        return array;
    }
    case PlistValue::Type::Dict: {
        QJsonObject object;
        const PlistDict& dict = *value.asDict();
        for (auto it = dict.cbegin(); it != dict.cend(); ++it)
            object.insert(it.key(), toJson(it.value()));
        return object;
    }
    }
    return QJsonValue(QJsonValue::Null);
}

PlistValue fromJson(const QJsonValue& value)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return value.toBool();
    case QJsonValue::Double: {
        const QVariant v = value.toVariant();
        if (v.typeId() == QMetaType::LongLong || v.typeId() == QMetaType::Int)
            return std::int64_t(v.toLongLong());
        return value.toDouble();
    }
    case QJsonValue::String:
        return value.toString();
    case QJsonValue::Array: {
        PlistArray array;
        for (const QJsonValue& element : value.toArray())
            array.push_back(fromJson(element));
        return array;
    }
    case QJsonValue::Object: {
        PlistDict dict;
        const QJsonObject object = value.toObject();
        for (auto it = object.begin(); it != object.end(); ++it)
            dict.insert(it.key(), fromJson(it.value()));
        return dict;
    }
    default:
        return {};
    }
}

bool equalByValue(const QJsonValue& a, const QJsonValue& b)
{
    if (a.isDouble() && b.isDouble())
        return a.toDouble() == b.toDouble();
    if (a.type() != b.type())
        return false;
    if (a.isArray()) {
        const QJsonArray x = a.toArray(), y = b.toArray();
        if (x.size() != y.size())
            return false;
        for (qsizetype i = 0; i < x.size(); ++i)
            if (!equalByValue(x[i], y[i]))
                return false;
        return true;
    }
    if (a.isObject()) {
        const QJsonObject x = a.toObject(), y = b.toObject();
        if (x.keys() != y.keys())
            return false;
        for (auto it = x.begin(); it != x.end(); ++it)
            if (!equalByValue(it.value(), y.value(it.key())))
                return false;
        return true;
    }
    return a == b;
}

} // namespace ravlin::PlistJson
