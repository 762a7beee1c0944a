#include "BarWishes.h"

#include "ArrangementStore.h"
#include "core/settings/Preferences.h"

namespace ravlin {

ItemPlacement BarWishes::Now::placement(const QString& key) const
{
    if (key.isEmpty())
        return newItems;
    if (off.contains(key))
        return ItemPlacement::Off;
    return inBar.contains(key) ? ItemPlacement::Bar : ItemPlacement::Panel;
}

bool BarWishes::Now::wantsInSight(const QString& key) const
{
    switch (placement(key)) {
    case ItemPlacement::Bar:
        return true;
    case ItemPlacement::Off:
        return false;
    case ItemPlacement::Panel:
        break;
    }
    return arrangement && !key.isEmpty() &&
           arrangement->sectionOf(key) == BarArrangement::Section::Visible;
}

bool BarWishes::Now::inAlwaysHiddenSection(const QString& key) const
{
    return alwaysHiddenSection && arrangement && !key.isEmpty() &&
           arrangement->sectionOf(key) == BarArrangement::Section::AlwaysHidden &&
           placement(key) != ItemPlacement::Bar;
}

BarWishes::Now BarWishes::now() const
{
    Now now;
    now.inBar = m_preferences.barPinnedKeys();
    now.off = m_preferences.hiddenItemKeys();
    now.newItems = m_preferences.newItemPlacement();
    now.alwaysHiddenSection = m_preferences.enableAlwaysHidden();
    now.arrangement = m_arrangements.recorded();
    return now;
}

} // namespace ravlin
