#include "Stat.h"

#include "SystemStats.h"
#include "foundation/SystemColor.h"
#include "core/settings/LanguageManager.h"

namespace ravlin {

QList<Stat> makeStats(const SystemStats& stats, const LanguageManager& language)
{
    QList<Stat> list{
        {QStringLiteral("sys.cpu"), language.L(QStringLiteral("sysitem.cpu")), stats.cpu(),
         SystemColor::orange()},
        {QStringLiteral("sys.ram"), language.L(QStringLiteral("sysitem.ram")), stats.ram(),
         QColor::fromRgbF(0.25f, 0.78f, 0.87f)},
        {QStringLiteral("sys.disk"), language.L(QStringLiteral("sysitem.disk")), stats.disk(),
         SystemColor::purple()},
    };
    if (const auto battery = stats.battery())
        list.append({QStringLiteral("sys.batt"), language.L(QStringLiteral("sysitem.battery")),
                     *battery, SystemColor::green()});
    list.append({QStringLiteral("sys.net"), language.L(QStringLiteral("sysitem.network")), 0.0,
                 SystemColor::blue()});
    return list;
}

} // namespace ravlin
