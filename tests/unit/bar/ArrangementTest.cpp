// The user's arrangement of the bar: how it is kept, merged with what is seen, and the
// fewest moves that bring a reordered bar back to it.
#include "core/bar/ArrangementPlanner.h"
#include "core/bar/BarArrangement.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

using namespace ravlin;

namespace {

const QString A = QStringLiteral("n:A"), B = QStringLiteral("n:B"), C = QStringLiteral("n:C"),
              D = QStringLiteral("n:D"), E = QStringLiteral("n:E");
const QString always = BarArrangement::alwaysMarker, hidden = BarArrangement::hiddenMarker;

} // namespace

TEST(BarArrangement, KeepsItsSectionsThroughTokensAndTheSettingsFile)
{
    const BarArrangement a = BarArrangement::fromSequence({A, always, B, C, hidden, D});
    EXPECT_EQ(a.alwaysHidden, QStringList{A});
    EXPECT_EQ(a.hidden, (QStringList{B, C}));
    EXPECT_EQ(a.visible, QStringList{D});
    EXPECT_EQ(a.sectionOf(C), BarArrangement::Section::Hidden);
    EXPECT_FALSE(a.sectionOf(E));
    EXPECT_EQ(BarArrangement::fromPlist(a.toPlist()), a);
    // Without an always-hidden separator everything left of the hidden one is hidden.
    EXPECT_EQ(BarArrangement::fromSequence({A, B, hidden, C}).hidden, (QStringList{A, B}));
    // A hand-edited value that is not a dictionary of lists of texts is not an arrangement.
    EXPECT_FALSE(BarArrangement::fromPlist(PlistValue(QStringLiteral("x"))));
    EXPECT_FALSE(BarArrangement::fromPlist(PlistDict{{QStringLiteral("hidden"), PlistValue(3)}}));
    EXPECT_FALSE(BarArrangement::fromPlist(
        PlistDict{{QStringLiteral("visible"), PlistArray{PlistValue(hidden)}}}));
}

TEST(BarArrangement, WhatIsSeenWinsAndWhatIsAbsentKeepsItsNeighbours)
{
    const BarArrangement recorded = BarArrangement::fromSequence({A, B, hidden, C, D, E});
    // The user dragged D to the far left; B's and E's applications are not running.
    const BarArrangement seen = BarArrangement::fromSequence({D, A, hidden, C});
    const BarArrangement merged = BarArrangement::merged(recorded, seen);
    EXPECT_EQ(merged.hidden, (QStringList{D, A, B}));
    EXPECT_EQ(merged.visible, (QStringList{C, E}));
    EXPECT_EQ(merged.restrictedTo({C, B}).sequence(), (QStringList{always, B, hidden, C}));
}

TEST(ArrangementPlanner, LeavesTheLongestRunInPlaceAndNeverMovesASeparator)
{
    // The system put the visible items back in front of the separator.
    const QStringList current{C, D, A, B, hidden};
    const QStringList wanted{A, B, hidden, C, D};
    const auto moves = ArrangementPlanner::movesFrom(current, wanted);
    ASSERT_EQ(moves.size(), 2);
    EXPECT_EQ(moves[0], (ArrangementMove{C, hidden, true}));
    EXPECT_EQ(moves[1], (ArrangementMove{D, C, true}));
    EXPECT_EQ(ArrangementPlanner::apply(current, moves), wanted);
    EXPECT_TRUE(ArrangementPlanner::movesFrom(wanted, wanted).empty());
    // An item wanted first goes left of its successor; tokens only one side knows are ignored.
    const auto first = ArrangementPlanner::movesFrom({B, A, E, hidden}, {A, B, hidden, D});
    ASSERT_EQ(first.size(), 1);
    EXPECT_EQ(ArrangementPlanner::apply({B, A, hidden}, first), (QStringList{A, B, hidden}));
}

TEST(ArrangementPlanner, AnyOrderComesBackAndTheSeparatorsStay)
{
    std::mt19937 random(20261124);
    for (int round = 0; round < 300; ++round) {
        QStringList wanted{always, hidden};
        const int items = 1 + int(random() % 12);
        for (int i = 0; i < items; ++i)
            wanted.insert(qsizetype(random() % (wanted.size() + 1)), QStringLiteral("k%1").arg(i));
        // The separators keep their order; everything else may be anywhere.
        QStringList current = wanted;
        std::shuffle(current.begin(), current.end(), random);
        current.removeAll(always);
        current.removeAll(hidden);
        current.insert(qsizetype(random() % (current.size() + 1)), always);
        current.insert(current.indexOf(always) + 1 +
                           qsizetype(random() % (current.size() - current.indexOf(always))),
                       hidden);
        const auto moves = ArrangementPlanner::movesFrom(current, wanted);
        ASSERT_EQ(ArrangementPlanner::apply(current, moves), wanted) << round;
        for (const ArrangementMove& m : moves)
            EXPECT_FALSE(m.key == always || m.key == hidden);
    }
}

TEST(BarArrangement, TheRecordWantsItsOrderBackAndNewItemsStayWhereTheyAre)
{
    const BarArrangement recorded = BarArrangement::fromSequence({A, B, hidden, C, D});
    // The system forgot the positions: everything landed left of the separator, and E is new.
    const BarArrangement seen = BarArrangement::fromSequence({C, E, D, A, B, hidden});
    EXPECT_EQ(BarArrangement::restored(recorded, seen).sequence(),
              (QStringList{always, A, B, hidden, C, E, D}));
    // An item the record knows but that is not in the bar now is not asked for.
    EXPECT_FALSE(
        BarArrangement::restored(recorded, BarArrangement::fromSequence({A, hidden})).contains(C));
}
