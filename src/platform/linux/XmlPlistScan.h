#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace ravlin {

// One light pass over the text of an XML property list before libplist reads it. It steps
// through the text the way libplist 2.2 does, so that it sees the same arrays and dictionaries,
// and answers two things libplist cannot: whether containers nest more deeply than allowed
// (libplist would build the tree and then overflow the stack freeing it), and which integers lie
// beyond the 64-bit range (libplist wraps them silently, 10^20 reading as -1).
class XmlPlistScan {
public:
    XmlPlistScan(const QByteArray& xml, int maxNesting);

    bool tooDeep() const { return m_tooDeep; }
    // The text with every out-of-range integer replaced by the nearest 64-bit value.
    QByteArray clampedText() const;
    // One line per replaced integer, naming where it stands ("/rehideInterval").
    const QStringList& warnings() const { return m_warnings; }

private:
    struct Frame {
        bool isDict = false;
        QString path;
        QByteArray pendingKey;
        int nextIndex = 0;
    };
    struct Replacement {
        qsizetype begin = 0;
        qsizetype end = 0;
        QByteArray text;
    };

    void run();
    bool atEnd() const { return m_pos >= m_end; }
    char at(qsizetype pos) const { return m_data[pos]; }
    bool startsWith(const char* text) const;
    void skipBlanks();
    void findChar(char c, bool skipQuotes);
    void findText(const char* text, bool skipQuotes);
    void findAny(const char* chars, bool skipQuotes);
    bool skipSpecialTag();
    bool readTag();
    bool openElement(const QByteArray& tag, bool empty);
    bool closeElement(const QByteArray& tag);
    bool readText(const QByteArray& tag, bool skipLeadingBlanks, qsizetype* begin, qsizetype* end);
    QString nextChildPath();
    void checkInteger(qsizetype begin, qsizetype end, const QString& path);

    QByteArray m_xml;
    const char* m_data;
    qsizetype m_pos = 0;
    qsizetype m_end;
    int m_maxNesting;
    bool m_tooDeep = false;
    std::vector<Frame> m_frames;
    std::vector<Replacement> m_replacements;
    QStringList m_warnings;
};

} // namespace ravlin
