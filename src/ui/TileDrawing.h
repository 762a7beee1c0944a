#pragma once

#include "TilePainter.h"

#include <QFont>

class QImage;

// The strokes every painter of the panel draws with: texts (shaped once through the paint
// cache and noted as drawn), symbols, pictures and an item's mark.
namespace ravlin::TileDrawing {

using Canvas = TilePainter::Canvas;

QFont fontOf(Canvas& c, double pointSize, QFont::Weight weight = QFont::Normal);
double pixelRatio(const QPainter& p);
// A symbol, from the cache where there is one; false for a symbol that does not exist.
bool symbol(Canvas& c, const QRectF& rect, const QString& name, const QColor& colour);
// One line of text, elided at its end, in its own reading direction. Alignment is absolute:
// callers have already chosen the side for the reading direction.
void text(Canvas& c, const QRectF& rect, const QString& s, const QFont& font, const QColor& colour,
          Qt::Alignment align);
// Figures, rates and temperatures read left to right in every language.
void figures(Canvas& c, const QRectF& rect, const QString& s, const QFont& font,
             const QColor& colour, Qt::Alignment align);
// A size scaled to fit the box, centred in it.
QRectF fitted(const QSizeF& size, const QRectF& box);
void image(QPainter& p, const QImage& img, const QRectF& box);
// A captured image of the item when there is one, else its symbol, else its initial.
void itemMark(Canvas& c, const PanelTile& tile, const QRectF& box, const QColor& colour);

} // namespace ravlin::TileDrawing
