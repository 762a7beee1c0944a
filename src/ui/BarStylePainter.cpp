#include "BarStylePainter.h"

#include "PaintCache.h"
#include "Theme.h"
#include "TileDrawing.h"

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace ravlin {

using namespace TileDrawing;

namespace {

const BarItem* itemOf(const PanelTile& tile)
{
    return tile.content ? std::get_if<BarItem>(&*tile.content) : nullptr;
}

} // namespace

BarStylePainter::BarStylePainter(QPainter& painter, bool rightToLeft, PaintCache* cache,
                                 PanelPalette palette)
    : m_p(painter), m_c{painter, nullptr, cache, palette}, m_rtl(rightToLeft)
{
    m_p.setRenderHint(QPainter::Antialiasing);
    m_p.setRenderHint(QPainter::TextAntialiasing);
    m_p.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

void BarStylePainter::cell(const PanelTile& tile, const QRectF& rect, const TileState& state,
                           QStringList* painted)
{
    m_c.painted = painted;
    m_p.save();
    if (state.lifted)
        m_p.setOpacity(0.35);
    if (state.floating) {
        // The dragged picture rides on a chip of its own, lifted off the row.
        m_p.setPen(Qt::NoPen);
        m_p.setBrush(QColor(0, 0, 0, 40));
        m_p.drawRoundedRect(rect.adjusted(-1, 1, 1, 3), cellRadius + 1, cellRadius + 1);
        m_p.setBrush(m_c.palette.dark ? QColor(58, 58, 62) : QColor(250, 250, 252));
        m_p.drawRoundedRect(rect, cellRadius, cellRadius);
    }
    if (tile.kind == TileKind::Item) {
        highlight(rect, state);
        picture(tile, rect);
    } else {
        chip(tile, rect);
        if (state.hovered || state.pressed)
            highlight(rect, state);
    }
    marks(tile, rect);
    m_p.restore();
    if (state.dropTarget)
        dropMark(rect);
    if (state.focused)
        TilePainter(m_p, TileStyle::Bar, m_rtl, m_c.cache, m_c.palette)
            .focusRing(rect, tile.kind == TileKind::Item ? cellRadius : rect.height() / 2);
    m_c.painted = nullptr;
}

// The menu bar's own way of showing what the pointer is on: a soft rounded fill.
void BarStylePainter::highlight(const QRectF& rect, const TileState& state)
{
    const int fill = state.pressed ? 46 : state.hovered ? 30 : 0;
    if (fill == 0)
        return;
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(m_c.palette.ink(fill));
    m_p.drawRoundedRect(rect, cellRadius, cellRadius);
}

// The item's picture at the size the menu bar shows it (never larger); an application's
// icon, a symbol or an initial where there is no picture of the item itself.
void BarStylePainter::picture(const PanelTile& tile, const QRectF& rect)
{
    const BarItem* item = itemOf(tile);
    const bool pictured = item && item->image && !item->image->isNull();
    if (pictured && !item->imageIsApplicationIcon) {
        const QSizeF natural = item->image->deviceIndependentSize();
        QRectF box = fitted(natural.boundedTo(rect.size()), rect);
        if (!m_c.palette.dark)
            plate(*item->image, box, rect);
        image(m_p, *item->image, box);
        return;
    }
    const double side = std::min(rect.height() - 4, 18.0);
    const QRectF box(rect.center().x() - side / 2, rect.center().y() - side / 2, side, side);
    if (pictured) {
        image(m_p, *item->image, box.adjusted(-1, -1, 1, 1));
        return;
    }
    itemMark(m_c, tile, box, m_c.palette.primaryText());
}

// Pictures of menu-bar items are white glyphs: over the light glass they sit on a chip of
// the menu bar's colour, as in the panel. The chip hugs what the picture draws (items leave
// room of their own around their glyphs) and is never narrower than tall, so pictures of
// every width get chips alike.
void BarStylePainter::plate(const QImage& picture, const QRectF& box, const QRectF& cell)
{
    const QRectF ink = m_c.cache ? m_c.cache->inkBounds(picture) : PaintCache::measureInk(picture);
    if (ink.isEmpty())
        return;
    const QRectF room = cell.adjusted(1, 1, -1, -1);
    const QRectF drawn(box.left() + ink.left() * box.width(), box.top() + ink.top() * box.height(),
                       ink.width() * box.width(), ink.height() * box.height());
    const double height = std::min(drawn.height() + 8, room.height());
    const double width = std::min(std::max(drawn.width() + 8, height), room.width());
    const QPointF centre(
        std::clamp(drawn.center().x(), room.left() + width / 2, room.right() - width / 2),
        std::clamp(drawn.center().y(), room.top() + height / 2, room.bottom() - height / 2));
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(QColor(58, 58, 64, 190));
    m_p.drawRoundedRect(QRectF(centre.x() - width / 2, centre.y() - height / 2, width, height),
                        cellRadius, cellRadius);
}

// A statistic as a compact chip: its name, then its figure with the unit. A name the chip
// cannot hold whole ("Memory", "Arbeitsspeicher") gives way to the statistic's symbol: a cut
// word reads worse than a picture, and a screen reader still says the name.
void BarStylePainter::chip(const PanelTile& tile, const QRectF& rect)
{
    const QRectF face = rect.adjusted(0, 1, 0, -1);
    const double radius = face.height() / 2;
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(m_c.palette.glass(face, 20));
    m_p.drawRoundedRect(face, radius, radius);
    const QRectF inner = face.adjusted(8, 0, -8, 0);
    const QFont value = fontOf(m_c, 11, QFont::DemiBold);
    if (tile.kind == TileKind::Network) {
        figures(m_c, inner, tile.detail.isEmpty() ? tile.subtitle : tile.detail,
                fontOf(m_c, 10.5, QFont::Medium), m_c.palette.primaryText(), Qt::AlignHCenter);
        return;
    }
    const QString figure = tile.subtitle;
    const double figureWidth = std::min(inner.width() * 0.6,
                                        QFontMetricsF(value).horizontalAdvance(figure) + 1);
    const QRectF figureBox(m_rtl ? inner.left() : inner.right() - figureWidth, inner.top(),
                           figureWidth, inner.height());
    const QRectF labelBox(m_rtl ? inner.left() + figureWidth + 4 : inner.left(), inner.top(),
                          inner.width() - figureWidth - 4, inner.height());
    // Every chip says what it counts by its symbol, so the row reads alike in every language
    // and no name is ever cut; a screen reader and the tool tip still say the name.
    if (tile.symbol.isEmpty()) {
        text(m_c, labelBox, tile.label, fontOf(m_c, 10.5), m_c.palette.secondaryText(),
             m_rtl ? Qt::AlignRight : Qt::AlignLeft);
    } else {
        const double side = 14;
        const QRectF mark(m_rtl ? labelBox.right() - side : labelBox.left(),
                          labelBox.center().y() - side / 2, side, side);
        symbol(m_c, mark, tile.symbol, m_c.palette.secondaryText());
    }
    figures(m_c, figureBox, figure, value,
            tile.accent ? tile.accent->lighter(m_c.palette.dark ? 130 : 90)
                        : m_c.palette.primaryText(),
            m_rtl ? Qt::AlignLeft : Qt::AlignRight);
}

// A blue dot at the top trailing corner: the item arrived within the last day; an orange
// dot at the top leading corner: it changed while hidden and has not been seen since; an
// orange pin at the bottom trailing corner: it was set to stay in the menu bar but is out of
// sight.
void BarStylePainter::marks(const PanelTile& tile, const QRectF& rect)
{
    if (tile.changed) {
        const double side = 6;
        const double x = m_rtl ? rect.right() - side - 1 : rect.left() + 1;
        m_p.setPen(QPen(QColor(255, 255, 255, 200), 0.75));
        m_p.setBrush(Theme::systemOrange());
        m_p.drawEllipse(QRectF(x, rect.top() + 1, side, side));
    }
    if (tile.isNew) {
        const double side = 5;
        const double x = m_rtl ? rect.left() + 1 : rect.right() - side - 1;
        m_p.setPen(QPen(QColor(0, 0, 0, 70), 0.75));
        m_p.setBrush(Theme::systemBlue());
        m_p.drawEllipse(QRectF(x, rect.top() + 1, side, side));
    }
    if (tile.placedInBar) {
        const double side = 8;
        const double x = m_rtl ? rect.left() : rect.right() - side;
        symbol(m_c, QRectF(x, rect.bottom() - side, side, side), QStringLiteral("pin.fill"),
               Theme::systemOrange());
    }
}

// Where a dragged picture would land: a blue bar on the leading side of the cell it is over.
void BarStylePainter::dropMark(const QRectF& rect)
{
    const double x = m_rtl ? rect.right() + 0.5 : rect.left() - 2.5;
    m_p.save();
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(Theme::systemBlue());
    m_p.drawRoundedRect(QRectF(x, rect.top() + 1, 2, rect.height() - 2), 1, 1);
    m_p.restore();
}

void BarStylePainter::divider(const QRectF& rect)
{
    m_p.fillRect(rect, m_c.palette.ink(48));
}

void BarStylePainter::searchField(const QString& query, const QRectF& rect, QStringList* painted)
{
    m_c.painted = painted;
    m_p.save();
    const double radius = rect.height() / 2;
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(m_c.palette.glass(rect, 26));
    m_p.drawRoundedRect(rect, radius, radius);
    const double glass = std::min(12.0, rect.height() - 6);
    const double glassX = m_rtl ? rect.right() - 7 - glass : rect.left() + 7;
    symbol(m_c, QRectF(glassX, rect.center().y() - glass / 2, glass, glass),
           QStringLiteral("magnifyingglass"), m_c.palette.secondaryText());
    const QFont font = fontOf(m_c, 11.5);
    const QRectF textRect = m_rtl ? rect.adjusted(8, 0, -(glass + 12), 0)
                                  : rect.adjusted(glass + 12, 0, -8, 0);
    text(m_c, textRect, query, font, m_c.palette.primaryText(),
         m_rtl ? Qt::AlignRight : Qt::AlignLeft);
    // The caret stands after the text, on the side the text runs to.
    const double advance =
        std::min(QFontMetricsF(font).horizontalAdvance(query), textRect.width());
    const double caretX = m_rtl ? textRect.right() - advance - 2 : textRect.left() + advance + 1;
    m_p.fillRect(QRectF(caretX, rect.top() + 4, 1.25, rect.height() - 8), Theme::systemBlue());
    m_p.restore();
    m_c.painted = nullptr;
}

void BarStylePainter::emptyNote(const QString& note, const QRectF& rect)
{
    text(m_c, rect.adjusted(4, 0, -4, 0), note, fontOf(m_c, 11.5), m_c.palette.secondaryText(),
         Qt::AlignHCenter);
}

void BarStylePainter::footnoteMark(const QRectF& rect, const TileState& state)
{
    TilePainter(m_p, TileStyle::Bar, m_rtl, m_c.cache, m_c.palette)
        .roundButton(rect, state, QStringLiteral("info.circle"), 3);
}

void BarStylePainter::settingsButton(const QRectF& rect, const TileState& state)
{
    TilePainter(m_p, TileStyle::Bar, m_rtl, m_c.cache, m_c.palette).settingsButton(rect, state);
}

} // namespace ravlin
