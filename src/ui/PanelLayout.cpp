#include "PanelLayout.h"

#include "core/tiles/TileFlow.h"

#include <algorithm>

namespace ravlin {
namespace {

constexpr double rowGap = 8;   // dashboard and capsules, both directions
constexpr double stackGap = 6; // weather header and permission tiles
constexpr double stripGap = 3; // between strip rows
constexpr double gridGap = 7;  // the grid's flow, both directions
constexpr double gridColumns = 4;
constexpr double gridHeight = 72;
constexpr double emptyNoteHeight = 34;
constexpr double footnoteLineHeight = 15; // a line of small text

double heightOf(const PanelTile& tile, TileStyle style)
{
    switch (tile.kind) {
    case TileKind::Weather:
        return tile.asksForAccess ? 40 : 58;
    case TileKind::Permission:
        return 48;
    default:
        break;
    }
    switch (style) {
    case TileStyle::Dashboard:
        return tile.kind == TileKind::Stat ? 62 : 50;
    case TileStyle::Capsules:
        return 40;
    case TileStyle::Grid:
        return gridHeight;
    case TileStyle::Strip:
    case TileStyle::Bar: // laid out by BarStyleLayout; a strip row where asked here
        return 28;
    }
    return 40;
}

bool fullWidth(const PanelTile& tile)
{
    return tile.content && isFullWidth(*tile.content);
}

class Builder {
public:
    Builder(TileStyle style, double width)
        : m_style(style), m_inner(width - 2 * PanelLayout::padding)
    {
        m_y = PanelLayout::padding;
    }

    void section(std::size_t s, const PanelSection& section, PanelLayout& out)
    {
        if (m_started)
            m_y += PanelLayout::sectionGap;
        m_started = true;
        if (section.title) {
            out.headers.push_back({s, QRectF(x0(), m_y, m_inner, PanelLayout::headerHeight)});
            m_y += PanelLayout::headerHeight + PanelLayout::headerGap;
        }
        if (!section.arranged)
            stack(s, section, stackGap, out);
        else if (m_style == TileStyle::Strip)
            stack(s, section, stripGap, out);
        else if (m_style == TileStyle::Grid)
            flow(s, section, out);
        else
            rows(s, section, out);
    }

    void emptyNote(PanelLayout& out)
    {
        if (m_started)
            m_y += PanelLayout::sectionGap;
        m_started = true;
        out.emptyNote = QRectF(x0(), m_y, m_inner, emptyNoteHeight);
        m_y += emptyNoteHeight;
    }

    // Never lower than two lines, so a short note keeps the room it always had.
    void footnote(PanelLayout& out, int lines)
    {
        const double height = footnoteLineHeight * std::max(2, lines);
        m_y += m_started ? PanelLayout::headerGap : 0;
        m_started = true;
        out.footnote = QRectF(x0(), m_y, m_inner, height);
        m_y += height;
    }

    void searchField(PanelLayout& out)
    {
        out.searchField = QRectF(x0(), m_y, m_inner, PanelLayout::searchFieldHeight);
        m_y += PanelLayout::searchFieldHeight;
        m_started = true;
    }

    void settingsButton(PanelLayout& out)
    {
        const double contentEnd = m_y;
        m_y += m_started ? PanelLayout::headerGap : 0;
        m_started = true;
        const double size = PanelLayout::settingsButtonSize;
        out.settingsButton = QRectF(x0() + m_inner - size, m_y, size, size);
        m_y += size;
        out.footerHeight = height() - contentEnd;
    }

    double height() const
    {
        return m_started ? m_y + PanelLayout::padding : 2 * PanelLayout::padding;
    }

private:
    double x0() const { return PanelLayout::padding; }

    void stack(std::size_t s, const PanelSection& section, double gap, PanelLayout& out)
    {
        for (std::size_t i = 0; i < section.tiles.size(); ++i) {
            const double h = heightOf(section.tiles[i], m_style);
            out.tiles.push_back({s, i, QRectF(x0(), m_y, m_inner, h)});
            m_y += h + (i + 1 < section.tiles.size() ? gap : 0);
        }
    }

    void flow(std::size_t s, const PanelSection& section, PanelLayout& out)
    {
        const double cell = (m_inner - (gridColumns - 1) * gridGap) / gridColumns;
        std::vector<QSizeF> ideal;
        for (const PanelTile& tile : section.tiles)
            ideal.emplace_back(fullWidth(tile) ? 2 * cell + gridGap : cell, gridHeight);
        const TileFlow grid{gridGap, gridGap};
        const QRectF bounds(x0(), m_y, m_inner, 0);
        const std::vector<QPointF> at = grid.placeSubviews(bounds, ideal);
        for (std::size_t i = 0; i < at.size(); ++i)
            out.tiles.push_back({s, i, QRectF(at[i], ideal[i])});
        m_y += grid.sizeThatFits(m_inner, ideal).height();
    }

    void rows(std::size_t s, const PanelSection& section, PanelLayout& out)
    {
        std::vector<std::size_t> indices(section.tiles.size());
        for (std::size_t i = 0; i < indices.size(); ++i)
            indices[i] = i;
        const auto packed =
            packRows(indices, [&](std::size_t i) { return fullWidth(section.tiles[i]); });
        const double half = (m_inner - rowGap) / 2;
        for (std::size_t r = 0; r < packed.size(); ++r) {
            double rowHeight = 0;
            for (std::size_t i : packed[r])
                rowHeight = std::max(rowHeight, heightOf(section.tiles[i], m_style));
            double x = x0();
            for (std::size_t i : packed[r]) {
                const double w = fullWidth(section.tiles[i]) ? m_inner : half;
                out.tiles.push_back({s, i, QRectF(x, m_y, w, rowHeight)});
                x += w + rowGap;
            }
            m_y += rowHeight + (r + 1 < packed.size() ? rowGap : 0);
        }
    }

    TileStyle m_style;
    double m_inner;
    double m_y = 0;
    bool m_started = false;
};

QRectF mirrored(const QRectF& r, double width)
{
    return QRectF(width - r.x() - r.width(), r.y(), r.width(), r.height());
}

} // namespace

PanelLayout PanelLayout::make(const std::vector<PanelSection>& sections, TileStyle style,
                              double width, bool rightToLeft, bool noteEmpty, int footnoteLines,
                              bool withSearchField, bool withSettingsButton)
{
    PanelLayout out;
    Builder builder(style, width);
    if (withSearchField)
        builder.searchField(out);
    bool notePlaced = false;
    for (std::size_t s = 0; s < sections.size(); ++s) {
        // The note stands where the item sections would, above the permission tiles.
        if (noteEmpty && !notePlaced && !sections[s].title && !sections[s].tiles.empty() &&
            sections[s].tiles.front().kind == TileKind::Permission) {
            builder.emptyNote(out);
            notePlaced = true;
        }
        builder.section(s, sections[s], out);
    }
    if (noteEmpty && !notePlaced)
        builder.emptyNote(out);
    if (footnoteLines > 0)
        builder.footnote(out, footnoteLines);
    if (withSettingsButton)
        builder.settingsButton(out);
    out.height = builder.height();
    if (rightToLeft) {
        for (PlacedTile& t : out.tiles)
            t.rect = mirrored(t.rect, width);
        for (PlacedHeader& h : out.headers)
            h.rect = mirrored(h.rect, width);
        if (out.emptyNote)
            out.emptyNote = mirrored(*out.emptyNote, width);
        for (std::optional<QRectF>* part :
             {&out.footnote, &out.searchField, &out.settingsButton})
            if (*part)
                *part = mirrored(**part, width);
    }
    return out;
}

double PanelLayout::preferredHeight(TileStyle style) const
{
    return style == TileStyle::Strip ? std::min(height, stripMaximumHeight) : height;
}

const PanelLayout::PlacedTile* PanelLayout::tileAt(const QPointF& point) const
{
    for (const PlacedTile& tile : tiles)
        if (tile.rect.contains(point))
            return &tile;
    return nullptr;
}

} // namespace ravlin
