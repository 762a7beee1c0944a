#include "BarStyleLayout.h"

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

class RowBuilder {
public:
    explicit RowBuilder(double barHeight) : m_height(std::max(barHeight, BarStyleLayout::lowestBar))
    {}

    QRectF cell(double width)
    {
        gap(BarStyleLayout::cellGap);
        const QRectF r(m_x, BarStyleLayout::inset, width, m_height - 2 * BarStyleLayout::inset);
        m_x += width;
        m_started = true;
        return r;
    }

    // A hairline between two sections, in the middle of the gap and half the row high.
    QRectF divider()
    {
        const double x = m_x + BarStyleLayout::sectionGap / 2;
        m_x += BarStyleLayout::sectionGap;
        m_afterDivider = true;
        return QRectF(x - 0.25, m_height / 4, 0.5, m_height / 2);
    }

    bool started() const { return m_started; }
    double x() const { return m_x; }
    double height() const { return m_height; }
    void advance(double by) { m_x += by; }

private:
    void gap(double width)
    {
        if (m_started && !m_afterDivider)
            m_x += width;
        m_afterDivider = false;
    }

    double m_height;
    double m_x = BarStyleLayout::padding;
    bool m_started = false;
    bool m_afterDivider = false;
};

QRectF mirrored(const QRectF& r, double width)
{
    return QRectF(width - r.x() - r.width(), r.y(), r.width(), r.height());
}

} // namespace

double BarStyleLayout::cellWidth(const PanelTile& tile)
{
    switch (tile.kind) {
    case TileKind::Network:
        return networkChipWidth;
    case TileKind::Stat:
    case TileKind::Weather:
    case TileKind::Permission:
        return chipWidth;
    case TileKind::Item:
        break;
    }
    const BarItem* item = tile.content ? std::get_if<BarItem>(&*tile.content) : nullptr;
    const bool pictured = item && item->image && !item->image->isNull();
    // A picture of the item itself is as wide as the item stands in the menu bar; an
    // application's icon or a symbol takes a square of its own.
    if (!pictured || item->imageIsApplicationIcon || item->info.width <= 0)
        return markCell;
    return std::clamp(std::round(item->info.width), smallestCell, widestCell);
}

PanelLayout BarStyleLayout::make(const std::vector<PanelSection>& sections, double barHeight,
                                 bool rightToLeft, bool noteEmpty, bool withSearchField,
                                 bool withSettingsButton, bool withFootnote)
{
    PanelLayout out;
    out.horizontal = true;
    RowBuilder row(barHeight);
    if (withSearchField) {
        out.searchField = row.cell(searchFieldWidth);
        row.advance(cellGap * 2);
    }
    for (std::size_t s = 0; s < sections.size(); ++s) {
        if (sections[s].tiles.empty())
            continue;
        if (row.started() && !out.tiles.empty())
            out.dividers.push_back(row.divider());
        for (std::size_t i = 0; i < sections[s].tiles.size(); ++i)
            out.tiles.push_back({s, i, row.cell(cellWidth(sections[s].tiles[i]))});
    }
    if (noteEmpty)
        out.emptyNote = row.cell(emptyNoteWidth);
    const double contentEnd = row.x();
    const double size = std::min(settingsButtonSize, row.height() - 2 * inset);
    if (withFootnote) {
        row.advance(cellGap * 2);
        out.footnote = QRectF(row.x(), (row.height() - size) / 2, size, size);
        row.advance(size);
    }
    if (withSettingsButton) {
        row.advance(cellGap * 2);
        out.settingsButton = QRectF(row.x(), (row.height() - size) / 2, size, size);
        row.advance(size);
    }
    out.width = std::ceil(row.x() + padding);
    out.footerWidth = withSettingsButton || withFootnote ? out.width - contentEnd : 0;
    out.height = row.height();
    if (rightToLeft) {
        for (PanelLayout::PlacedTile& t : out.tiles)
            t.rect = mirrored(t.rect, out.width);
        for (QRectF& d : out.dividers)
            d = mirrored(d, out.width);
        for (std::optional<QRectF>* part :
             {&out.emptyNote, &out.searchField, &out.settingsButton, &out.footnote})
            if (*part)
                *part = mirrored(**part, out.width);
    }
    return out;
}

} // namespace ravlin
