#pragma once

#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QStringList>

#include <optional>

namespace ravlin {

class DefaultsStore;

// When each item was first seen in the bar, kept in the settings under "ravlin.itemsSeen",
// so that an item arriving for the first time can go where the user wants new items, and
// can be marked as new for a day.
class NewItemTracker {
public:
    static inline const QString defaultsKey = QStringLiteral("ravlin.itemsSeen");
    static constexpr qint64 markedForSeconds = 24 * 60 * 60;

    explicit NewItemTracker(DefaultsStore& defaults) : m_defaults(defaults) {}

    // Records the keys never seen before as seen now and returns them. The first look of
    // all (nothing recorded yet: a first start, or the first start of a version that did not
    // keep this) only learns what is there: those items are not new.
    QStringList notice(const QStringList& keys, const QDateTime& now);
    std::optional<QDateTime> firstSeen(const QString& key) const;
    bool isNew(const QString& key, const QDateTime& now) const;
    // The keys first seen within the last day, earliest first.
    QStringList newSince(const QDateTime& now) const;
    // The earliest of those moments, if any.
    std::optional<QDateTime> earliestNew(const QDateTime& now) const;
    // A moment as "since …" names it: the time of day when it was today, the weekday and
    // the time when it was an earlier day ("Monday 9:00 AM"), in the locale's words.
    static QString momentText(const QDateTime& moment, const QDateTime& now, const QLocale& locale);

private:
    QHash<QString, QDateTime> load() const;

    DefaultsStore& m_defaults;
};

} // namespace ravlin
