// Items that arrive in the bar for the first time: they go where the user wants new items,
// are marked in the panel for a day, and the status menu lists them.
#include "StatusBarController.h"

#include "ArrangementPlanner.h"
#include "core/discovery/MenuBarSystem.h"
#include "core/discovery/ScannerModel.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/Preferences.h"
#include "foundation/Logging.h"
#include "platform/StatusBar.h"

#include <QLocale>
#include <QSet>

namespace ravlin {

void StatusBarController::noticeNewItems(const std::vector<BarItem>& items)
{
    QStringList keys;
    for (const BarItem& item : items)
        keys.append(item.key);
    const QStringList fresh = m_newItems.notice(keys, m_s.scheduler.currentDate());
    if (fresh.isEmpty())
        return;
    const std::optional<SavedLayout> layout = m_layouts.layout(m_layouts.active());
    for (const QString& key : fresh) {
        // A key the layout in use already places (one brought from another Mac) has its place.
        if (layout && layout->arrangement.contains(key))
            continue;
        placeNewItem(key);
    }
}

void StatusBarController::placeNewItem(const QString& key)
{
    const ItemPlacement wanted = m_s.preferences.newItemPlacement();
    qCInfo(lcBar).noquote() << "a new item," << key << "- goes to the"
                            << itemPlacementName(wanted);
    if (m_s.preferences.placement(key) != ItemPlacement::Panel)
        return; // placed by the user before it was ever seen (an imported layout)
    if (wanted != ItemPlacement::Panel) {
        m_s.preferences.setPlacement(key, wanted);
        recordPlacement(key, wanted);
    }
    if (wanted == ItemPlacement::Off || !keepsArrangement() ||
        !m_s.system.techniques().canMoveItems()) {
        // Placed off is hidden by the next look; where nothing can be moved, the separators
        // may still move to it.
        m_hiding->placementsChanged();
        noteWhereItStands(key);
        return;
    }
    const BarArrangement seen = seenArrangement();
    const std::optional<BarArrangement::Section> section = seen.sectionOf(key);
    if (!section)
        return;
    const bool visible = section == BarArrangement::Section::Visible;
    if (visible == (wanted == ItemPlacement::Bar))
        return;
    // Into the bar: next to the hidden separator's right; into the panel: next to its left.
    ArrangementMove move;
    move.key = key;
    move.anchor = BarArrangement::hiddenMarker;
    move.rightOfAnchor = wanted == ItemPlacement::Bar;
    shrinkOwnItems();
    performMove(move);
    restoreOwnItems();
    recordArrangement();
}

std::vector<BarGroup> StatusBarController::markedNew(std::vector<BarGroup> groups) const
{
    // One read of the record for the whole panel.
    const QStringList fresh = m_newItems.newSince(m_s.scheduler.currentDate());
    const QSet<QString> isNew(fresh.begin(), fresh.end());
    for (BarGroup& group : groups)
        for (BarItem& item : group.items)
            item.isNew = isNew.contains(item.key);
    return groups;
}

QString StatusBarController::itemName(const QString& key) const
{
    for (const BarItem& item : m_s.scannerModel.detected())
        if (item.key == key)
            return item.label.isEmpty() ? item.info.owner : item.label;
    return key;
}

std::optional<MenuEntry> StatusBarController::newItemsEntry()
{
    const QDateTime now = m_s.scheduler.currentDate();
    const QStringList keys = m_newItems.newSince(now);
    const std::optional<QDateTime> since = m_newItems.earliestNew(now);
    if (keys.isEmpty() || !since)
        return std::nullopt;
    const LanguageManager& lm = m_s.language;
    MenuEntry entry;
    entry.title =
        lm.L(QStringLiteral("menu.newSince"), NewItemTracker::momentText(*since, now, lm.locale()));
    for (const QString& key : keys) {
        MenuEntry item;
        item.title = itemName(key);
        item.action = weakly([this, key] { openItemByKey(key); });
        entry.submenu.push_back(std::move(item));
    }
    return entry;
}

void StatusBarController::openItemByKey(const QString& key)
{
    for (const BarItem& item : m_s.scannerModel.detected()) {
        if (item.key == key) {
            openItem(item);
            return;
        }
    }
    qCInfo(lcBar).noquote() << key << "is not in the bar now; nothing to open";
}

} // namespace ravlin
