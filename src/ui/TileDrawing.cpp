#include "TileDrawing.h"

#include "PaintCache.h"
#include "SymbolRenderer.h"
#include "Theme.h"

#include <QImage>
#include <QPaintDevice>
#include <QPainter>

namespace ravlin::TileDrawing {
namespace {

// The shaped line from the cache, placed as drawText would place it.
void cachedText(Canvas& c, const QRectF& rect, const QString& s, const QFont& font,
                const QColor& colour, Qt::Alignment align)
{
    const PaintCache::Line& line = c.cache->line(s, font, rect.width(), s.isRightToLeft());
    double x = rect.left();
    if (align & Qt::AlignRight)
        x = rect.right() - line.size.width();
    else if (align & Qt::AlignHCenter)
        x = rect.center().x() - line.size.width() / 2;
    c.p.setFont(font);
    c.p.setPen(colour);
    c.p.drawStaticText(QPointF(x, rect.center().y() - line.size.height() / 2), line.text);
    if (c.painted && !line.shown.isEmpty())
        c.painted->append(line.shown);
}

} // namespace

QFont fontOf(Canvas& c, double pointSize, QFont::Weight weight)
{
    return c.cache ? c.cache->font(pointSize, weight) : Theme::font(pointSize, weight);
}

double pixelRatio(const QPainter& p)
{
    return p.device() ? p.device()->devicePixelRatioF() : 1.0;
}

// Rendering a glyph of the icon font costs more than copying its picture.
bool symbol(Canvas& c, const QRectF& rect, const QString& name, const QColor& colour)
{
    if (!c.cache)
        return SymbolRenderer::paint(c.p, rect, name, colour);
    const double side = rect.height();
    const QPixmap& picture = c.cache->symbol(name, side, colour, pixelRatio(c.p));
    if (picture.isNull())
        return false;
    c.p.drawPixmap(QPointF(rect.center().x() - side / 2, rect.top()), picture);
    return true;
}

void text(Canvas& c, const QRectF& rect, const QString& s, const QFont& font, const QColor& colour,
          Qt::Alignment align)
{
    if (s.isEmpty())
        return;
    if (c.cache) {
        cachedText(c, rect, s, font, colour, align);
        return;
    }
    c.p.setFont(font);
    c.p.setPen(colour);
    const QString shown = c.p.fontMetrics().elidedText(s, Qt::ElideRight, int(rect.width()));
    // Each text is laid out in its own direction, so that a Latin name in a right-to-left
    // panel is cut at its own end.
    const Qt::LayoutDirection direction = c.p.layoutDirection();
    c.p.setLayoutDirection(s.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight);
    c.p.drawText(rect, int(align | Qt::AlignVCenter | Qt::AlignAbsolute) | Qt::TextSingleLine,
                 shown);
    c.p.setLayoutDirection(direction);
    if (c.painted && !shown.isEmpty())
        c.painted->append(shown);
}

void figures(Canvas& c, const QRectF& rect, const QString& s, const QFont& font,
             const QColor& colour, Qt::Alignment align)
{
    const Qt::LayoutDirection direction = c.p.layoutDirection();
    c.p.setLayoutDirection(Qt::LeftToRight);
    text(c, rect, s, font, colour, align);
    c.p.setLayoutDirection(direction);
}

QRectF fitted(const QSizeF& size, const QRectF& box)
{
    const QSizeF s = size.scaled(box.size(), Qt::KeepAspectRatio);
    return {box.center().x() - s.width() / 2, box.center().y() - s.height() / 2, s.width(),
            s.height()};
}

void image(QPainter& p, const QImage& img, const QRectF& box)
{
    const QSizeF logical = img.deviceIndependentSize();
    p.save();
    p.setRenderHint(QPainter::SmoothPixmapTransform);
    p.drawImage(fitted(logical, box), img);
    p.restore();
}

void itemMark(Canvas& c, const PanelTile& tile, const QRectF& box, const QColor& colour)
{
    const BarItem* item = tile.content ? std::get_if<BarItem>(&*tile.content) : nullptr;
    if (item && item->image && !item->image->isNull()) {
        image(c.p, *item->image, box);
        return;
    }
    if (!tile.symbol.isEmpty() && symbol(c, box, tile.symbol, colour))
        return;
    const QString initial = tile.label.trimmed().left(1).toUpper();
    text(c, box, initial, fontOf(c, box.height() * 0.72, QFont::Bold), colour, Qt::AlignHCenter);
}

} // namespace ravlin::TileDrawing
