#pragma once

#include "BarItem.h"

#include <QObject>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace ravlin {

class DefaultsStore;

// The user's order of the tiles, by item key, most significant first. It may hold
// keys of items that are gone for now: they keep their place for when they return.
// Read once at creation, written after every move.
class TileModel : public QObject {
    Q_OBJECT
public:
    explicit TileModel(DefaultsStore& defaults);

    std::int64_t rev() const { return m_rev; }
    const QStringList& order() const { return m_order; }

    // Known keys first in the saved order, then the others in their given order.
    std::vector<BarItem> ordered(const std::vector<BarItem>& items) const;
    // The tile `dragged` was dropped onto `before`; `within` are the shown tiles' keys in shown
    // order.
    void move(const QString& dragged, const QString& before, const QStringList& within);

Q_SIGNALS:
    void willChange();
    // After a move took effect, for views that redraw from the new order.
    void changed();

private:
    DefaultsStore& m_defaults;
    QStringList m_order;
    std::int64_t m_rev = 0;
};

} // namespace ravlin
