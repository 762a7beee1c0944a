#include "SiblingNames.h"

#include "BarItemFactory.h"
#include "core/discovery/ItemTitles.h"

#include <QHash>
#include <QSet>

namespace ravlin {
namespace {

// The names an item has of its own, most telling first.
QStringList ownNames(const BarItem& item)
{
    QStringList names;
    for (const QString& name : {BarItemFactory::clean(item.ownTitle),
                                BarItemFactory::clean(item.ownDescription), item.info.name}) {
        if (!name.isEmpty() && name != ItemTitles::generic && !names.contains(name))
            names << name;
    }
    return names;
}

void nameApart(std::vector<BarItem*>& alike)
{
    const QString shared = alike.front()->label;
    std::vector<QStringList> candidates;
    QHash<QString, int> holders; // how many of the items have each name
    for (const BarItem* item : alike) {
        candidates.push_back(ownNames(*item));
        for (const QString& name : candidates.back())
            ++holders[name];
    }
    QSet<QString> taken;
    for (std::size_t i = 0; i < alike.size(); ++i) {
        QString chosen;
        for (const QString& name : candidates[i]) {
            if (holders.value(name) == 1 && !taken.contains(name)) {
                chosen = name;
                break;
            }
        }
        if (chosen.isEmpty())
            chosen = shared + u' ' + QString::number(i + 1);
        taken.insert(chosen);
        alike[i]->label = chosen;
    }
}

} // namespace

void nameSiblingsApart(std::vector<BarItem>& items)
{
    QHash<QString, std::vector<BarItem*>> byLabel;
    QStringList order;
    for (BarItem& item : items) {
        if (!byLabel.contains(item.label))
            order << item.label;
        byLabel[item.label].push_back(&item);
    }
    for (const QString& label : order) {
        std::vector<BarItem*>& alike = byLabel[label];
        if (alike.size() > 1)
            nameApart(alike);
    }
}

} // namespace ravlin
