#include "core/discovery/MenuBarItemInfo.h"
#include "core/tiles/BarItem.h"

#include <QSet>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {
MenuBarItemInfo named(const QString& name, const QString& owner = QStringLiteral("Owner"))
{
    return {7, 100, 0, 22, 24, owner, name};
}
} // namespace

TEST(MenuBarItemInfo, CentreIsHalfwayAcross)
{
    const MenuBarItemInfo info{1, 100, 2, 22, 20, {}, {}};
    EXPECT_DOUBLE_EQ(info.centerX(), 111);
    EXPECT_DOUBLE_EQ(info.centerY(), 12);
}

TEST(MenuBarItemInfo, DisplayNameOfStatisticsItemsDropsEveryPrefix)
{
    EXPECT_EQ(named(QStringLiteral("com.bjango.istatmenus.cpu")).displayName(),
              QStringLiteral("iStat · cpu"));
    EXPECT_EQ(named(QStringLiteral("com.bjango.istatmenus.com.bjango.istatmenus.x")).displayName(),
              QStringLiteral("iStat · x"));
}

TEST(MenuBarItemInfo, DisplayNameFallsBackToTheOwnerForGenericTitles)
{
    EXPECT_EQ(named(QStringLiteral("Item-0"), QStringLiteral("Foo")).displayName(),
              QStringLiteral("Foo"));
    EXPECT_EQ(named(QString(), QStringLiteral("Foo")).displayName(), QStringLiteral("Foo"));
    EXPECT_EQ(named(QStringLiteral("Sync")).displayName(), QStringLiteral("Sync"));
}

TEST(MenuBarItemInfo, SystemIsJudgedByTitleNotOwner)
{
    EXPECT_TRUE(named(QStringLiteral("WiFi")).isSystem());
    EXPECT_TRUE(named(QStringLiteral("com.apple.menuextra.battery")).isSystem());
    EXPECT_FALSE(named(QStringLiteral("Item-0"), QStringLiteral("Control Center")).isSystem());
    EXPECT_FALSE(named(QStringLiteral("wifi")).isSystem());
}

TEST(MenuBarItemInfo, EqualityAndHashCoverEveryField)
{
    const MenuBarItemInfo a = named(QStringLiteral("A"));
    MenuBarItemInfo moved = a;
    moved.x += 1;
    EXPECT_NE(a, moved);
    EXPECT_EQ(QSet<MenuBarItemInfo>({a, a, moved}).size(), 2);
}

TEST(BarItem, IdentityIsTheKeyWhileEqualityComparesEverything)
{
    BarItem a;
    a.key = QStringLiteral("n:Sync");
    a.label = QStringLiteral("Sync");
    BarItem b = a;
    b.label = QStringLiteral("Other");
    EXPECT_EQ(a.id(), b.id());
    EXPECT_NE(a, b);
}
