#pragma once

#include <QStringList>

#include <vector>

namespace ravlin {

// One move of an item: next to an anchor (another item's key or a separator's marker).
struct ArrangementMove {
    QString key;
    QString anchor;
    bool rightOfAnchor = true;

    bool operator==(const ArrangementMove&) const = default;
};

// The moves that bring the bar from the order it has to the order wanted, as few as
// possible: the longest run of tokens already in the wanted order stays (the separators
// always among them, as they are not moved), and every other item, taken in the wanted
// order, goes right of its wanted predecessor (or, before the first that stays, left of it).
namespace ArrangementPlanner {

// Tokens found in only one of the two lists are left out.
std::vector<ArrangementMove> movesFrom(const QStringList& current, const QStringList& wanted);

// The order after the moves (for tests, and to check a plan).
QStringList apply(QStringList tokens, const std::vector<ArrangementMove>& moves);

} // namespace ArrangementPlanner
} // namespace ravlin
