#include "XmlPlistScan.h"

#include <cstring>
#include <limits>

namespace ravlin {
namespace {

bool isXmlBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

// The blanks strtoull skips before a number.
bool isCBlank(char c)
{
    return isXmlBlank(c) || c == '\v' || c == '\f';
}

int digitValue(char c, int base)
{
    int value = 99;
    if (c >= '0' && c <= '9')
        value = c - '0';
    else if (c >= 'a' && c <= 'f')
        value = c - 'a' + 10;
    else if (c >= 'A' && c <= 'F')
        value = c - 'A' + 10;
    return value < base ? value : -1;
}

bool isLeafElement(const QByteArray& tag)
{
    static const QByteArrayList leaves = {"string", "integer", "real", "true",
                                          "false",  "data",    "date"};
    return leaves.contains(tag);
}

} // namespace

XmlPlistScan::XmlPlistScan(const QByteArray& xml, int maxNesting)
    : m_xml(xml), m_data(m_xml.constData()), m_end(m_xml.size()), m_maxNesting(maxNesting)
{
    run();
}

QByteArray XmlPlistScan::clampedText() const
{
    if (m_replacements.empty())
        return m_xml;
    QByteArray out;
    out.reserve(m_xml.size());
    qsizetype from = 0;
    for (const Replacement& r : m_replacements) {
        out.append(m_data + from, r.begin - from);
        out.append(r.text);
        from = r.end;
    }
    out.append(m_data + from, m_end - from);
    return out;
}

// The main loop of libplist's XML reader: where it stops with an error, the scan stops too, since
// nothing after that point is ever built.
void XmlPlistScan::run()
{
    while (!atEnd() && !m_tooDeep) {
        skipBlanks();
        if (atEnd() || at(m_pos) != '<')
            return;
        ++m_pos;
        if (atEnd())
            return;
        if (at(m_pos) == '?') {
            findText("?>", true);
            if (m_pos > m_end - 2 || !startsWith("?>"))
                return;
            m_pos += 2;
        } else if (at(m_pos) == '!') {
            if (!skipSpecialTag())
                return;
        } else if (!readTag()) {
            return;
        }
    }
}

bool XmlPlistScan::startsWith(const char* text) const
{
    const auto length = qsizetype(std::strlen(text));
    return m_end - m_pos >= length && std::memcmp(m_data + m_pos, text, size_t(length)) == 0;
}

void XmlPlistScan::skipBlanks()
{
    while (!atEnd() && isXmlBlank(at(m_pos)))
        ++m_pos;
}

void XmlPlistScan::findChar(char c, bool skipQuotes)
{
    while (!atEnd() && at(m_pos) != c) {
        if (skipQuotes && c != '"' && at(m_pos) == '"') {
            ++m_pos;
            findChar('"', false);
            if (atEnd())
                return;
        }
        ++m_pos;
    }
}

void XmlPlistScan::findText(const char* text, bool skipQuotes)
{
    const auto length = qsizetype(std::strlen(text));
    while (m_pos < m_end - length) {
        if (startsWith(text))
            return;
        if (skipQuotes && at(m_pos) == '"') {
            ++m_pos;
            findChar('"', false);
            if (atEnd())
                return;
        }
        ++m_pos;
    }
}

void XmlPlistScan::findAny(const char* chars, bool skipQuotes)
{
    while (!atEnd()) {
        if (skipQuotes && at(m_pos) == '"') {
            ++m_pos;
            findChar('"', false);
            if (atEnd())
                return;
        }
        if (std::strchr(chars, at(m_pos)))
            return;
        ++m_pos;
    }
}

// Comments and the document type; libplist refuses any other "<!".
bool XmlPlistScan::skipSpecialTag()
{
    if (m_end - m_pos > 3 && startsWith("!--")) {
        m_pos += 3;
        findText("-->", false);
        if (m_pos > m_end - 3 || !startsWith("-->"))
            return false;
        m_pos += 3;
        return true;
    }
    if (m_end - m_pos <= 8 || !startsWith("!DOCTYPE"))
        return false;
    m_pos += 8;
    bool embedded = false;
    while (!atEnd()) {
        findAny(" \t\r\n[>", true);
        if (atEnd())
            return false;
        if (at(m_pos) == '[') {
            embedded = true;
            break;
        }
        if (at(m_pos) == '>') {
            ++m_pos;
            break;
        }
        skipBlanks();
    }
    if (embedded) {
        findText("]>", true);
        if (m_pos > m_end - 2 || !startsWith("]>"))
            return false;
        m_pos += 2;
    }
    return true;
}

bool XmlPlistScan::readTag()
{
    const qsizetype begin = m_pos;
    findAny(" \r\n\t<>", false);
    if (atEnd())
        return false;
    QByteArray tag(m_data + begin, m_pos - begin);
    if (at(m_pos) != '>')
        findAny("<>", true);
    if (atEnd() || at(m_pos) != '>')
        return false;
    const bool empty = at(m_pos - 1) == '/';
    if (empty && m_pos - begin - 1 < tag.size())
        tag.truncate(m_pos - begin - 1);
    ++m_pos;
    if (tag == "plist" || tag == "/plist")
        return true;
    if (tag.startsWith('/'))
        return closeElement(tag.mid(1));
    return openElement(tag, empty);
}

bool XmlPlistScan::openElement(const QByteArray& tag, bool empty)
{
    qsizetype begin = -1, end = -1;
    if (tag == "key") {
        if (!empty && !readText(tag, false, &begin, &end))
            return false;
        if (!m_frames.empty())
            m_frames.back().pendingKey =
                begin >= 0 ? QByteArray(m_data + begin, end - begin) : QByteArray();
        return true;
    }
    const QString path = nextChildPath();
    if (tag == "dict" || tag == "array") {
        if (empty)
            return true;
        if (m_frames.size() >= size_t(m_maxNesting)) {
            m_tooDeep = true;
            return false;
        }
        m_frames.push_back({tag == "dict", path, {}, 0});
        return true;
    }
    if (!isLeafElement(tag))
        return false; // libplist refuses elements it does not know
    if (empty)
        return true;
    if (!readText(tag, tag != "string", &begin, &end))
        return false;
    if (tag == "integer" && begin >= 0)
        checkInteger(begin, end, path);
    return true;
}

bool XmlPlistScan::closeElement(const QByteArray& tag)
{
    const bool isDict = tag == "dict";
    if ((!isDict && tag != "array") || m_frames.empty() || m_frames.back().isDict != isDict)
        return false; // libplist stops at a closing tag that does not match
    m_frames.pop_back();
    return true;
}

// The text of a leaf element up to and including its closing tag, as libplist reads it. The span
// is given only when the text is one plain run (no comments or CDATA sections inside).
bool XmlPlistScan::readText(const QByteArray& tag, bool skipLeadingBlanks, qsizetype* begin,
                            qsizetype* end)
{
    if (skipLeadingBlanks)
        skipBlanks();
    const qsizetype first = m_pos;
    bool plain = true;
    qsizetype textEnd = -1;
    while (textEnd < 0) {
        findChar('<', false);
        if (atEnd())
            return false;
        const qsizetype lessThan = m_pos++;
        if (atEnd())
            return false;
        if (at(m_pos) == '/') {
            textEnd = lessThan;
        } else if (at(m_pos) == '!') {
            ++m_pos;
            if (m_pos >= m_end - 1)
                return false;
            plain = false;
            if (at(m_pos) == '-' && at(m_pos + 1) == '-') {
                m_pos += 2;
                findText("-->", false);
                if (m_pos > m_end - 3 || !startsWith("-->"))
                    return false;
                m_pos += 3;
            } else if (at(m_pos) == '[') {
                ++m_pos;
                if (m_pos >= m_end - 8 || !startsWith("CDATA["))
                    return false;
                m_pos += 6;
                findText("]]>", false);
                if (m_pos > m_end - 3 || !startsWith("]]>"))
                    return false;
                m_pos += 3;
            } else {
                return false;
            }
        } else {
            return false;
        }
    }
    ++m_pos;
    if (m_pos >= m_end - tag.size() || !startsWith(tag.constData()))
        return false;
    m_pos += tag.size();
    skipBlanks();
    if (atEnd() || at(m_pos) != '>')
        return false;
    ++m_pos;
    if (plain) {
        *begin = first;
        *end = textEnd;
    }
    return true;
}

QString XmlPlistScan::nextChildPath()
{
    if (m_frames.empty())
        return QString();
    Frame& parent = m_frames.back();
    if (!parent.isDict)
        return parent.path + u'/' + QString::number(parent.nextIndex++);
    const QString path = parent.path + u'/' + QString::fromUtf8(parent.pendingKey);
    parent.pendingKey.clear();
    return path;
}

// libplist hands the text after an optional sign to strtoull with base 0 (so "0x" means hex and a
// leading 0 octal) and keeps the low 64 bits of whatever comes back.
void XmlPlistScan::checkInteger(qsizetype begin, qsizetype end, const QString& path)
{
    qsizetype i = begin;
    bool negative = false;
    if (i < end && (at(i) == '-' || at(i) == '+'))
        negative = at(i++) == '-';
    while (i < end && isCBlank(at(i)))
        ++i;
    if (i < end && (at(i) == '-' || at(i) == '+'))
        negative ^= at(i++) == '-';
    int base = 10;
    if (i + 2 < end && at(i) == '0' && (at(i + 1) == 'x' || at(i + 1) == 'X') &&
        digitValue(at(i + 2), 16) >= 0) {
        base = 16;
        i += 2;
    } else if (i < end && at(i) == '0') {
        base = 8;
    }
    constexpr std::uint64_t all = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t magnitude = 0;
    bool overflow = false, anyDigit = false;
    for (; i < end; ++i) {
        const int digit = digitValue(at(i), base);
        if (digit < 0)
            break;
        anyDigit = true;
        if (magnitude > (all - std::uint64_t(digit)) / std::uint64_t(base))
            overflow = true;
        else
            magnitude = magnitude * std::uint64_t(base) + std::uint64_t(digit);
    }
    // Unsigned values up to 2^64 - 1 are valid (the system's tools write them); negative
    // ones reach down to -2^63.
    const std::uint64_t largest = negative ? std::uint64_t(1) << 63 : all;
    if (!anyDigit || (!overflow && magnitude <= largest))
        return;
    const QByteArray clamped = negative
                                   ? QByteArray::number(std::numeric_limits<qint64>::min())
                                   : QByteArray::number(std::numeric_limits<quint64>::max());
    const QByteArray written = QByteArray(m_data + begin, end - begin).trimmed();
    const QString shown = written.size() > 40 ? QString::fromLatin1(written.left(40)) + u'…'
                                              : QString::fromLatin1(written);
    m_replacements.push_back({begin, end, clamped});
    m_warnings << QStringLiteral(
                      "the integer %1 at %2 lies beyond the 64-bit range and reads as %3")
                      .arg(shown, path.isEmpty() ? QStringLiteral("/") : path,
                           QString::fromLatin1(clamped));
}

} // namespace ravlin
