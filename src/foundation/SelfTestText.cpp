#include "SelfTestText.h"

#include "Logging.h"

#include <QStringList>

#include <cmath>

namespace ravlin::SelfTestText {

QString date(const QDateTime& moment)
{
    return moment.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) +
           QStringLiteral(" +0000");
}

QString wholeNumber(double value)
{
    if (!std::isfinite(value) || std::fabs(value) >= 9.2e18) {
        qCWarning(lcApp) << "cannot write" << value << "as a whole number";
        return QStringLiteral("nil");
    }
    return QString::number(std::int64_t(std::trunc(value)));
}

QString numberList(const std::vector<std::int64_t>& numbers)
{
    QStringList parts;
    for (std::int64_t n : numbers)
        parts.append(QString::number(n));
    return u'[' + parts.join(QStringLiteral(", ")) + u']';
}

QString quotedList(const QStringList& texts)
{
    QStringList parts;
    for (QString text : texts) {
        text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
        parts.append(u'"' + text + u'"');
    }
    return u'[' + parts.join(QStringLiteral(", ")) + u']';
}

} // namespace ravlin::SelfTestText
