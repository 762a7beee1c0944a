#include "LayoutName.h"

#include <QTextBoundaryFinder>

namespace ravlin {
namespace {

std::optional<QString> refuse(QString* why, const QString& reason)
{
    if (why)
        *why = reason;
    return std::nullopt;
}

// Characters no name needs and that break what names go into: the settings file (XML has no
// place for control characters), log lines and menus.
bool isForbidden(char32_t c)
{
    const QChar::Category category = QChar::category(c);
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph || QChar::isNonCharacter(c) ||
           QChar::isSurrogate(c);
}

int graphemeCount(const QString& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    int count = 0;
    while (finder.toNextBoundary() >= 0)
        ++count;
    return count;
}

// Cut at a grapheme boundary, so no character is split.
QString firstGraphemes(const QString& text, int count)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype end = 0;
    for (int i = 0; i < count; ++i) {
        const qsizetype next = finder.toNextBoundary();
        if (next < 0)
            break;
        end = next;
    }
    return text.left(end);
}

} // namespace

std::optional<QString> LayoutName::validated(const QString& typed, QString* why)
{
    const QString name = typed.trimmed();
    if (name.isEmpty())
        return refuse(why, QStringLiteral("a layout needs a name"));
    if (name.size() > maxUnits || graphemeCount(name) > maxCharacters)
        return refuse(why, QStringLiteral("a layout's name may be at most %1 characters long")
                               .arg(maxCharacters));
    for (qsizetype i = 0; i < name.size(); ++i) {
        char32_t c = name[i].unicode();
        if (QChar::isHighSurrogate(c) && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
            c = QChar::surrogateToUcs4(name[i], name[i + 1]);
            ++i;
        }
        if (isForbidden(c))
            return refuse(why, QStringLiteral("a layout's name may not hold control characters, "
                                              "line breaks or broken characters (U+%1)")
                                   .arg(uint(c), 4, 16, QLatin1Char('0')));
    }
    return name;
}

QString LayoutName::withNumber(const QString& name, int n)
{
    const QString suffix = QStringLiteral(" %1").arg(n);
    QString base = name;
    while (!base.isEmpty() && (graphemeCount(base + suffix) > maxCharacters ||
                               base.size() + suffix.size() > maxUnits))
        base = firstGraphemes(base, graphemeCount(base) - 1);
    return base.trimmed() + suffix;
}

QString LayoutName::quoted(const QString& name)
{
    QString out = QStringLiteral("\"");
    for (qsizetype i = 0; i < name.size(); ++i) {
        const QChar c = name[i];
        const bool pair =
            c.isHighSurrogate() && i + 1 < name.size() && name[i + 1].isLowSurrogate();
        if (pair) {
            out += c;
            out += name[++i];
        } else if (c == u'"' || c == u'\\') {
            out += u'\\';
            out += c;
        } else if (isForbidden(c.unicode()) || c.category() == QChar::Other_Format) {
            out += QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            out += c;
        }
    }
    return out + u'"';
}

} // namespace ravlin
