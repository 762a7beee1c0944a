#include "NewItemTracker.h"

#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

#include <algorithm>

namespace ravlin {
namespace {

// Items known before this record was kept count as seen at the start of time.
const QDateTime longKnown = QDateTime::fromSecsSinceEpoch(0, Qt::UTC);

bool withinMark(const QDateTime& seen, const QDateTime& now)
{
    return seen.isValid() && seen != longKnown &&
           seen.secsTo(now) < NewItemTracker::markedForSeconds && seen <= now.addSecs(60);
}

} // namespace

QHash<QString, QDateTime> NewItemTracker::load() const
{
    QHash<QString, QDateTime> seen;
    const PlistValue stored = m_defaults.persistentValue(defaultsKey);
    const PlistDict* dict = stored.asDict();
    if (!dict) {
        if (!stored.isNull())
            qCWarning(lcBar).noquote() << defaultsKey
                                       << "is not a dictionary of dates; starting it afresh";
        return seen;
    }
    for (auto it = dict->begin(); it != dict->end(); ++it) {
        if (std::optional<QDateTime> date = it.value().asDate())
            seen.insert(it.key(), *date);
        else
            seen.insert(it.key(), longKnown); // a damaged entry: known, but not new
    }
    return seen;
}

QStringList NewItemTracker::notice(const QStringList& keys, const QDateTime& now)
{
    const bool firstLook = m_defaults.persistentValue(defaultsKey).asDict() == nullptr;
    QHash<QString, QDateTime> seen = load();
    QStringList fresh;
    for (const QString& key : keys) {
        if (key.isEmpty() || seen.contains(key))
            continue;
        seen.insert(key, firstLook ? longKnown : now);
        if (!firstLook)
            fresh.append(key);
    }
    if (!firstLook && fresh.isEmpty())
        return fresh;
    PlistDict dict;
    for (auto it = seen.begin(); it != seen.end(); ++it)
        dict.insert(it.key(), it.value());
    m_defaults.set(defaultsKey, dict);
    return fresh;
}

std::optional<QDateTime> NewItemTracker::firstSeen(const QString& key) const
{
    const QHash<QString, QDateTime> seen = load();
    if (!seen.contains(key))
        return std::nullopt;
    return seen.value(key);
}

bool NewItemTracker::isNew(const QString& key, const QDateTime& now) const
{
    const std::optional<QDateTime> seen = firstSeen(key);
    return seen && withinMark(*seen, now);
}

QStringList NewItemTracker::newSince(const QDateTime& now) const
{
    const QHash<QString, QDateTime> seen = load();
    QList<QPair<QDateTime, QString>> recent;
    for (auto it = seen.begin(); it != seen.end(); ++it)
        if (withinMark(it.value(), now))
            recent.append({it.value(), it.key()});
    std::sort(recent.begin(), recent.end());
    QStringList keys;
    for (const auto& [when, key] : recent)
        keys.append(key);
    return keys;
}

std::optional<QDateTime> NewItemTracker::earliestNew(const QDateTime& now) const
{
    const QStringList keys = newSince(now);
    if (keys.isEmpty())
        return std::nullopt;
    return firstSeen(keys.front());
}

QString NewItemTracker::momentText(const QDateTime& moment, const QDateTime& now,
                                   const QLocale& locale)
{
    const QDateTime local = moment.toLocalTime();
    const QString time = locale.toString(local.time(), QLocale::ShortFormat);
    if (local.date() == now.toLocalTime().date())
        return time;
    return locale.dayName(local.date().dayOfWeek(), QLocale::LongFormat) + u' ' + time;
}

} // namespace ravlin
