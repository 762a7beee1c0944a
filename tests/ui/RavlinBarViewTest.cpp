// The tile panel's view offscreen: where tiles stand in each style, mirroring,
// what a click hits and what a drag reorders.
#include "support/PanelWorld.h"

#include "core/settings/Preferences.h"
#include "core/sysinfo/SystemStats.h"
#include "core/tiles/PanelPlacement.h"
#include "core/tiles/TileModel.h"
#include "platform/sim/SimSystemProbe.h"
#include "ui/RavlinBarView.h"
#include "ui/Theme.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

class ViewTest : public ::testing::Test {
protected:
    ViewTest() { world.stats().refresh(); }

    std::unique_ptr<RavlinBarView> view(TileStyle style,
                                        std::vector<BarGroup> groups = PanelWorld::groups(5),
                                        Qt::LayoutDirection direction = Qt::LeftToRight)
    {
        PanelRequest request;
        request.groups = std::move(groups);
        auto v = std::make_unique<RavlinBarView>(
            RavlinBarView::Sources{content, world.tiles(), world.stats(), world.weather(),
                                   QStringLiteral("none")},
            request, style);
        v->setLayoutDirection(direction);
        v->onActivate = [this](const BarItem& item) { activated.append(item.key); };
        v->onStat = [this](const Stat& stat) { activated.append(stat.key); };
        v->onWeather = [this] { activated.append(QStringLiteral("weather")); };
        return v;
    }

    static void send(QWidget& w, QEvent::Type type, QPointF at)
    {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, w.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&w, &event);
    }

    static void drag(QWidget& w, QPointF from, QPointF to)
    {
        send(w, QEvent::MouseButtonPress, from);
        send(w, QEvent::MouseMove, (from + to) / 2);
        send(w, QEvent::MouseMove, to);
        send(w, QEvent::MouseButtonRelease, to);
    }

    PanelWorld world;
    PanelContent content{world.stats(), world.weather(), world.tiles(), world.language()};
    QStringList activated;
};

// No two tiles overlap and every tile stays inside the panel's 12-point padding.
void expectTidy(const RavlinBarView& v)
{
    const auto& tiles = v.panelLayout().tiles;
    ASSERT_FALSE(tiles.empty());
    for (std::size_t i = 0; i < tiles.size(); ++i) {
        const QRectF r = tiles[i].rect;
        EXPECT_GE(r.left(), 12 - 1e-9);
        EXPECT_LE(r.right(), 308 - 12 + 1e-9);
        EXPECT_LE(r.bottom(), v.contentHeight() - 12 + 1e-9);
        for (std::size_t j = i + 1; j < tiles.size(); ++j)
            EXPECT_FALSE(r.intersects(tiles[j].rect)) << i << " overlaps " << j;
    }
}

} // namespace

TEST_F(ViewTest, EveryStyleLaysTheTilesOutTidily)
{
    for (TileStyle style : panelTileStyles) {
        SCOPED_TRACE(tileStyleRawValue(style).toStdString());
        const auto v = view(style);
        expectTidy(*v);
        EXPECT_EQ(v->sizeHint().width(), 308);
        const double asked = style == TileStyle::Strip
                                 ? std::min(v->contentHeight(), PanelLayout::stripMaximumHeight)
                                 : v->contentHeight();
        EXPECT_EQ(v->heightForWidth(308), int(std::ceil(asked)));
    }
}

TEST_F(ViewTest, DashboardAndCapsulesPairHalfTilesAndGiveTheNetworkARow)
{
    for (TileStyle style : {TileStyle::Dashboard, TileStyle::Capsules}) {
        const auto v = view(style);
        EXPECT_EQ(v->tileRect(QStringLiteral("sys.cpu"))->width(), 138);
        EXPECT_EQ(v->tileRect(QStringLiteral("sys.ram"))->left(), 158);
        EXPECT_EQ(v->tileRect(QStringLiteral("sys.net"))->width(), 284);
        EXPECT_EQ(v->tileRect(QStringLiteral("n:Item 5"))->left(), 12); // alone on its row
    }
}

TEST_F(ViewTest, TheGridFlowsFourCellsToALineAndStripStacksFullRows)
{
    const auto grid = view(TileStyle::Grid);
    const QRectF first = *grid->tileRect(QStringLiteral("n:Item 1"));
    EXPECT_DOUBLE_EQ(first.width(), 65.75);
    EXPECT_DOUBLE_EQ(grid->tileRect(QStringLiteral("n:Item 4"))->right(), 296);
    EXPECT_EQ(grid->tileRect(QStringLiteral("n:Item 5"))->top(), first.top() + first.height() + 7);
    EXPECT_DOUBLE_EQ(grid->tileRect(QStringLiteral("sys.net"))->width(), 2 * 65.75 + 7);
    const auto strip = view(TileStyle::Strip);
    EXPECT_EQ(strip->tileRect(QStringLiteral("n:Item 1"))->width(), 284);
    EXPECT_EQ(strip->tileRect(QStringLiteral("n:Item 2"))->top(),
              strip->tileRect(QStringLiteral("n:Item 1"))->bottom() + 3);
}

TEST_F(ViewTest, RightToLeftMirrorsEveryTile)
{
    for (TileStyle style : panelTileStyles) {
        const auto ltr = view(style);
        const auto rtl = view(style, PanelWorld::groups(5), Qt::RightToLeft);
        EXPECT_TRUE(rtl->isRightToLeft());
        for (const auto& placed : ltr->panelLayout().tiles) {
            const QString key = ltr->sections()[placed.section].tiles[placed.index].key;
            const QRectF mirrored = *rtl->tileRect(key);
            EXPECT_DOUBLE_EQ(mirrored.left(), 308 - placed.rect.right()) << key.toStdString();
            EXPECT_DOUBLE_EQ(mirrored.top(), placed.rect.top());
        }
        EXPECT_DOUBLE_EQ(rtl->panelLayout().headers[0].rect.left(),
                         308 - ltr->panelLayout().headers[0].rect.right());
    }
}

TEST_F(ViewTest, AClickReachesTheTileUnderThePointerAndNothingElse)
{
    const auto v = view(TileStyle::Dashboard);
    const QPointF item = v->tileRect(QStringLiteral("n:Item 2"))->center();
    send(*v, QEvent::MouseButtonPress, item);
    send(*v, QEvent::MouseButtonRelease, item);
    const QPointF stat = v->tileRect(QStringLiteral("sys.net"))->center();
    send(*v, QEvent::MouseButtonPress, stat);
    send(*v, QEvent::MouseButtonRelease, stat);
    const QPointF weather = v->tileRect(QStringLiteral("weather"))->center();
    send(*v, QEvent::MouseButtonPress, weather);
    send(*v, QEvent::MouseButtonRelease, weather);
    // The gap between two tiles, and a press that ends on another tile, click nothing.
    const QRectF cpu = *v->tileRect(QStringLiteral("sys.cpu"));
    send(*v, QEvent::MouseButtonPress, QPointF(cpu.right() + 4, cpu.center().y()));
    send(*v, QEvent::MouseButtonRelease, QPointF(cpu.right() + 4, cpu.center().y()));
    send(*v, QEvent::MouseButtonPress, cpu.center());
    send(*v, QEvent::MouseButtonRelease, v->tileRect(QStringLiteral("sys.ram"))->center());
    EXPECT_EQ(activated, (QStringList{QStringLiteral("n:Item 2"), QStringLiteral("sys.net"),
                                      QStringLiteral("weather")}));
}

TEST_F(ViewTest, DraggingAnItemOntoAnotherPutsItInFront)
{
    const auto v = view(TileStyle::Grid);
    drag(*v, v->tileRect(QStringLiteral("n:Item 4"))->center(),
         v->tileRect(QStringLiteral("n:Item 2"))->center());
    EXPECT_TRUE(activated.isEmpty());
    EXPECT_EQ(world.tiles().rev(), 1);
    EXPECT_EQ(world.tiles().order().mid(0, 5),
              (QStringList{QStringLiteral("n:Item 1"), QStringLiteral("n:Item 4"),
                           QStringLiteral("n:Item 2"), QStringLiteral("n:Item 3"),
                           QStringLiteral("n:Item 5")}));
    // The view follows the new order at once.
    EXPECT_LT(v->tileRect(QStringLiteral("n:Item 4"))->left(),
              v->tileRect(QStringLiteral("n:Item 2"))->left());
}

TEST_F(ViewTest, StatisticsCannotBeDraggedNorDroppedOn)
{
    const auto v = view(TileStyle::Dashboard);
    drag(*v, v->tileRect(QStringLiteral("n:Item 1"))->center(),
         v->tileRect(QStringLiteral("sys.cpu"))->center());
    drag(*v, v->tileRect(QStringLiteral("sys.cpu"))->center(),
         v->tileRect(QStringLiteral("n:Item 1"))->center());
    EXPECT_EQ(world.tiles().rev(), 0);
    EXPECT_FALSE(v->dropTile(QStringLiteral("sys.cpu"), QStringLiteral("n:Item 1")));
    EXPECT_FALSE(v->clickTile(QStringLiteral("no such tile")));
}

TEST_F(ViewTest, NewFiguresRedrawTheStatistics)
{
    const auto v = view(TileStyle::Strip);
    EXPECT_EQ(v->tile(QStringLiteral("sys.batt"))->subtitle, QStringLiteral("80%"));
    world.probe().setBattery(std::nullopt);
    world.stats().refresh();
    EXPECT_FALSE(v->tile(QStringLiteral("sys.batt")));
    expectTidy(*v);
}

TEST_F(ViewTest, WithoutHiddenItemsItSaysSo)
{
    const auto v = view(TileStyle::Capsules, {});
    ASSERT_TRUE(v->panelLayout().emptyNote);
    EXPECT_GT(v->panelLayout().emptyNote->top(), v->tileRect(QStringLiteral("sys.net"))->bottom());
}

TEST_F(ViewTest, TheTileUnderThePointerLightsUp)
{
    const auto v = view(TileStyle::Strip);
    const QRectF tile = *v->tileRect(QStringLiteral("n:Item 3"));
    const QPoint probe(int(tile.right() * 2 - 60),
                       int(tile.center().y() * 2)); // empty part of the row
    auto brightness = [&] {
        QImage image(v->size() * 2, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(2);
        image.fill(Qt::black);
        v->render(&image);
        return qGray(image.pixel(probe));
    };
    const int resting = brightness();
    send(*v, QEvent::MouseMove, tile.center());
    const int hovered = brightness();
    EXPECT_GT(hovered, resting + 8);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(v.get(), &leave);
    EXPECT_EQ(brightness(), resting);
}

TEST_F(ViewTest, PaintsEveryStyleInBothDirections)
{
    for (TileStyle style : panelTileStyles) {
        for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            const auto v = view(style, PanelWorld::groups(3), direction);
            QImage image(v->size() * 2, QImage::Format_ARGB32_Premultiplied);
            image.setDevicePixelRatio(2);
            image.fill(Qt::black);
            v->render(&image);
            // Tiles lighten the dark ground where they stand, and only there.
            const QRectF tile = *v->tileRect(QStringLiteral("n:Item 1"));
            EXPECT_GT(qGray(image.pixel(int(tile.left() * 2 + 6), int(tile.center().y() * 2))), 8);
            EXPECT_EQ(qGray(image.pixel(2, 2)), 0);
        }
    }
}

TEST_F(ViewTest, EveryStyleDrawsAStatisticWithItsUnit)
{
    for (TileStyle style : panelTileStyles) {
        for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
            const auto v = view(style, PanelWorld::groups(3), direction);
            v->grab();
            const QString battery = v->tile(QStringLiteral("sys.batt"))->subtitle;
            EXPECT_EQ(battery, QStringLiteral("80%"));
            EXPECT_TRUE(v->paintedTexts(QStringLiteral("sys.batt")).contains(battery))
                << tileStyleRawValue(style).toStdString() << ": "
                << v->paintedTexts(QStringLiteral("sys.batt")).join(u'|').toStdString();
        }
    }
}

TEST_F(ViewTest, AFullGaugeKeepsItsUnitInTheGrid)
{
    world.probe().setBattery(PowerSource{100, 100});
    world.stats().refresh();
    const auto v = view(TileStyle::Grid);
    v->grab();
    EXPECT_TRUE(v->paintedTexts(QStringLiteral("sys.batt")).contains(QStringLiteral("100%")));
}

TEST_F(ViewTest, ATallPanelScrollsAndOnlyWhatIsInSightIsDrawnAndHit)
{
    const auto v = view(TileStyle::Strip, PanelWorld::groups(40));
    v->resize(308, 300);
    ASSERT_GT(v->maximumScroll(), 1000);
    const QString last = QStringLiteral("n:Item 40");
    EXPECT_FALSE(v->isTileVisible(last));
    v->grab();
    EXPECT_TRUE(v->paintedTexts(last).isEmpty());
    EXPECT_FALSE(v->paintedTexts(QStringLiteral("sys.cpu")).isEmpty());

    // The wheel, a trackpad and the keyboard all scroll; the content keeps its order.
    QWheelEvent wheel(QPointF(100, 100), QPointF(100, 100), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(v.get(), &wheel);
    EXPECT_EQ(v->scrollOffset(), 40);
    QWheelEvent trackpad(QPointF(100, 100), QPointF(100, 100), QPoint(0, -25), QPoint(0, -60),
                         Qt::NoButton, Qt::NoModifier, Qt::ScrollUpdate, false);
    QCoreApplication::sendEvent(v.get(), &trackpad);
    EXPECT_EQ(v->scrollOffset(), 65);
    QKeyEvent end(QEvent::KeyPress, Qt::Key_End, Qt::NoModifier);
    QCoreApplication::sendEvent(v.get(), &end);
    EXPECT_EQ(v->scrollOffset(), v->maximumScroll());
    EXPECT_TRUE(v->isTileVisible(last));
    EXPECT_FALSE(v->isTileVisible(QStringLiteral("sys.cpu")));
    EXPECT_LT(v->tileRect(QStringLiteral("sys.cpu"))->y(), v->tileRect(last)->y());

    // A click lands on the tile that is in sight under the pointer.
    const QRectF r = *v->tileRect(last);
    const QPointF inView = r.center() - QPointF(0, v->scrollOffset());
    send(*v, QEvent::MouseButtonPress, inView);
    send(*v, QEvent::MouseButtonRelease, inView);
    EXPECT_EQ(activated, QStringList{last});
    v->grab();
    EXPECT_FALSE(v->paintedTexts(last).isEmpty());
    EXPECT_TRUE(v->paintedTexts(QStringLiteral("sys.cpu")).isEmpty());

    QKeyEvent home(QEvent::KeyPress, Qt::Key_Home, Qt::NoModifier);
    QCoreApplication::sendEvent(v.get(), &home);
    EXPECT_EQ(v->scrollOffset(), 0);
    v->scrollBy(-50); // never above the top
    EXPECT_EQ(v->scrollOffset(), 0);
}

// The note under the content takes as many lines as its words need, in every style, and the
// gear stays below it: a long note (items out of reach and a rule in force) is never cut.
TEST_F(ViewTest, TheNoteTakesTheLinesItsWordsNeed)
{
    const QString shortNote = QStringLiteral("Rule in force: Desk.");
    const QString longNote = QStringLiteral(
        "Set to stay in the menu bar: Notes, Chat and Mail. Click here to drag them there in "
        "arrange mode. Rule in force: On battery, At the office.");
    for (TileStyle style : panelTileStyles) {
        auto heightFor = [&](const QString& text) {
            PanelRequest request;
            request.groups = PanelWorld::groups(3);
            request.footnote = text;
            RavlinBarView v(RavlinBarView::Sources{content, world.tiles(), world.stats(),
                                                   world.weather(), QStringLiteral("none")},
                            request, style);
            v.resize(int(PanelPlacement::panelWidth), v.heightForWidth(int(PanelPlacement::panelWidth)));
            const QRectF note = *v.panelLayout().footnote;
            const QFontMetricsF metrics(Theme::font(10.5, QFont::Normal));
            const QRectF words = metrics.boundingRect(QRectF(0, 0, note.width() - 8, 1e6),
                                                      int(Qt::AlignLeft | Qt::TextWordWrap), text);
            EXPECT_GE(note.height(), words.height()) << int(style);
            EXPECT_LE(note.bottom(), v.panelLayout().settingsButton->top()) << int(style);
            return note.height();
        };
        EXPECT_EQ(heightFor(shortNote), 30) << int(style);
        EXPECT_GT(heightFor(longNote), 30) << int(style);
    }
}
