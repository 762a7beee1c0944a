#include "support/SimWorld.h"

#include "core/settings/PrefKey.h"
#include "core/tiles/BarGrouping.h"
#include "core/tiles/TileModel.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

BarItem tile(const QString& key, bool isApple = false)
{
    BarItem item;
    item.key = key;
    item.label = key;
    item.isApple = isApple;
    return item;
}

QStringList keys(const std::vector<BarItem>& items)
{
    QStringList k;
    for (const BarItem& i : items)
        k.append(i.key);
    return k;
}

QStringList split(const char* text)
{
    return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

std::vector<BarItem> tiles(const char* text)
{
    std::vector<BarItem> items;
    for (const QString& k : split(text))
        items.push_back(tile(k));
    return items;
}

class TileModelTest : public ::testing::Test {
protected:
    InMemoryDefaultsStore defaults;
    std::unique_ptr<TileModel> model(const char* stored = nullptr)
    {
        if (stored)
            defaults.set(PrefKey::tileOrder, PlistValue::fromStringList(split(stored)));
        return std::make_unique<TileModel>(defaults);
    }
};

} // namespace

TEST_F(TileModelTest, AnEmptyOrderKeepsTheBarOrder)
{
    EXPECT_EQ(keys(model()->ordered(tiles("c a b"))), split("c a b"));
}

TEST_F(TileModelTest, KnownKeysComeFirstUnknownOnesFollowInBarOrder)
{
    EXPECT_EQ(keys(model("b gone a")->ordered(tiles("x a y b"))), split("b a x y"));
}

TEST_F(TileModelTest, ALaterDuplicateInTheOrderWins)
{
    EXPECT_EQ(keys(model("a b a")->ordered(tiles("a b"))), split("b a"));
}

TEST_F(TileModelTest, AStoredValueThatIsNoListOfTextsReadsEmpty)
{
    defaults.set(PrefKey::tileOrder, PlistArray{QStringLiteral("a"), 3});
    EXPECT_TRUE(model()->order().isEmpty());
}

TEST_F(TileModelTest, DroppingATileLandsItInFrontOfTheTarget)
{
    auto m = model();
    m->move(QStringLiteral("c"), QStringLiteral("a"), split("a b c"));
    EXPECT_EQ(m->order(), split("c a b"));
    EXPECT_EQ(m->rev(), 1);
    EXPECT_EQ(defaults.stringArrayForKey(PrefKey::tileOrder), split("c a b"));
}

TEST_F(TileModelTest, DroppingOnItselfOrFromOutsideChangesNothing)
{
    auto m = model("a b");
    int announced = 0;
    QObject::connect(m.get(), &TileModel::willChange, m.get(), [&] { ++announced; });
    m->move(QStringLiteral("a"), QStringLiteral("a"), split("a b"));
    m->move(QStringLiteral("z"), QStringLiteral("a"), split("a b"));
    EXPECT_EQ(m->rev(), 0);
    EXPECT_EQ(announced, 0);
    EXPECT_EQ(m->order(), split("a b"));
}

TEST_F(TileModelTest, DroppingOnAnUnshownTileMovesToTheEnd)
{
    auto m = model();
    m->move(QStringLiteral("a"), QStringLiteral("zz"), split("a b c"));
    EXPECT_EQ(m->order(), split("b c a"));
}

TEST_F(TileModelTest, KeysNotShownKeepTheirPlaceBehindTheShownOnes)
{
    auto m = model("gone1 b gone2 a");
    m->move(QStringLiteral("a"), QStringLiteral("b"), split("b a"));
    EXPECT_EQ(m->order(), split("a b gone1 gone2"));
    // A new model reads what was written.
    EXPECT_EQ(model()->order(), split("a b gone1 gone2"));
}

TEST(BarGrouping, AppsFirstThenTheSystemGroupEmptyGroupsLeftOut)
{
    SimWorld w;
    BarGrouping& grouping = w.services().grouping();
    const auto groups =
        grouping.group({tile(QStringLiteral("s1"), true), tile(QStringLiteral("a1")),
                        tile(QStringLiteral("s2"), true), tile(QStringLiteral("a2"))});
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(groups[0].title, QStringLiteral("Apps"));
    EXPECT_EQ(keys(groups[0].items), split("a1 a2"));
    EXPECT_EQ(groups[1].title, w.language().L(QStringLiteral("bar.apple")));
    EXPECT_EQ(keys(groups[1].items), split("s1 s2"));

    w.language().apply(QStringLiteral("he"));
    const auto hebrew =
        grouping.group({tile(QStringLiteral("a1")), tile(QStringLiteral("s1"), true)});
    EXPECT_EQ(hebrew[0].title, QStringLiteral("אפליקציות"));
    EXPECT_EQ(hebrew[1].title, QStringLiteral("מערכת"));
    w.language().apply(QStringLiteral("en"));

    const auto systemOnly = grouping.group({tile(QStringLiteral("s1"), true)});
    ASSERT_EQ(systemOnly.size(), 1u);
    EXPECT_EQ(systemOnly[0].id(), w.language().L(QStringLiteral("bar.apple")));
    EXPECT_TRUE(grouping.group({}).empty());
}

TEST(BarGrouping, MakeGroupsDropsWhatTheFactoryRefuses)
{
    SimWorld w;
    w.app(QStringLiteral("com.example.a"), QStringLiteral("Alpha"));
    w.app(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Control Center"));
    std::vector<MenuBarItemInfo> infos;
    for (auto id :
         {w.item(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Clock")),
          w.item(QStringLiteral("com.example.a"), QStringLiteral("Item-0")),
          w.item(QStringLiteral("com.apple.controlcenter"), QStringLiteral("Bluetooth"))}) {
        const SimPlacedItem p = w.placed(id);
        infos.push_back(
            {id, p.frame.x, 0, p.frame.width, p.frame.height, p.item.owner, p.item.title});
    }
    const auto groups = w.services().grouping().makeGroups(infos);
    ASSERT_EQ(groups.size(), 2u);
    EXPECT_EQ(keys(groups[0].items), QStringList({QStringLiteral("b:com.example.a#Item-0")}));
    EXPECT_EQ(keys(groups[1].items), QStringList({QStringLiteral("n:Bluetooth")}));
}
