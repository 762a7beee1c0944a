#pragma once

#include <QObject>
#include <QSet>
#include <QString>

namespace ravlin {

class DefaultsStore;

// The items the user wants to see when they change, by key, kept in the settings under
// "ravlin.showWhenChanged".
class WatchList : public QObject {
    Q_OBJECT
public:
    static inline const QString defaultsKey = QStringLiteral("ravlin.showWhenChanged");
    // More than a bar holds; it bounds what a hand-edited file can make Ravlin look at.
    static constexpr int maxItems = 100;

    explicit WatchList(DefaultsStore& defaults, QObject* parent = nullptr);

    QSet<QString> keys() const;
    bool contains(const QString& key) const { return keys().contains(key); }
    void set(const QString& key, bool watched);

Q_SIGNALS:
    void changed();

private:
    DefaultsStore& m_defaults;
};

} // namespace ravlin
