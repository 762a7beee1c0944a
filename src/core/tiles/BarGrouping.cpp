#include "BarGrouping.h"

#include "BarItemFactory.h"
#include "SiblingNames.h"
#include "core/settings/LanguageManager.h"

namespace ravlin {

BarGrouping::BarGrouping(BarItemFactory& factory, const LanguageManager& language)
    : m_factory(factory), m_language(language)
{}

std::vector<BarGroup> BarGrouping::makeGroups(const std::vector<MenuBarItemInfo>& infos)
{
    std::vector<BarItem> items;
    for (const MenuBarItemInfo& info : infos) {
        if (std::optional<BarItem> item = m_factory.makeItem(info))
            items.push_back(std::move(*item));
    }
    return group(items);
}

std::vector<BarGroup> BarGrouping::group(std::vector<BarItem> items) const
{
    nameSiblingsApart(items);
    BarGroup apps{m_language.L(QStringLiteral("bar.apps")), {}};
    BarGroup system{m_language.L(QStringLiteral("bar.apple")), {}};
    for (const BarItem& item : items)
        (item.isApple ? system : apps).items.push_back(item);
    std::vector<BarGroup> groups;
    for (BarGroup* g : {&apps, &system}) {
        if (!g->items.empty())
            groups.push_back(std::move(*g));
    }
    return groups;
}

} // namespace ravlin
