// The bar style offscreen: one row of pictures as high as the menu bar, its cells and
// sections, a crowded row that scrolls sideways (both reading directions), the keyboard,
// dragging and what a screen reader finds; and the window hanging under the menu bar.
#include "support/PanelWorld.h"

#include "core/settings/Preferences.h"
#include "core/sysinfo/SystemStats.h"
#include "core/tiles/TileModel.h"
#include "ui/BarStyleLayout.h"
#include "ui/RavlinBar.h"
#include "ui/RavlinBarView.h"

#include <QAccessible>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <gtest/gtest.h>

using namespace ravlin;
using namespace ravlin::test;

namespace {

// An item whose picture is as wide as it stands in the menu bar.
BarItem pictured(const QString& name, double width)
{
    BarItem item;
    item.key = QStringLiteral("n:") + name;
    item.label = name;
    item.info = {7, -200, 0, width, 24, name, name};
    QImage picture(int(width * 2), 48, QImage::Format_ARGB32_Premultiplied);
    picture.setDevicePixelRatio(2);
    picture.fill(Qt::white);
    item.image = picture;
    return item;
}

class BarStyleTest : public ::testing::Test {
protected:
    BarStyleTest() { world.stats().refresh(); }

    std::unique_ptr<RavlinBarView> view(std::vector<BarGroup> groups = PanelWorld::groups(5),
                                        Qt::LayoutDirection direction = Qt::LeftToRight,
                                        bool statistics = false, double barHeight = 24)
    {
        PanelRequest request;
        request.groups = std::move(groups);
        request.showWeather = false;
        request.showSystemTiles = statistics;
        request.offerPermissions = false;
        RavlinBarView::Sources sources{content,
                                       world.tiles(),
                                       world.stats(),
                                       world.weather(),
                                       QStringLiteral("No hidden items"),
                                       QStringLiteral("no matches"),
                                       QStringLiteral("Settings")};
        sources.barHeight = barHeight;
        auto v = std::make_unique<RavlinBarView>(sources, request, TileStyle::Bar);
        v->setLayoutDirection(direction);
        v->resize(v->sizeHint());
        v->onActivate = [this](const BarItem& item) { activated.append(item.key); };
        return v;
    }

    static void send(QWidget& w, QEvent::Type type, QPointF at)
    {
        const Qt::MouseButtons held =
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, at, w.mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&w, &event);
    }
    static void click(QWidget& w, QPointF at)
    {
        send(w, QEvent::MouseButtonPress, at);
        send(w, QEvent::MouseButtonRelease, at);
    }
    static void key(QWidget& w, int key, const QString& text = {})
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&w, &press);
    }
    static void wheel(QWidget& w, QPoint pixels, QPoint angle)
    {
        QWheelEvent event(QPointF(20, 10), QPointF(20, 10), pixels, angle, Qt::NoButton,
                          Qt::NoModifier, pixels.isNull() ? Qt::NoScrollPhase : Qt::ScrollUpdate,
                          false);
        QCoreApplication::sendEvent(&w, &event);
    }

    PanelWorld world;
    PanelContent content{world.stats(), world.weather(), world.tiles(), world.language()};
    QStringList activated;
};

QRectF cellOf(const RavlinBarView& v, const QString& key)
{
    return v.tileRect(key).value_or(QRectF());
}

} // namespace

TEST_F(BarStyleTest, OneRowAsHighAsTheMenuBarWithTheItemsAsWideAsTheyStandInIt)
{
    const auto v = view({BarGroup{QStringLiteral("Apps"),
                                  {pictured(QStringLiteral("Clock"), 60),
                                   pictured(QStringLiteral("Tiny"), 9),
                                   pictured(QStringLiteral("Meter"), 300)}}},
                        Qt::LeftToRight, false, 37);
    EXPECT_TRUE(v->isRow());
    EXPECT_EQ(v->contentHeight(), 37);
    EXPECT_EQ(v->heightForWidth(500), 37);
    EXPECT_EQ(cellOf(*v, QStringLiteral("n:Clock")).width(), 60);
    EXPECT_EQ(cellOf(*v, QStringLiteral("n:Tiny")).width(), BarStyleLayout::smallestCell);
    EXPECT_EQ(cellOf(*v, QStringLiteral("n:Meter")).width(), BarStyleLayout::widestCell);
    // Side by side from the leading padding, two points apart, inside the row's height.
    EXPECT_EQ(cellOf(*v, QStringLiteral("n:Clock")).left(), BarStyleLayout::padding);
    EXPECT_EQ(cellOf(*v, QStringLiteral("n:Tiny")).left(),
              cellOf(*v, QStringLiteral("n:Clock")).right() + BarStyleLayout::cellGap);
    EXPECT_EQ(cellOf(*v, QStringLiteral("n:Clock")).top(), 2);
    EXPECT_EQ(cellOf(*v, QStringLiteral("n:Clock")).bottom(), 35);
    // As long as its content, the gear at the trailing end; nothing to scroll.
    const QRectF gear = *v->panelLayout().settingsButton;
    EXPECT_GT(gear.left(), cellOf(*v, QStringLiteral("n:Meter")).right());
    EXPECT_EQ(v->contentWidth(), std::ceil(gear.right() + BarStyleLayout::padding));
    EXPECT_EQ(v->sizeHint(), QSize(int(v->contentWidth()), 37));
    EXPECT_EQ(v->maximumScroll(), 0);
}

TEST_F(BarStyleTest, SectionsAreSetApartByHairlinesAndStatisticsComeAsChips)
{
    const auto plain = view(PanelWorld::groups(3));
    EXPECT_EQ(plain->tileKeys().size(), 5); // no statistics, no weather, no permissions
    ASSERT_EQ(plain->panelLayout().dividers.size(), 1);
    const QRectF divider = plain->panelLayout().dividers.front();
    EXPECT_GT(divider.left(), cellOf(*plain, QStringLiteral("n:Item 3")).right());
    EXPECT_LT(divider.right(), cellOf(*plain, QStringLiteral("n:Wi-Fi")).left());

    const auto chips = view(PanelWorld::groups(3), Qt::LeftToRight, true);
    EXPECT_EQ(chips->tileKeys().first(), QStringLiteral("sys.cpu"));
    EXPECT_EQ(cellOf(*chips, QStringLiteral("sys.cpu")).width(), BarStyleLayout::chipWidth);
    EXPECT_EQ(cellOf(*chips, QStringLiteral("sys.net")).width(), BarStyleLayout::networkChipWidth);
    EXPECT_EQ(chips->panelLayout().dividers.size(), 2);
    chips->grab();
    EXPECT_TRUE(chips->paintedTexts(QStringLiteral("sys.batt")).contains(QStringLiteral("80%")));
}

// A chip is short: no name is drawn in it, so none is ever cut ("Mem…"); its symbol says what it
// counts, and the figure stays whole, up to "100%".
TEST_F(BarStyleTest, ChipsNeverShowACutName)
{
    const auto chips = view(PanelWorld::groups(3), Qt::LeftToRight, true);
    chips->grab();
    for (const QString& key : {QStringLiteral("sys.cpu"), QStringLiteral("sys.ram"),
                               QStringLiteral("sys.disk"), QStringLiteral("sys.batt")}) {
        const QStringList painted = chips->paintedTexts(key);
        EXPECT_FALSE(painted.isEmpty()) << key.toStdString();
        for (const QString& text : painted)
            EXPECT_FALSE(text.contains(QChar(0x2026))) << key.toStdString() << ": " << text.toStdString();
    }
    // Each says what it counts by its symbol, whether its name would fit or not.
    EXPECT_FALSE(chips->paintedTexts(QStringLiteral("sys.cpu")).contains(QStringLiteral("CPU")));
    EXPECT_FALSE(chips->paintedTexts(QStringLiteral("sys.ram")).contains(QStringLiteral("Memory")));
    const QFont figure = chips->font();
    EXPECT_GE(BarStyleLayout::chipWidth, 16 + 14 + 4 + QFontMetricsF(figure).horizontalAdvance(QStringLiteral("100%")));
}

TEST_F(BarStyleTest, RightToLeftMirrorsTheRow)
{
    const auto ltr = view();
    const auto rtl = view(PanelWorld::groups(5), Qt::RightToLeft);
    const double w = ltr->contentWidth();
    EXPECT_EQ(rtl->contentWidth(), w);
    for (const QString& key : ltr->tileKeys())
        EXPECT_EQ(cellOf(*rtl, key).left(), w - cellOf(*ltr, key).right()) << key.toStdString();
    EXPECT_LT(rtl->panelLayout().settingsButton->left(), cellOf(*rtl, QStringLiteral("n:Sound")).left());
    // The leading end is on the right: the first item stands right of the second.
    EXPECT_GT(cellOf(*rtl, QStringLiteral("n:Item 1")).left(),
              cellOf(*rtl, QStringLiteral("n:Item 2")).left());
}

TEST_F(BarStyleTest, ACrowdedRowScrollsSidewaysByWheelTrackpadAndKeyboard)
{
    const auto v = view(PanelWorld::groups(60));
    v->resize(400, 24);
    ASSERT_GT(v->maximumScroll(), 1000);
    const QString last = QStringLiteral("n:Sound");
    EXPECT_FALSE(v->isTileVisible(last));
    v->grab();
    EXPECT_TRUE(v->paintedTexts(QStringLiteral("n:Item 1")).contains(QStringLiteral("I")));
    EXPECT_TRUE(v->paintedTexts(QStringLiteral("n:Item 40")).isEmpty()); // not painted

    wheel(*v, QPoint(), QPoint(0, -120)); // the wheel turned down moves along the row
    EXPECT_EQ(v->scrollOffset(), 40);
    wheel(*v, QPoint(-25, 0), QPoint(-60, 0)); // fingers to the left: further along
    EXPECT_EQ(v->scrollOffset(), 65);
    key(*v, Qt::Key_End);
    EXPECT_EQ(v->scrollOffset(), v->maximumScroll());
    EXPECT_TRUE(v->isTileVisible(last));
    EXPECT_FALSE(v->isTileVisible(QStringLiteral("n:Item 1")));

    // A click lands on the cell in sight under the pointer; the gear never moves.
    click(*v, v->toView(cellOf(*v, last)).center());
    EXPECT_EQ(activated, QStringList{last});
    EXPECT_EQ(v->settingsRect()->translated(-v->scrollOffset(), 0),
              QRectF(400 - 6 - 18, 3, 18, 18));
    key(*v, Qt::Key_Home);
    EXPECT_EQ(v->scrollOffset(), 0);
    v->scrollBy(-50);
    EXPECT_EQ(v->scrollOffset(), 0);
}

TEST_F(BarStyleTest, ARightToLeftRowScrollsFromItsRightEnd)
{
    const auto v = view(PanelWorld::groups(60), Qt::RightToLeft);
    v->resize(400, 24);
    // At rest the leading end shows: the first items, on the right; the gear on the left.
    EXPECT_TRUE(v->isTileVisible(QStringLiteral("n:Item 1")));
    EXPECT_FALSE(v->isTileVisible(QStringLiteral("n:Sound")));
    EXPECT_GT(v->toView(cellOf(*v, QStringLiteral("n:Item 1"))).left(), 300);
    EXPECT_LT(v->toView(*v->settingsRect()).left(), 10);
    // Fingers moving right bring in what stands further left.
    wheel(*v, QPoint(30, 0), QPoint(72, 0));
    EXPECT_EQ(v->scrollOffset(), 30);
    key(*v, Qt::Key_End);
    EXPECT_TRUE(v->isTileVisible(QStringLiteral("n:Sound")));
    click(*v, v->toView(cellOf(*v, QStringLiteral("n:Sound"))).center());
    EXPECT_EQ(activated, QStringList{QStringLiteral("n:Sound")});
}

TEST_F(BarStyleTest, TypingNarrowsTheRowAndTheArrowsWalkItScrollingAlong)
{
    const auto v = view(PanelWorld::groups(60));
    v->resize(400, 24);
    int resized = 0;
    v->onContentSizeChanged = [&] { ++resized; };
    const double full = v->contentWidth();
    key(*v, Qt::Key_5, QStringLiteral("5"));
    key(*v, Qt::Key_5, QStringLiteral("5"));
    EXPECT_EQ(v->tileKeys(), QStringList{QStringLiteral("n:Item 55")});
    ASSERT_TRUE(v->panelLayout().searchField);
    EXPECT_EQ(v->panelLayout().searchField->left(), BarStyleLayout::padding);
    EXPECT_LT(v->contentWidth(), full);
    EXPECT_EQ(resized, 2);
    key(*v, Qt::Key_Return);
    EXPECT_EQ(activated, QStringList{QStringLiteral("n:Item 55")});
    key(*v, Qt::Key_Escape);
    EXPECT_EQ(v->contentWidth(), full);

    // Right walks on in reading order; the ring brings its cell into sight.
    for (int i = 0; i < 30; ++i)
        key(*v, Qt::Key_Right);
    EXPECT_EQ(v->focusedKey(), QStringLiteral("n:Item 30"));
    EXPECT_TRUE(v->isTileVisible(QStringLiteral("n:Item 30")));
    EXPECT_GT(v->scrollOffset(), 0);
    key(*v, Qt::Key_Up); // a single row: nothing above
    EXPECT_EQ(v->focusedKey(), QStringLiteral("n:Item 30"));
}

TEST_F(BarStyleTest, DraggingAPictureOntoAnotherReordersThem)
{
    const auto v = view();
    const QPointF from = cellOf(*v, QStringLiteral("n:Item 4")).center();
    const QPointF onto = cellOf(*v, QStringLiteral("n:Item 1")).center();
    send(*v, QEvent::MouseButtonPress, from);
    send(*v, QEvent::MouseMove, (from + onto) / 2);
    send(*v, QEvent::MouseMove, onto);
    v->grab(); // the lifted cell and the drop mark paint without trouble
    send(*v, QEvent::MouseButtonRelease, onto);
    EXPECT_TRUE(activated.isEmpty());
    const QStringList order = world.tiles().order();
    EXPECT_LT(order.indexOf(QStringLiteral("n:Item 4")), order.indexOf(QStringLiteral("n:Item 1")));
}

TEST_F(BarStyleTest, AScreenReaderFindsEveryPictureByNameWhereItStands)
{
    const auto v = view(PanelWorld::groups(60));
    v->resize(400, 24);
    v->scrollBy(300);
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(v.get());
    ASSERT_TRUE(list);
    ASSERT_EQ(list->childCount(), 63); // 62 pictures and the gear
    QAccessibleInterface* tenth = list->child(9);
    EXPECT_EQ(tenth->text(QAccessible::Name), QStringLiteral("Item 10"));
    const QRect where = tenth->rect();
    EXPECT_EQ(where.left() - v->mapToGlobal(QPoint(0, 0)).x(),
              int(cellOf(*v, QStringLiteral("n:Item 10")).left() - 300));
    tenth->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(activated, QStringList{QStringLiteral("n:Item 10")});
}

TEST_F(BarStyleTest, PicturesAreDrawnInTheirCellsInBothAppearances)
{
    for (bool dark : {true, false}) {
        const auto v = view({BarGroup{QStringLiteral("Apps"), {pictured(QStringLiteral("A"), 40)}}});
        v->setPalette(PanelPalette::forAppearance(dark));
        QImage image(v->size() * 2, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(2);
        image.fill(Qt::black);
        v->render(&image);
        const QRectF cell = cellOf(*v, QStringLiteral("n:A"));
        EXPECT_GT(qGray(image.pixel(int(cell.center().x() * 2), int(cell.center().y() * 2))), 150);
        EXPECT_EQ(qGray(image.pixel(1, 1)), 0); // the row's own ground is the window's
    }
}

// An item that changed while hidden carries an orange dot at its leading top corner, on the
// side the row is read from.
TEST_F(BarStyleTest, AChangedItemIsMarkedAtItsLeadingCorner)
{
    for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        BarItem changed = pictured(QStringLiteral("Radio"), 40);
        changed.image->fill(Qt::transparent);
        changed.changed = true;
        const auto v = view({BarGroup{QStringLiteral("Apps"), {changed}}}, direction);
        QImage image(v->size() * 2, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(2);
        image.fill(Qt::black);
        v->render(&image);
        const QRectF cell = cellOf(*v, QStringLiteral("n:Radio"));
        const double leading = direction == Qt::LeftToRight ? cell.left() + 4 : cell.right() - 4;
        const double trailing = direction == Qt::LeftToRight ? cell.right() - 4 : cell.left() + 4;
        const QColor mark = image.pixelColor(int(leading * 2), int((cell.top() + 4) * 2));
        EXPECT_GT(mark.red(), 200) << direction;
        EXPECT_LT(mark.blue(), 100) << direction;
        EXPECT_LT(image.pixelColor(int(trailing * 2), int((cell.top() + 4) * 2)).red(), 100)
            << direction;
    }
}

// The panel's note folds to a mark beside the gear: it stays at the trailing end while the row
// scrolls, says its words under the pointer and to a screen reader, and a click does what a
// click on the note does; without a note there is no mark.
TEST_F(BarStyleTest, ThePanelsNoteIsAMarkBesideTheGear)
{
    for (Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        PanelRequest request;
        request.groups = PanelWorld::groups(40);
        request.showWeather = false;
        request.showSystemTiles = false;
        request.offerPermissions = false;
        request.footnote = QStringLiteral("Set to stay in the menu bar: Chat.");
        RavlinBarView::Sources sources{content, world.tiles(), world.stats(), world.weather(),
                                       QStringLiteral("No hidden items"),
                                       QStringLiteral("no matches"), QStringLiteral("Settings")};
        RavlinBarView v(sources, request, TileStyle::Bar);
        v.setLayoutDirection(direction);
        v.resize(400, int(v.sizeHint().height()));
        int told = 0;
        v.onFootnote = [&told] { ++told; };
        const std::optional<QRectF> gear = v.settingsRect();
        std::optional<QRectF> mark = v.footnoteMarkRect();
        ASSERT_TRUE(gear && mark) << direction;
        const bool ltr = direction == Qt::LeftToRight;
        EXPECT_TRUE(ltr ? mark->right() <= gear->left() : mark->left() >= gear->right()) << direction;
        v.scrollBy(200);
        const QRectF inView = v.toView(*v.footnoteMarkRect());
        EXPECT_TRUE(QRectF(v.rect()).contains(inView)) << direction;
        click(v, inView.center());
        EXPECT_EQ(told, 1) << direction;
        QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&v);
        ASSERT_TRUE(list);
        // Read where it stands: after the pictures, before the gear.
        QAccessibleInterface* entry = list->child(list->childCount() - 2);
        ASSERT_TRUE(entry);
        EXPECT_EQ(entry->text(QAccessible::Name), request.footnote);
        EXPECT_EQ(entry->role(), QAccessible::Button);
    }
    const auto plain = view();
    EXPECT_FALSE(plain->footnoteMarkRect());
}

// Over the light glass a white glyph sits on a dark chip that hugs the glyph, not the room its
// item leaves around it, so wide and narrow items get chips alike.
TEST_F(BarStyleTest, InTheLightAppearanceAGlyphSitsOnAChipOfItsOwnSize)
{
    BarItem wide = pictured(QStringLiteral("Wide"), 60);
    QImage glyph(120, 48, QImage::Format_ARGB32_Premultiplied);
    glyph.setDevicePixelRatio(2);
    glyph.fill(Qt::transparent);
    QPainter(&glyph).fillRect(QRectF(23, 5, 14, 14), Qt::white);
    wide.image = glyph;
    const auto v = view({BarGroup{QStringLiteral("Apps"), {wide}}});
    v->setPalette(PanelPalette::forAppearance(false));
    QImage image(v->size() * 2, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(2);
    image.fill(Qt::white);
    v->render(&image);
    const QRectF cell = cellOf(*v, QStringLiteral("n:Wide"));
    const auto grey = [&](double x) {
        return qGray(image.pixel(int(x * 2), int(cell.center().y() * 2)));
    };
    EXPECT_GT(grey(cell.center().x()), 200);     // the glyph
    EXPECT_LT(grey(cell.center().x() - 9), 140); // its chip, just beside it
    EXPECT_GT(grey(cell.left() + 3), 200);       // the glass at the item's edges
    EXPECT_GT(grey(cell.right() - 3), 200);
}

// The window: as high as the menu bar, right under it, its right end under the chevron's,
// never wider than the display; under a clicked spot of empty menu bar, centred on it.
TEST(BarStyleWindow, HangsUnderTheMenuBarAlignedWithTheChevronOrTheClickedSpot)
{
    PanelWorld world;
    world.preferences().setTileStyle(TileStyle::Bar);
    std::unique_ptr<RavlinBar> bar = world.makePanel();
    const ScreenRect chevron{1416, 876, 24, 24};
    bar->show(PanelWorld::groups(5), chevron, [](const BarItem&) {}, [](const Stat&) {});
    ASSERT_TRUE(bar->isVisible());
    const ScreenRect f = *bar->frame();
    EXPECT_EQ(f.height, 24);
    EXPECT_EQ(f.maxY(), 900 - 24 - 1);
    EXPECT_EQ(f.maxX(), 1440 - 6); // the chevron's right end, kept inside the margin
    EXPECT_EQ(f.width, bar->view()->contentWidth());
    EXPECT_FALSE(world.stats().isSampling()); // no chips asked for

    bar->show(PanelWorld::groups(5), ScreenRect{700, 876, 0, 24}, [](const BarItem&) {},
              [](const Stat&) {});
    EXPECT_DOUBLE_EQ(bar->frame()->x + bar->frame()->width / 2, 700);

    bar->show(PanelWorld::groups(200), chevron, [](const BarItem&) {}, [](const Stat&) {});
    EXPECT_EQ(bar->frame()->width, 1440 - 12);
    EXPECT_GT(bar->view()->maximumScroll(), 0);
}
