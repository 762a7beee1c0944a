// The two arrangements of the panel's tiles: the flowing lines of the grid style
// and the two-per-row packing of the capsule and dashboard styles.
#include "core/tiles/TileContent.h"
#include "core/tiles/TileFlow.h"

#include <gtest/gtest.h>

using namespace ravlin;
using namespace Qt::StringLiterals;

namespace {

std::vector<QSizeF> sizes(std::initializer_list<std::pair<double, double>> list)
{
    std::vector<QSizeF> result;
    for (auto [w, h] : list)
        result.emplace_back(w, h);
    return result;
}

TileContent half(const QString& key)
{
    BarItem item;
    item.key = key;
    return item;
}

TileContent full()
{
    return NetworkRates{Stat{QStringLiteral("sys.net"), QStringLiteral("Network"), 0, Qt::blue},
                        0.5, 1};
}

QString shape(const std::vector<std::vector<TileContent>>& rows)
{
    QStringList parts;
    for (const auto& row : rows) {
        QStringList keys;
        for (const TileContent& c : row)
            keys.append(isFullWidth(c) ? QStringLiteral("net") : std::get<BarItem>(c).key);
        parts.append(u'[' + keys.join(u',') + u']');
    }
    return parts.join(QString());
}

} // namespace

TEST(TileFlow, WithoutAProposalAssumes320PointsAndAnEmptyListIsFlat)
{
    const TileFlow flow;
    EXPECT_EQ(flow.sizeThatFits(std::nullopt, sizes({{50, 20}})), QSizeF(320, 20));
    EXPECT_EQ(flow.sizeThatFits(200, {}), QSizeF(200, 0));
    EXPECT_TRUE(flow.placeSubviews(QRectF(0, 0, 200, 100), {}).empty());
}

TEST(TileFlow, BreaksALineOnlyWhenTheNextTileWouldPassTheEdge)
{
    const TileFlow flow{7, 7};
    // 60 + 7 + 60 + 7 + 60 = 194 fits exactly in 194; the fourth tile starts a new line.
    const auto ideal = sizes({{60, 30}, {60, 40}, {60, 30}, {60, 30}});
    const auto placed = flow.placeSubviews(QRectF(0, 0, 194, 0), ideal);
    ASSERT_EQ(placed.size(), 4u);
    EXPECT_EQ(placed[2], QPointF(134, 0));
    EXPECT_EQ(placed[3], QPointF(0, 47)); // below the tallest tile of the line
    EXPECT_EQ(flow.sizeThatFits(194, ideal).height(), 77);
    EXPECT_EQ(flow.sizeThatFits(193, ideal).height(),
              77); // the third tile breaks, the fourth joins it
    EXPECT_EQ(flow.placeSubviews(QRectF(0, 0, 193, 0), ideal)[3], QPointF(67, 47));
}

TEST(TileFlow, AnOverwideTileStaysOnItsLineAndPlacesRelativeToTheBounds)
{
    const TileFlow flow;
    const auto ideal = sizes({{500, 20}, {10, 10}, {600, 30}});
    const auto placed = flow.placeSubviews(QRectF(12, 30, 100, 0), ideal);
    ASSERT_EQ(placed.size(), 3u);
    EXPECT_EQ(placed[0], QPointF(12, 30)); // no empty line before it
    EXPECT_EQ(placed[1], QPointF(12, 30 + 20 + 12));
    EXPECT_EQ(placed[2], QPointF(12, 30 + 20 + 12 + 10 + 12));
    EXPECT_EQ(flow.sizeThatFits(100, ideal).height(), 20 + 12 + 10 + 12 + 30);
}

TEST(PackRows, PairsHalfTilesAndGivesTheFullTileARowOfItsOwn)
{
    EXPECT_EQ(shape(packRows({half(u"a"_s), full(), half(u"b"_s), half(u"c"_s)})),
              u"[a][net][b,c]"_s);
    EXPECT_EQ(shape(packRows({half(u"a"_s), half(u"b"_s), half(u"c"_s)})), u"[a,b][c]"_s);
    EXPECT_EQ(shape(packRows({full(), full()})), u"[net][net]"_s);
    EXPECT_TRUE(packRows(std::vector<TileContent>{}).empty());
}

TEST(PackRows, OnlyTheNetworkTileIsFullWidth)
{
    EXPECT_TRUE(isFullWidth(full()));
    EXPECT_FALSE(isFullWidth(half(u"a"_s)));
    EXPECT_FALSE(isFullWidth(TileContent(Stat{QStringLiteral("sys.cpu"), {}, 10, Qt::red})));
    EXPECT_EQ(full().index(), 2u);
}
