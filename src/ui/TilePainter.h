#pragma once

#include "PanelPalette.h"
#include "core/settings/TileStyle.h"
#include "core/tiles/PanelSection.h"

#include <QRectF>
#include <QStringList>

class QPainter;

namespace ravlin {

class PaintCache;

// How a tile is being touched right now.
struct TileState {
    bool hovered = false;
    bool pressed = false;
    bool dropTarget = false; // a dragged tile would land in front of this one
    bool lifted = false;     // this tile is being dragged away from here
    bool floating = false;   // the dragged copy under the pointer
    bool focused = false;    // the keyboard's focus ring
};

// Paints the parts of the tile panel, one tile at a time, in the panel's HUD look,
// dark or light as the system is. Right to left mirrors the inside of every tile as well.
class TilePainter {
public:
    // The painter, and where the texts drawn through it are noted: the sandbox and the
    // tests must see what really reached the screen, not what the model says.
    struct Canvas {
        QPainter& p;
        QStringList* painted = nullptr;
        PaintCache* cache = nullptr; // fonts, shaped lines and symbols made once
        PanelPalette palette;        // the system's light or dark appearance
    };

    TilePainter(QPainter& painter, TileStyle style, bool rightToLeft, PaintCache* cache = nullptr,
                PanelPalette palette = {});

    // Paints one tile; every text it draws, as drawn (elided where it had to be), is
    // appended to `painted` when one is given.
    void tile(const PanelTile& tile, const QRectF& rect, const TileState& state,
              QStringList* painted = nullptr);
    void header(const QString& title, const QRectF& rect);
    void emptyNote(const QString& text, const QRectF& rect);
    void footnote(const QString& text, const QRectF& rect);
    // How many lines the note takes when wrapped in a footnote that wide.
    static int footnoteLines(const QString& text, double width, PaintCache* cache);
    // The field that shows what the user typed, with its caret; the text is noted.
    void searchField(const QString& query, const QRectF& rect, QStringList* painted = nullptr);
    // The small gear that opens the settings window.
    void settingsButton(const QRectF& rect, const TileState& state);
    // A small round button of one symbol, lit under the pointer, ringed with the focus.
    void roundButton(const QRectF& rect, const TileState& state, const QString& symbolName,
                     double inset);
    // The keyboard's focus ring around a part of the panel with that corner radius.
    void focusRing(const QRectF& rect, double radius);
    double cornerRadius(const PanelTile& tile, const QRectF& rect) const;

private:
    void weather(const PanelTile& tile, const QRectF& rect);
    void permission(const PanelTile& tile, const QRectF& rect);
    void dashboard(const PanelTile& tile, const QRectF& rect);
    void capsule(const PanelTile& tile, const QRectF& rect);
    void gridCell(const PanelTile& tile, const QRectF& rect);
    void stripRow(const PanelTile& tile, const QRectF& rect);
    void newMark(const QRectF& rect, double radius);
    void changedMark(const QRectF& rect, double radius);
    void placedMark(const QRectF& rect, double radius, bool besideNewMark);
    void face(const QRectF& rect, double radius, int fill, bool dropTarget);

    QPainter& m_p;
    Canvas m_c;
    TileStyle m_style;
    bool m_rtl;
};

} // namespace ravlin
