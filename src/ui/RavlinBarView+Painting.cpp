// Painting: only what is in sight, tile by tile (TilePainter for the panel, BarStylePainter
// for the bar's row), then the footer with the gear, the dragged tile and the scroller.
#include "RavlinBarView.h"

#include "BarStylePainter.h"
#include "TilePainter.h"

#include <QPainter>

#include <algorithm>

namespace ravlin {

void RavlinBarView::paintEvent(QPaintEvent*)
{
    m_painted.clear();
    QPainter painter(this);
    painter.setClipRect(viewport());
    painter.translate(-contentOrigin());
    const QRectF inSight = visibleContent();
    if (isRow())
        paintRow(painter, inSight);
    else
        paintPanel(painter, inSight);
    painter.translate(contentOrigin());
    painter.setClipRect(rect());
    paintFooter(painter);
    if (m_dragging) {
        painter.translate(-contentOrigin());
        paintDragged(painter);
        painter.translate(contentOrigin());
    }
    paintScroller(painter);
}

TileState RavlinBarView::stateOf(const QString& key, TileKind kind,
                                 const std::optional<QString>& under) const
{
    TileState state;
    state.hovered = m_hover == key && !m_dragging;
    state.pressed = m_pressed == key && !m_dragging && m_hover == key;
    state.lifted = m_dragging && m_pressed == key;
    state.dropTarget = m_dragging && under == key && kind == TileKind::Item && m_pressed != key;
    state.focused = m_focusShown && m_focus == key && !m_dragging;
    return state;
}

void RavlinBarView::paintPanel(QPainter& painter, const QRectF& inSight)
{
    TilePainter tiles(painter, m_style, isRightToLeft(), m_paintCache, m_palette);
    for (const PanelLayout::PlacedHeader& h : m_layout.headers)
        if (h.rect.intersects(inSight))
            tiles.header(m_sections[h.section].title.value_or(QString()), h.rect);
    if (m_layout.searchField && m_layout.searchField->intersects(inSight))
        tiles.searchField(m_request.query, *m_layout.searchField,
                          &m_painted[QStringLiteral("search")]);
    if (m_layout.emptyNote && m_layout.emptyNote->intersects(inSight))
        tiles.emptyNote(emptyText(), *m_layout.emptyNote);
    if (m_layout.footnote && m_layout.footnote->intersects(inSight))
        tiles.footnote(m_request.footnote, *m_layout.footnote);
    const std::optional<QString> under = m_dragging ? keyAt(m_pointer) : std::nullopt;
    for (const PanelLayout::PlacedTile& p : m_layout.tiles) {
        if (!p.rect.intersects(inSight))
            continue;
        const PanelTile& t = tileOf(p);
        tiles.tile(t, p.rect, stateOf(t.key, t.kind, under), &m_painted[t.key]);
    }
}

void RavlinBarView::paintRow(QPainter& painter, const QRectF& inSight)
{
    BarStylePainter row(painter, isRightToLeft(), m_paintCache, m_palette);
    for (const QRectF& d : m_layout.dividers)
        if (d.intersects(inSight))
            row.divider(d);
    if (m_layout.searchField && m_layout.searchField->intersects(inSight))
        row.searchField(m_request.query, *m_layout.searchField,
                        &m_painted[QStringLiteral("search")]);
    if (m_layout.emptyNote && m_layout.emptyNote->intersects(inSight))
        row.emptyNote(emptyText(), *m_layout.emptyNote);
    const std::optional<QString> under = m_dragging ? keyAt(m_pointer) : std::nullopt;
    for (const PanelLayout::PlacedTile& p : m_layout.tiles) {
        if (!p.rect.intersects(inSight))
            continue;
        const PanelTile& t = tileOf(p);
        row.cell(t, p.rect, stateOf(t.key, t.kind, under), &m_painted[t.key]);
    }
}

// The footer: the gear at the panel's bottom trailing corner (the bar's trailing end), and a
// hairline between it and the content while content scrolls underneath.
void RavlinBarView::paintFooter(QPainter& painter)
{
    const std::optional<QRectF> gear = pinnedSettingsButton();
    if (!gear)
        return;
    if (maximumScroll() > 0) {
        const QRectF footer = footerArea();
        const QRectF hairline =
            !isRow() ? QRectF(PanelLayout::padding, footer.top(),
                              width() - 2 * PanelLayout::padding, 0.5)
                     : QRectF(isRightToLeft() ? footer.right() - 0.5 : footer.left(),
                              height() / 4, 0.5, height() / 2);
        painter.fillRect(hairline, m_palette.ink(30));
    }
    TileState state;
    state.hovered = m_hover == settingsKey;
    state.pressed = m_pressed == settingsKey && state.hovered;
    state.focused = m_focusShown && m_focus == settingsKey;
    if (isRow()) {
        BarStylePainter row(painter, isRightToLeft(), m_paintCache, m_palette);
        row.settingsButton(*gear, state);
        if (const std::optional<QRectF> note = pinnedFootnoteMark()) {
            TileState noteState;
            noteState.hovered = m_hover == footnoteKey;
            noteState.pressed = m_pressed == footnoteKey && noteState.hovered;
            noteState.focused = m_focusShown && m_focus == footnoteKey;
            row.footnoteMark(*note, noteState);
        }
    } else
        TilePainter(painter, m_style, isRightToLeft(), m_paintCache, m_palette)
            .settingsButton(*gear, state);
}

// The dragged tile follows the pointer.
void RavlinBarView::paintDragged(QPainter& painter)
{
    const PanelLayout::PlacedTile* p = m_pressed ? placed(*m_pressed) : nullptr;
    if (!p)
        return;
    TileState state;
    state.hovered = true;
    state.floating = true;
    const QRectF at = p->rect.translated(m_pointer - m_pressPoint);
    if (isRow())
        BarStylePainter(painter, isRightToLeft(), m_paintCache, m_palette)
            .cell(tileOf(*p), at, state);
    else
        TilePainter(painter, m_style, isRightToLeft(), m_paintCache, m_palette)
            .tile(tileOf(*p), at, state);
}

// A thin overlay scroller, as the system draws one, whenever the content does not fit: on the
// panel's trailing edge, under the bar's row. It says that there is more, and how much.
void RavlinBarView::paintScroller(QPainter& painter)
{
    const double hidden = maximumScroll();
    if (hidden <= 0)
        return;
    const QRectF port = viewport();
    const double pad = isRow() ? 4.0 : PanelLayout::padding;
    const double track = (isRow() ? port.width() : port.height()) - 1.5 * pad;
    const double thumb = std::max(24.0, track * viewExtent() / contentExtent());
    const double along = pad + (track - thumb) * (m_scroll / hidden);
    const double thickness = isRow() ? 3 : 4, inset = isRow() ? 1.5 : 4;
    QRectF r;
    if (!isRow())
        r = QRectF(isRightToLeft() ? inset : width() - inset - thickness, along, thickness, thumb);
    else if (!isRightToLeft())
        r = QRectF(port.left() + along, height() - inset - thickness, thumb, thickness);
    else
        r = QRectF(port.right() - along - thumb, height() - inset - thickness, thumb, thickness);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_palette.ink(92));
    painter.drawRoundedRect(r, thickness / 2, thickness / 2);
    painter.restore();
}

} // namespace ravlin
