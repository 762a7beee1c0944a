#include "StringsTable.h"

#include <QFile>
#include <QStringDecoder>

namespace ravlin {
namespace {

QString decode(const QByteArray& bytes)
{
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) {
        auto decoder =
            QStringDecoder(QStringDecoder::encodingForData(bytes).value_or(QStringDecoder::Utf16));
        return decoder(bytes);
    }
    QByteArray utf8 = bytes;
    if (utf8.startsWith("\xEF\xBB\xBF"))
        utf8.remove(0, 3);
    return QString::fromUtf8(utf8);
}

class Reader {
public:
    explicit Reader(const QString& text) : m_text(text) {}

    bool read(QList<StringsTable::Entry>& entries)
    {
        while (true) {
            if (!skipBlanksAndComments())
                return false;
            if (atEnd())
                return true;
            const int line = m_line;
            QString key;
            if (!readToken(key))
                return false;
            if (!skipBlanksAndComments())
                return false;
            QString value = key; // "key"; alone means the key is its own text
            if (peek() == u'=') {
                ++m_pos;
                if (!skipBlanksAndComments() || !readToken(value) || !skipBlanksAndComments())
                    return false;
            }
            if (peek() != u';')
                return fail(QStringLiteral("expected ';'"));
            ++m_pos;
            entries.append({key, value, line});
        }
    }

    QString error() const { return m_error; }

private:
    bool atEnd() const { return m_pos >= m_text.size(); }
    QChar peek(qsizetype ahead = 0) const
    {
        return m_pos + ahead < m_text.size() ? m_text[m_pos + ahead] : QChar();
    }
    QChar take()
    {
        const QChar c = m_text[m_pos++];
        if (c == u'\n')
            ++m_line;
        return c;
    }
    bool fail(const QString& message)
    {
        m_error = QStringLiteral("line %1: %2").arg(m_line).arg(message);
        return false;
    }

    bool skipBlanksAndComments()
    {
        while (!atEnd()) {
            if (peek().isSpace()) {
                take();
            } else if (peek() == u'/' && peek(1) == u'*') {
                m_pos += 2;
                while (!atEnd() && !(peek() == u'*' && peek(1) == u'/'))
                    take();
                if (atEnd())
                    return fail(QStringLiteral("unterminated comment"));
                m_pos += 2;
            } else if (peek() == u'/' && peek(1) == u'/') {
                while (!atEnd() && peek() != u'\n')
                    take();
            } else {
                break;
            }
        }
        return true;
    }

    static bool isBareChar(QChar c)
    {
        return c.isLetterOrNumber() || c == u'_' || c == u'.' || c == u'-' || c == u'$' ||
               c == u'/' || c == u':';
    }

    bool readToken(QString& out)
    {
        out.clear();
        if (peek() == u'"')
            return readQuoted(out);
        while (!atEnd() && isBareChar(peek()))
            out += take();
        if (out.isEmpty())
            return fail(atEnd() ? QStringLiteral("unexpected end of text")
                                : QStringLiteral("unexpected character '%1'").arg(peek()));
        return true;
    }

    bool readHex(int digits, QString& out)
    {
        bool ok = false;
        const uint code = m_text.mid(m_pos, digits).toUInt(&ok, 16);
        if (!ok || m_pos + digits > m_text.size())
            return fail(QStringLiteral("bad \\U escape"));
        m_pos += digits;
        out += QChar(char16_t(code));
        return true;
    }

    bool readQuoted(QString& out)
    {
        take(); // opening quote
        while (!atEnd()) {
            const QChar c = take();
            if (c == u'"')
                return true;
            if (c != u'\\') {
                out += c;
                continue;
            }
            if (atEnd())
                break;
            const QChar e = take();
            switch (e.unicode()) {
            case 'n':
                out += u'\n';
                break;
            case 't':
                out += u'\t';
                break;
            case 'r':
                out += u'\r';
                break;
            case 'a':
                out += u'\a';
                break;
            case 'b':
                out += u'\b';
                break;
            case 'f':
                out += u'\f';
                break;
            case 'v':
                out += u'\v';
                break;
            case 'U':
            case 'u':
                if (!readHex(4, out))
                    return false;
                break;
            default:
                if (e >= u'0' && e <= u'7') {
                    int code = e.unicode() - '0';
                    for (int i = 0; i < 2 && peek() >= u'0' && peek() <= u'7'; ++i)
                        code = code * 8 + (take().unicode() - '0');
                    out += QChar(char16_t(code));
                } else {
                    out += e; // \" \\ \' and any other character stand for themselves
                }
            }
        }
        return fail(QStringLiteral("unterminated string"));
    }

    const QString& m_text;
    qsizetype m_pos = 0;
    int m_line = 1;
    QString m_error;
};

} // namespace

std::optional<StringsTable> StringsTable::parse(const QByteArray& bytes, QString* error)
{
    const QString text = decode(bytes);
    Reader reader(text);
    StringsTable table;
    if (!reader.read(table.m_entries)) {
        if (error)
            *error = reader.error();
        return std::nullopt;
    }
    for (qsizetype i = 0; i < table.m_entries.size(); ++i)
        table.m_index.insert(table.m_entries[i].key, i); // a later duplicate wins
    return table;
}

std::optional<StringsTable> StringsTable::load(const QString& path, QString* error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        if (error)
            *error = file.errorString();
        return std::nullopt;
    }
    return parse(file.readAll(), error);
}

std::optional<QString> StringsTable::value(const QString& key) const
{
    auto it = m_index.constFind(key);
    if (it == m_index.constEnd())
        return std::nullopt;
    return m_entries[*it].value;
}

QStringList StringsTable::keys() const
{
    QStringList keys;
    keys.reserve(m_entries.size());
    for (const Entry& e : m_entries)
        keys.append(e.key);
    return keys;
}

} // namespace ravlin
