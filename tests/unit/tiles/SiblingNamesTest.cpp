// Items that would read alike are told apart by names of their own.
#include "core/tiles/SiblingNames.h"

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

BarItem item(const QString& label, const QString& title, const QString& description = {},
             const QString& window = QStringLiteral("Item-0"))
{
    BarItem i;
    i.label = label;
    i.ownTitle = title;
    i.ownDescription = description;
    i.info.name = window;
    i.key = QStringLiteral("n:") + window + title;
    return i;
}

QStringList labels(const std::vector<BarItem>& items)
{
    QStringList out;
    for (const BarItem& i : items)
        out << i.label;
    return out;
}

} // namespace

TEST(SiblingNames, TwoItemsOfOneApplicationReadTheirOwnTitles)
{
    std::vector<BarItem> items{item(QStringLiteral("Tandem"), QStringLiteral("Tandem")),
                               item(QStringLiteral("Tandem"), QStringLiteral("Tandem Extra")),
                               item(QStringLiteral("Chat"), QStringLiteral("Chat"))};
    nameSiblingsApart(items);
    EXPECT_EQ(labels(items), (QStringList{QStringLiteral("Tandem"), QStringLiteral("Tandem Extra"),
                                          QStringLiteral("Chat")}));
    // Naming them again changes nothing.
    nameSiblingsApart(items);
    EXPECT_EQ(items[1].label, QStringLiteral("Tandem Extra"));
}

TEST(SiblingNames, TheDescriptionOrTheWindowTitleServesWhereTheTitlesAreAlike)
{
    std::vector<BarItem> items{
        item(QStringLiteral("Sync"), QStringLiteral("Sync"), QStringLiteral("Sync, paused")),
        item(QStringLiteral("Sync"), QStringLiteral("Sync"), QStringLiteral("Uploads")),
        item(QStringLiteral("Sync"), QStringLiteral("Sync"), QString(),
             QStringLiteral("Sync Mirror"))};
    nameSiblingsApart(items);
    // A state after a comma is not a name.
    EXPECT_EQ(labels(items), (QStringList{QStringLiteral("Sync 1"), QStringLiteral("Uploads"),
                                          QStringLiteral("Sync Mirror")}));
}

TEST(SiblingNames, ItemsWithNothingOfTheirOwnAreNumbered)
{
    std::vector<BarItem> items{item(QStringLiteral("Tool"), QString()),
                               item(QStringLiteral("Tool"), QString())};
    nameSiblingsApart(items);
    EXPECT_EQ(labels(items), (QStringList{QStringLiteral("Tool 1"), QStringLiteral("Tool 2")}));
}
