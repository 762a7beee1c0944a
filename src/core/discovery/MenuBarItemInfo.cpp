#include "MenuBarItemInfo.h"

#include "ItemTitles.h"

#include <QHashFunctions>
#include <QSet>

namespace ravlin {

QString MenuBarItemInfo::displayName() const
{
    if (name.startsWith(ItemTitles::istatPrefix))
        return ItemTitles::istatLabelPrefix + QString(name).remove(ItemTitles::istatPrefix);
    if (name.isEmpty() || name == ItemTitles::generic)
        return owner;
    return name;
}

bool MenuBarItemInfo::isSystem() const
{
    static const QSet<QString> systemTitles{
        QStringLiteral("Battery"), QStringLiteral("Bluetooth"), QStringLiteral("WiFi"),
        ItemTitles::clock,         ItemTitles::controlCentre,   QStringLiteral("Control Center"),
    };
    return systemTitles.contains(name) || name.startsWith(ItemTitles::applePrefix);
}

size_t qHash(const MenuBarItemInfo& info, size_t seed)
{
    return qHashMulti(seed, info.id, info.x, info.y, info.width, info.height, info.owner,
                      info.name);
}

} // namespace ravlin
