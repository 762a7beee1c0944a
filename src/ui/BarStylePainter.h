#pragma once

#include "PanelPalette.h"
#include "TilePainter.h"

class QImage;
class QPainter;

namespace ravlin {

class PaintCache;

// Paints the bar style: the hidden items' pictures as the menu bar shows them (no tile
// faces, a highlight under the pointer as the menu bar gives), statistics as compact
// chips, the hairlines between sections, the search field, the note of an empty bar and
// the gear. Right to left mirrors the inside of a chip as well.
class BarStylePainter {
public:
    static constexpr double cellRadius = 5;

    BarStylePainter(QPainter& painter, bool rightToLeft, PaintCache* cache = nullptr,
                    PanelPalette palette = {});

    // One cell of the row; every text it draws, as drawn, goes to `painted` when given.
    void cell(const PanelTile& tile, const QRectF& rect, const TileState& state,
              QStringList* painted = nullptr);
    void divider(const QRectF& rect);
    void searchField(const QString& query, const QRectF& rect, QStringList* painted = nullptr);
    void emptyNote(const QString& text, const QRectF& rect);
    void settingsButton(const QRectF& rect, const TileState& state);
    // The panel's note, folded to a mark the size of the gear.
    void footnoteMark(const QRectF& rect, const TileState& state);

private:
    void highlight(const QRectF& rect, const TileState& state);
    void picture(const PanelTile& tile, const QRectF& rect);
    void plate(const QImage& picture, const QRectF& box, const QRectF& cell);
    void chip(const PanelTile& tile, const QRectF& rect);
    void marks(const PanelTile& tile, const QRectF& rect);
    void dropMark(const QRectF& rect);

    QPainter& m_p;
    TilePainter::Canvas m_c;
    bool m_rtl;
};

} // namespace ravlin
