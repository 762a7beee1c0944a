#include "PrintfFormat.h"

namespace ravlin {
namespace {

struct Conversion {
    qsizetype start = 0;
    qsizetype end = 0; // one past the conversion character
    int position = -1; // explicit n$ argument, 0-based
    QString flags;
    QString width;
    QString precision; // with its dot
    QChar conversion;
};

bool isLengthChar(QChar c)
{
    return c == u'h' || c == u'l' || c == u'q' || c == u'L' || c == u'z' || c == u't' || c == u'j';
}

bool isConversion(QChar c)
{
    static const QString conversions = QStringLiteral("@diouxXfFeEgGaAsScCp");
    return conversions.contains(c);
}

// Reads one conversion starting at a '%'; false when the text there is not one.
bool readConversion(const QString& f, qsizetype at, Conversion& conversion)
{
    conversion = Conversion{};
    conversion.start = at;
    qsizetype i = at + 1;
    qsizetype digits = i;
    while (digits < f.size() && f[digits].isDigit())
        ++digits;
    if (digits > i && digits < f.size() && f[digits] == u'$') {
        conversion.position = f.mid(i, digits - i).toInt() - 1;
        i = digits + 1;
    }
    while (i < f.size() && QStringView(u"-+ #0'").contains(f[i]))
        conversion.flags += f[i++];
    while (i < f.size() && f[i].isDigit())
        conversion.width += f[i++];
    if (i < f.size() && f[i] == u'.') {
        conversion.precision += f[i++];
        while (i < f.size() && f[i].isDigit())
            conversion.precision += f[i++];
    }
    while (i < f.size() && isLengthChar(f[i]))
        ++i;
    if (i >= f.size() || !isConversion(f[i]))
        return false;
    conversion.conversion = f[i];
    conversion.end = i + 1;
    // A translation is text from outside the program: widths and precisions beyond
    // anything an interface needs are held to a sane size.
    auto clamp = [](QString& digits, int most) {
        bool ok = false;
        const int value = digits.toInt(&ok);
        if (!digits.isEmpty() && (!ok || value > most))
            digits = QString::number(most);
    };
    clamp(conversion.width, 64);
    QString precisionDigits = conversion.precision.mid(1);
    clamp(precisionDigits, 16);
    if (!conversion.precision.isEmpty())
        conversion.precision = u'.' + precisionDigits;
    return true;
}

QString pad(QString text, const Conversion& conversion)
{
    const int width = conversion.width.toInt();
    if (text.size() >= width)
        return text;
    return conversion.flags.contains(u'-') ? text.leftJustified(width) : text.rightJustified(width);
}

QString formatOne(const Conversion& conversion, const QVariant& arg)
{
    const QChar c = conversion.conversion;
    const QByteArray cFormat =
        (u'%' + conversion.flags + conversion.width + conversion.precision).toLatin1();
    if (c == u'@' || c == u's' || c == u'S')
        return pad(arg.isValid() ? arg.toString() : QString(), conversion);
    if (c == u'c' || c == u'C')
        return pad(QString(QChar(char16_t(arg.toUInt()))), conversion);
    if (c == u'd' || c == u'i')
        return QString::asprintf((cFormat + "lld").constData(), arg.toLongLong());
    if (c == u'u' || c == u'o' || c == u'x' || c == u'X' || c == u'p')
        return QString::asprintf(
            (cFormat + "ll" + (c == u'p' ? 'x' : char(c.unicode()))).constData(),
            arg.toULongLong());
    return QString::asprintf((cFormat + char(c.unicode())).constData(), arg.toDouble());
}

} // namespace

QString formatPrintf(const QString& format, const QVariantList& args)
{
    QString out;
    out.reserve(format.size() + 16);
    int next = 0;
    for (qsizetype i = 0; i < format.size();) {
        if (format[i] != u'%') {
            out += format[i++];
            continue;
        }
        if (i + 1 < format.size() && format[i + 1] == u'%') {
            out += u'%';
            i += 2;
            continue;
        }
        Conversion conversion;
        if (!readConversion(format, i, conversion)) {
            out += format[i++];
            continue;
        }
        const int index = conversion.position >= 0 ? conversion.position : next++;
        out += formatOne(conversion, index < args.size() ? args[index] : QVariant());
        i = conversion.end;
    }
    return out;
}

QStringList printfPlaceholders(const QString& format)
{
    QStringList found;
    for (qsizetype i = 0; i < format.size(); ++i) {
        if (format[i] != u'%')
            continue;
        if (i + 1 < format.size() && format[i + 1] == u'%') {
            ++i;
            continue;
        }
        Conversion conversion;
        if (readConversion(format, i, conversion)) {
            found.append(format.mid(conversion.start, conversion.end - conversion.start));
            i = conversion.end - 1;
        }
    }
    return found;
}

} // namespace ravlin
