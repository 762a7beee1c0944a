#include "Stat.h"

#include "SystemStats.h"
#include "core/settings/LanguageManager.h"

namespace ravlin {
namespace {

// The platform's system colours (light appearance).
const QColor systemOrange(255, 149, 0);
const QColor systemPurple(175, 82, 222);
const QColor systemGreen(52, 199, 89);
const QColor systemBlue(0, 122, 255);

} // namespace

QList<Stat> makeStats(const SystemStats& stats, const LanguageManager& language)
{
    QList<Stat> list{
        {QStringLiteral("sys.cpu"), language.L(QStringLiteral("sysitem.cpu")), stats.cpu(),
         systemOrange},
        {QStringLiteral("sys.ram"), language.L(QStringLiteral("sysitem.ram")), stats.ram(),
         QColor::fromRgbF(0.25f, 0.78f, 0.87f)},
        {QStringLiteral("sys.disk"), language.L(QStringLiteral("sysitem.disk")), stats.disk(),
         systemPurple},
    };
    if (const auto battery = stats.battery())
        list.append({QStringLiteral("sys.batt"), language.L(QStringLiteral("sysitem.battery")),
                     *battery, systemGreen});
    list.append({QStringLiteral("sys.net"), language.L(QStringLiteral("sysitem.network")), 0.0,
                 systemBlue});
    return list;
}

} // namespace ravlin
