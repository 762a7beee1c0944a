// Where Ravlin's separators go between the items as the user wants them, and the wishes they
// are read from.
#include "core/bar/BarWishes.h"
#include "core/bar/SeparatorPositions.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

// Items of 22 points from x = 0 on, left to right; Ravlin's icon right of them.
std::vector<BarEntry> bar(const QStringList& keys)
{
    std::vector<BarEntry> entries;
    double x = 0;
    for (const QString& key : keys) {
        BarEntry e;
        e.key = key;
        e.raw.x = x;
        e.raw.w = 22;
        entries.push_back(e);
        x += 22;
    }
    return entries;
}

ScreenRect mainItemAt(double x)
{
    return {x, 876, 24, 24};
}

BarWishes::Now wishes(const QStringList& inBar, const QStringList& off = {},
                      const QStringList& alwaysHidden = {})
{
    BarWishes::Now w;
    w.inBar = QSet<QString>(inBar.begin(), inBar.end());
    w.off = QSet<QString>(off.begin(), off.end());
    if (!alwaysHidden.isEmpty()) {
        w.alwaysHiddenSection = true;
        w.arrangement = BarArrangement{alwaysHidden, {}, {}};
    }
    return w;
}

const QString A = QStringLiteral("n:A"), B = QStringLiteral("n:B"), C = QStringLiteral("n:C"),
              D = QStringLiteral("n:D");

} // namespace

TEST(SeparatorPositions, TheHiddenSeparatorStandsLeftOfWhatTheUserWantsInSight)
{
    // Nothing wanted in sight: just left of Ravlin's icon, 24 points from the right end.
    const auto none = SeparatorPositions::forBar(bar({A, B, C}), wishes({}), mainItemAt(66));
    EXPECT_EQ(none.hidden, 24);
    EXPECT_EQ(none.leftOfHidden, (QSet<QString>{A, B, C}));
    // C in the bar: left of C, which stands right of it with the icon.
    const auto c = SeparatorPositions::forBar(bar({A, B, C}), wishes({C}), mainItemAt(66));
    EXPECT_EQ(c.hidden, 46);
    EXPECT_EQ(c.leftOfHidden, (QSet<QString>{A, B}));
    // The icon among the items it stays in sight with.
    const auto around = SeparatorPositions::forBar(bar({A, B}), wishes({B}), mainItemAt(22));
    EXPECT_EQ(around.leftOfHidden, QSet<QString>{A});
}

TEST(SeparatorPositions, WhereTheOrderForbidsBothTheFewestItemsAreOnTheWrongSide)
{
    // A wanted in the bar stands left of B and C: showing it would show two, hiding it hides one.
    const auto deep = SeparatorPositions::forBar(bar({A, B, C}), wishes({A}), mainItemAt(66));
    EXPECT_EQ(deep.leftOfHidden, (QSet<QString>{A, B, C}));
    // A tie hides: showing B would show C, placed in the panel.
    const auto tie = SeparatorPositions::forBar(bar({B, C}), wishes({B}), mainItemAt(44));
    EXPECT_EQ(tie.leftOfHidden, (QSet<QString>{B, C}));
    // Showing an item placed nowhere costs twice as much as hiding one placed in the bar.
    const auto off =
        SeparatorPositions::forBar(bar({A, B, C, D}), wishes({A, B}, {C}), mainItemAt(88));
    EXPECT_EQ(off.leftOfHidden, (QSet<QString>{A, B, C, D}));
}

TEST(SeparatorPositions, TheAlwaysHiddenSectionTakesOnlyWhatTheUserPutThere)
{
    // Nothing there yet: the separator goes past every item.
    const auto empty = SeparatorPositions::forBar(bar({A, B, C}), wishes({}), mainItemAt(66));
    EXPECT_GT(empty.alwaysHidden, 90);
    EXPECT_EQ(SeparatorPositions::farLeft(bar({A, B, C}), 90), 91);
    // A and B kept always hidden: the separator right of them, as far from the right end as
    // C and the icon take.
    const auto two =
        SeparatorPositions::forBar(bar({A, B, C}), wishes({}, {}, {A, B}), mainItemAt(66));
    EXPECT_EQ(two.alwaysHidden, 46);
    EXPECT_EQ(two.leftOfHidden, (QSet<QString>{A, B, C}));
}

TEST(BarWishes, PlacementsAndTheRecordAnswerTogether)
{
    BarWishes::Now w = wishes({A}, {B});
    w.arrangement = BarArrangement{{}, {C}, {D}};
    EXPECT_TRUE(w.wantsInSight(A));  // placed in the bar
    EXPECT_FALSE(w.wantsInSight(B)); // placed nowhere
    EXPECT_FALSE(w.wantsInSight(C)); // in the panel, arranged hidden
    EXPECT_TRUE(w.wantsInSight(D));  // in the panel by default, but arranged in sight
    // An item no look has named follows the choice for new items.
    w.newItems = ItemPlacement::Bar;
    EXPECT_TRUE(w.wantsInSight(QString()));
    // The always-hidden section counts only while it is switched on, and never for the bar.
    w.arrangement = BarArrangement{{A, C}, {}, {}};
    EXPECT_FALSE(w.inAlwaysHiddenSection(C));
    w.alwaysHiddenSection = true;
    EXPECT_TRUE(w.inAlwaysHiddenSection(C));
    EXPECT_FALSE(w.inAlwaysHiddenSection(A));
}
