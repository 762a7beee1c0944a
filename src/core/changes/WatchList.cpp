#include "WatchList.h"

#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"

#include <algorithm>

namespace ravlin {

WatchList::WatchList(DefaultsStore& defaults, QObject* parent)
    : QObject(parent), m_defaults(defaults)
{}

QSet<QString> WatchList::keys() const
{
    QStringList stored = m_defaults.stringArrayForKey(defaultsKey).value_or(QStringList());
    if (stored.size() > maxItems) {
        qCWarning(lcBar) << "the settings ask to watch" << stored.size() << "items; only the first"
                         << maxItems << "are watched";
        stored = stored.mid(0, maxItems);
    }
    QSet<QString> keys;
    for (const QString& key : stored)
        if (!key.isEmpty())
            keys.insert(key);
    return keys;
}

void WatchList::set(const QString& key, bool watched)
{
    QSet<QString> now = keys();
    if (key.isEmpty() || now.contains(key) == watched)
        return;
    if (watched)
        now.insert(key);
    else
        now.remove(key);
    QStringList sorted(now.begin(), now.end());
    std::sort(sorted.begin(), sorted.end());
    if (sorted.isEmpty())
        m_defaults.remove(defaultsKey);
    else
        m_defaults.set(defaultsKey, PlistValue::fromStringList(sorted));
    m_defaults.noteUserChange();
    Q_EMIT changed();
}

} // namespace ravlin
