// How tiles write their names: two lines before a name is cut, and a name cut at its
// own end whichever way the panel reads.
#include "ui/TilePainter.h"
#include "ui/PaintCache.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

using namespace ravlin;

namespace {

PanelTile itemTile(const QString& label)
{
    PanelTile tile;
    tile.kind = TileKind::Item;
    tile.key = QStringLiteral("n:") + label;
    tile.label = label;
    tile.symbol = QStringLiteral("wifi");
    BarItem item;
    item.key = tile.key;
    item.label = label;
    tile.content = item;
    return tile;
}

struct Painted {
    QImage image;
    QStringList texts;
};

Painted paint(const PanelTile& tile, TileStyle style, QSizeF size, bool rightToLeft,
              PaintCache* cache = nullptr)
{
    Painted out{QImage(size.toSize(), QImage::Format_ARGB32_Premultiplied), {}};
    out.image.fill(Qt::black);
    QPainter p(&out.image);
    TilePainter(p, style, rightToLeft, cache)
        .tile(tile, QRectF(QPointF(0, 0), size), TileState{}, &out.texts);
    return out;
}

// The rows and columns where the text's ink stands, within the columns [from, to).
QRect inkBounds(const QImage& image, int from, int to)
{
    QRect bounds;
    for (int y = 0; y < image.height(); ++y)
        for (int x = from; x < to; ++x)
            if (qGray(image.pixel(x, y)) > 150)
                bounds |= QRect(x, y, 1, 1);
    return bounds;
}

} // namespace

TEST(TilePainter, ANameTooLongForOneLineTakesTwoBeforeItIsCut)
{
    PaintCache cache;
    for (PaintCache* c : {static_cast<PaintCache*>(nullptr), &cache}) {
        for (TileStyle style : {TileStyle::Grid, TileStyle::Capsules, TileStyle::Dashboard}) {
            SCOPED_TRACE(int(style));
            const QSizeF size = style == TileStyle::Grid       ? QSizeF(65.75, 72)
                                : style == TileStyle::Capsules ? QSizeF(138, 40)
                                                               : QSizeF(138, 50);
            const Painted shown =
                paint(itemTile(QStringLiteral("Paste Helper Pro")), style, size, false, c);
            ASSERT_EQ(shown.texts.size(), 1);
            EXPECT_TRUE(shown.texts[0].contains(u'\n')) << shown.texts[0].toStdString();
            EXPECT_FALSE(shown.texts[0].startsWith(QStringLiteral("Paste Hel…")));
            EXPECT_EQ(paint(itemTile(QStringLiteral("Sync")), style, size, false, c).texts,
                      QStringList{QStringLiteral("Sync")});
        }
    }
    // Japanese has no spaces to break at: it breaks between characters.
    const Painted japanese = paint(itemTile(QStringLiteral("クリップボード履歴")), TileStyle::Grid,
                                   QSizeF(65.75, 72), false);
    ASSERT_EQ(japanese.texts.size(), 1);
    EXPECT_TRUE(japanese.texts[0].contains(u'\n'));
}

// A Latin name cut in a right-to-left panel ends in its ellipsis on its own (right) side:
// the leftmost ink of the line is a letter, as tall as the capitals, not three low dots.
TEST(TilePainter, ALatinNameIsCutAtItsOwnEndInARightToLeftPanel)
{
    PaintCache cache;
    for (PaintCache* c : {static_cast<PaintCache*>(nullptr), &cache}) {
        const QString name = QStringLiteral("Paste Helper with a very long name indeed");
        const Painted rtl = paint(itemTile(name), TileStyle::Strip, QSizeF(284, 28), true, c);
        ASSERT_EQ(rtl.texts.size(), 1);
        EXPECT_TRUE(rtl.texts[0].endsWith(u'…'));
        // The label stands left of the item mark, which sits at the right end.
        const QRect all = inkBounds(rtl.image, 0, 284 - 40);
        ASSERT_FALSE(all.isEmpty());
        const QRect leftmost = inkBounds(rtl.image, all.left(), all.left() + 5);
        EXPECT_GT(leftmost.height(), 6) << "the ellipsis stands at the left end";
        const QRect rightmost = inkBounds(rtl.image, all.right() - 4, all.right() + 1);
        EXPECT_LE(rightmost.height(), 3) << "the name's end is not its ellipsis";
    }
}

// The weather's place and description use the room the figures beside them leave.
TEST(TilePainter, TheWeatherLinesUseTheRoomTheFiguresLeave)
{
    PanelTile weather;
    weather.kind = TileKind::Weather;
    weather.key = QStringLiteral("weather");
    weather.label = QStringLiteral("Frankfurt am Main");
    weather.subtitle = QStringLiteral("21°");
    weather.detail = QStringLiteral("H: 24°  T: 13°");
    weather.note = QStringLiteral("Leichter Nieselregen");
    weather.symbol = QStringLiteral("cloud.drizzle.fill");
    for (bool rightToLeft : {false, true}) {
        const Painted shown = paint(weather, TileStyle::Dashboard, QSizeF(284, 58), rightToLeft);
        for (const QString& text : shown.texts)
            EXPECT_FALSE(text.endsWith(u'…')) << text.toStdString();
        EXPECT_TRUE(shown.texts.contains(QStringLiteral("Leichter Nieselregen")));
        EXPECT_TRUE(shown.texts.contains(QStringLiteral("Frankfurt am Main")));
    }
}
