#include "ArrangementPlanner.h"

#include "BarArrangement.h"

#include <QHash>
#include <QSet>

namespace ravlin::ArrangementPlanner {

namespace {

bool isSeparator(const QString& token)
{
    return token == BarArrangement::alwaysMarker || token == BarArrangement::hiddenMarker;
}

// The tokens of `current` that may stay where they are: a heaviest increasing run of
// their places in `wanted`, the separators weighing more than all items together.
QSet<QString> staying(const QStringList& current, const QHash<QString, int>& wantedPlace)
{
    const int n = int(current.size());
    std::vector<long> best(std::size_t(n), 0);
    std::vector<int> from(std::size_t(n), -1);
    auto weight = [&](int i) { return isSeparator(current[i]) ? long(n + 1) : 1L; };
    int end = -1;
    for (int i = 0; i < n; ++i) {
        best[i] = weight(i);
        for (int j = 0; j < i; ++j) {
            if (wantedPlace[current[j]] < wantedPlace[current[i]] &&
                best[j] + weight(i) > best[i]) {
                best[i] = best[j] + weight(i);
                from[i] = j;
            }
        }
        if (end < 0 || best[i] > best[end])
            end = i;
    }
    QSet<QString> stay;
    for (int i = end; i >= 0; i = from[i])
        stay.insert(current[i]);
    return stay;
}

} // namespace

std::vector<ArrangementMove> movesFrom(const QStringList& current, const QStringList& wanted)
{
    const QSet<QString> inCurrent(current.begin(), current.end());
    QStringList want;
    for (const QString& token : wanted)
        if (inCurrent.contains(token) && !want.contains(token))
            want.append(token);
    QHash<QString, int> place;
    for (int i = 0; i < want.size(); ++i)
        place.insert(want[i], i);
    QStringList have;
    for (const QString& token : current)
        if (place.contains(token) && !have.contains(token))
            have.append(token);

    const QSet<QString> stay = staying(have, place);
    // Items wanted before the first one that stays go, in order, just left of it; every
    // later one right of its wanted predecessor, which is in place by then.
    qsizetype first = 0;
    while (first < want.size() && !stay.contains(want[first]))
        ++first;
    std::vector<ArrangementMove> moves;
    for (qsizetype i = 0; i < want.size(); ++i) {
        if (stay.contains(want[i]))
            continue;
        if (i < first)
            moves.push_back({want[i], want[first], false});
        else
            moves.push_back({want[i], want[i - 1], true});
    }
    return moves;
}

QStringList apply(QStringList tokens, const std::vector<ArrangementMove>& moves)
{
    for (const ArrangementMove& move : moves) {
        tokens.removeAll(move.key);
        const qsizetype at = tokens.indexOf(move.anchor);
        if (at < 0)
            continue;
        tokens.insert(move.rightOfAnchor ? at + 1 : at, move.key);
    }
    return tokens;
}

} // namespace ravlin::ArrangementPlanner
