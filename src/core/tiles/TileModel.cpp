#include "TileModel.h"

#include "foundation/DefaultsStore.h"
#include "core/settings/PrefKey.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace ravlin {

namespace {
// Items the user never placed rank behind every placed one, in bar order.
constexpr std::int64_t unplacedRank = 1'000'000;
} // namespace

TileModel::TileModel(DefaultsStore& defaults)
    : m_defaults(defaults),
      m_order(defaults.stringArrayForKey(PrefKey::tileOrder).value_or(QStringList()))
{}

std::vector<BarItem> TileModel::ordered(const std::vector<BarItem>& items) const
{
    QHash<QString, std::int64_t> position;
    for (qsizetype i = 0; i < m_order.size(); ++i)
        position.insert(m_order[i], i); // a later duplicate wins
    std::vector<std::pair<std::int64_t, const BarItem*>> ranked;
    ranked.reserve(items.size());
    for (std::size_t offset = 0; offset < items.size(); ++offset) {
        const BarItem& item = items[offset];
        ranked.emplace_back(position.value(item.key, unplacedRank + std::int64_t(offset)), &item);
    }
    std::stable_sort(ranked.begin(), ranked.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<BarItem> result;
    result.reserve(items.size());
    for (const auto& [rank, item] : ranked)
        result.push_back(*item);
    return result;
}

void TileModel::move(const QString& dragged, const QString& before, const QStringList& within)
{
    if (dragged == before || !within.contains(dragged))
        return;
    QStringList shown = within;
    shown.removeAll(dragged);
    const qsizetype target = shown.indexOf(before);
    if (target >= 0)
        shown.insert(target, dragged);
    else
        shown.append(dragged);
    const QSet<QString> inShown(shown.cbegin(), shown.cend());
    QStringList order = shown;
    for (const QString& key : m_order) {
        if (!inShown.contains(key))
            order.append(key);
    }
    Q_EMIT willChange();
    m_order = order;
    m_defaults.set(PrefKey::tileOrder, PlistValue::fromStringList(m_order));
    ++m_rev;
    Q_EMIT changed();
}

} // namespace ravlin
