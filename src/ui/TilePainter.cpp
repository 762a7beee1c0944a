#include "TilePainter.h"

#include "PaintCache.h"
#include "TileDrawing.h"
#include "SymbolRenderer.h"
#include "Theme.h"

#include <QFontMetricsF>
#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

constexpr double footnotePointSize = 10.5;
constexpr double footnoteInset = 4;

// Measures inside a tile from its leading edge, so one description serves both directions.
struct Box {
    QRectF r;
    bool rtl;

    QRectF at(double x, double y, double w, double h) const
    {
        return {rtl ? r.right() - x - w : r.left() + x, r.top() + y, w, h};
    }
    // From x to `trailingInset` short of the trailing edge.
    QRectF span(double x, double y, double trailingInset, double h) const
    {
        return at(x, y, std::max(0.0, r.width() - x - trailingInset), h);
    }
    Qt::Alignment lead() const { return rtl ? Qt::AlignRight : Qt::AlignLeft; }
    Qt::Alignment trail() const { return rtl ? Qt::AlignLeft : Qt::AlignRight; }
};

using Canvas = TilePainter::Canvas;
using namespace TileDrawing;

// Whether the text needs a second line at that width.
bool needsTwoLines(const QString& s, const QFont& font, double width)
{
    return QFontMetricsF(font).horizontalAdvance(s) > width;
}

// Where a text that does not fit on one line breaks: after a word, or anywhere in a
// script written without spaces.
std::pair<QString, QString> breakLine(const QString& s, const QFont& font, double width)
{
    QTextLayout layout(s, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(width);
    layout.endLayout();
    const int length = std::max(1, line.textLength());
    return {s.left(length).trimmed(), s.mid(length).trimmed()};
}

// A text on up to two lines, centred on the rectangle's middle: one that does not fit on one
// line goes on to a second, and only the second is cut. Noted as drawn, the lines joined by
// a line break. Where the rectangle has no room for two lines, the text is cut on one.
void wrappedText(Canvas& c, const QRectF& rect, const QString& s, const QFont& font,
                 const QColor& colour, Qt::Alignment align)
{
    const double lineHeight = QFontMetricsF(font).height();
    if (!needsTwoLines(s, font, rect.width()) || rect.height() < 2 * lineHeight) {
        text(c, rect, s, font, colour, align);
        return;
    }
    const auto [first, rest] = breakLine(s, font, rect.width());
    QStringList* painted = std::exchange(c.painted, nullptr);
    QStringList shown;
    c.painted = &shown;
    const double top = rect.center().y() - lineHeight;
    text(c, QRectF(rect.left(), top, rect.width(), lineHeight), first, font, colour, align);
    text(c, QRectF(rect.left(), top + lineHeight, rect.width(), lineHeight), rest, font, colour,
         align);
    c.painted = painted;
    if (painted)
        painted->append(shown.join(u'\n'));
}

// A figure that must be read whole (a gauge's value and its unit): the font shrinks
// until it fits rather than the text being cut.
void wholeFigures(Canvas& c, const QRectF& rect, const QString& s, double pointSize,
                  QFont::Weight weight, const QColor& colour)
{
    QFont font;
    if (c.cache) {
        font = c.cache->fitting(s, pointSize, weight, rect.width());
    } else {
        for (double size = pointSize; size > 6.5; size -= 0.5) {
            font = Theme::font(size, weight);
            if (QFontMetricsF(font).horizontalAdvance(s) <= rect.width())
                break;
        }
    }
    figures(c, rect.adjusted(-4, 0, 4, 0), s, font, colour, Qt::AlignHCenter);
}

bool hasImage(const PanelTile& tile)
{
    const BarItem* item = tile.content ? std::get_if<BarItem>(&*tile.content) : nullptr;
    return item && item->image && !item->image->isNull();
}

bool hasApplicationIcon(const PanelTile& tile)
{
    const BarItem* item = tile.content ? std::get_if<BarItem>(&*tile.content) : nullptr;
    return item && item->imageIsApplicationIcon && item->image && !item->image->isNull();
}

// The round coloured badge that carries a tile's symbol; captured images sit on a quiet one.
// An application's icon has a shape of its own and stands alone, a little larger.
void disc(Canvas& c, const PanelTile& tile, const QRectF& rect)
{
    QPainter& p = c.p;
    if (hasApplicationIcon(tile)) {
        const double grow = rect.width() * 0.08;
        image(p, *std::get<BarItem>(*tile.content).image, rect.adjusted(-grow, -grow, grow, grow));
        return;
    }
    const bool quiet = hasImage(tile);
    const QColor accent = tile.accent.value_or(Theme::systemBlue());
    p.setPen(Qt::NoPen);
    if (quiet && !c.palette.dark) {
        // Pictures of menu-bar items are white glyphs: a chip of the bar's colour keeps
        // them readable on the light glass.
        p.setBrush(QColor(58, 58, 64, 190));
    } else if (quiet) {
        p.setBrush(c.palette.glass(rect, 26));
    } else {
        QLinearGradient shade(rect.topLeft(), rect.bottomLeft());
        shade.setColorAt(0, accent.lighter(112));
        shade.setColorAt(1, accent);
        p.setBrush(shade);
    }
    p.drawEllipse(rect);
    const double glyph = rect.height() * (quiet ? 0.86 : 0.56);
    const QRectF box(rect.center().x() - glyph / 2, rect.center().y() - glyph / 2, glyph, glyph);
    itemMark(c, tile, box, Qt::white);
}

void ring(QPainter& p, const QRectF& rect, double percent, const QColor& accent, double width)
{
    const QRectF r = rect.adjusted(width / 2, width / 2, -width / 2, -width / 2);
    QColor track = accent;
    track.setAlpha(56);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(track, width, Qt::SolidLine, Qt::RoundCap));
    p.drawEllipse(r);
    const double share = std::clamp(percent, 0.0, 100.0) / 100.0;
    if (share <= 0)
        return;
    p.setPen(QPen(accent, width, Qt::SolidLine, Qt::RoundCap));
    p.drawArc(r, 90 * 16, -int(share * 360 * 16)); // clockwise from twelve o'clock
}

void bar(Canvas& c, const QRectF& rect, double percent, const QColor& accent, bool rtl)
{
    QPainter& p = c.p;
    p.setPen(Qt::NoPen);
    p.setBrush(c.palette.glass(rect, 30));
    const double radius = rect.height() / 2;
    p.drawRoundedRect(rect, radius, radius);
    const double w = rect.width() * std::clamp(percent, 0.0, 100.0) / 100.0;
    if (w <= 0)
        return;
    const QRectF fill(rtl ? rect.right() - w : rect.left(), rect.top(), w, rect.height());
    p.setBrush(accent);
    p.drawRoundedRect(fill, radius, radius);
}

// The owner's name under an item's label, when it says something the label does not.
QString ownerLine(const PanelTile& tile)
{
    const BarItem* item = tile.content ? std::get_if<BarItem>(&*tile.content) : nullptr;
    if (!item || item->info.owner.isEmpty() || item->info.owner == tile.label)
        return {};
    return item->info.owner;
}

} // namespace

TilePainter::TilePainter(QPainter& painter, TileStyle style, bool rightToLeft, PaintCache* cache,
                         PanelPalette palette)
    : m_p(painter), m_c{painter, nullptr, cache, palette}, m_style(style), m_rtl(rightToLeft)
{
    m_p.setRenderHint(QPainter::Antialiasing);
    m_p.setRenderHint(QPainter::TextAntialiasing);
    m_p.setLayoutDirection(rightToLeft ? Qt::RightToLeft : Qt::LeftToRight);
}

double TilePainter::cornerRadius(const PanelTile& tile, const QRectF& rect) const
{
    if (tile.kind == TileKind::Weather || tile.kind == TileKind::Permission)
        return 14;
    switch (m_style) {
    case TileStyle::Capsules:
        return rect.height() / 2;
    case TileStyle::Strip:
        return 9;
    default:
        return 14;
    }
}

void TilePainter::tile(const PanelTile& tile, const QRectF& rect, const TileState& state,
                       QStringList* painted)
{
    m_c.painted = painted;
    m_p.save();
    if (state.lifted)
        m_p.setOpacity(0.35);
    const double radius = cornerRadius(tile, rect);
    if (state.floating) {
        m_p.setPen(Qt::NoPen);
        for (int i = 3; i >= 1; --i) {
            m_p.setBrush(QColor(0, 0, 0, 24));
            m_p.drawRoundedRect(rect.adjusted(-i, 3 - i, i, 3 + i), radius + i, radius + i);
        }
        m_p.setBrush(m_c.palette.dark ? QColor(50, 50, 54) : QColor(250, 250, 252));
        m_p.drawRoundedRect(rect, radius, radius);
    }
    const int fill = state.pressed ? 44 : state.hovered || state.dropTarget ? 32 : 17;
    face(rect, radius, fill, state.dropTarget);
    switch (tile.kind) {
    case TileKind::Weather:
        weather(tile, rect);
        break;
    case TileKind::Permission:
        permission(tile, rect);
        break;
    default:
        switch (m_style) {
        case TileStyle::Dashboard:
            dashboard(tile, rect);
            break;
        case TileStyle::Capsules:
            capsule(tile, rect);
            break;
        case TileStyle::Grid:
            gridCell(tile, rect);
            break;
        case TileStyle::Strip:
        case TileStyle::Bar: // the bar's own painter draws its cells; a strip row elsewhere
            stripRow(tile, rect);
            break;
        }
    }
    if (tile.isNew)
        newMark(rect, radius);
    if (tile.placedInBar)
        placedMark(rect, radius, tile.isNew);
    if (tile.changed)
        changedMark(rect, radius);
    m_p.restore();
    if (state.focused)
        focusRing(rect, radius);
    m_c.painted = nullptr;
}

// A small blue dot in the tile's top trailing corner, clear of the rounding: the item
// arrived in the bar within the last day.
void TilePainter::newMark(const QRectF& rect, double radius)
{
    const double inset = std::max(5.0, radius * 0.45);
    const double side = 7;
    const double x = m_rtl ? rect.left() + inset : rect.right() - inset - side;
    const QRectF dot(x, rect.top() + inset, side, side);
    m_p.setPen(QPen(QColor(0, 0, 0, 70), 1));
    m_p.setBrush(Theme::systemBlue());
    m_p.drawEllipse(dot);
}

// An orange dot in the tile's top leading corner, clear of the marks at the other end: the
// item changed while it was hidden, and the user has not seen it since.
void TilePainter::changedMark(const QRectF& rect, double radius)
{
    const double inset = std::max(5.0, radius * 0.45);
    const double side = 8;
    const double x = m_rtl ? rect.right() - inset - side : rect.left() + inset;
    m_p.setPen(QPen(QColor(255, 255, 255, 200), 1.2));
    m_p.setBrush(Theme::systemOrange());
    m_p.drawEllipse(QRectF(x, rect.top() + inset, side, side));
}

// A pin in the tile's top trailing corner (beside the new dot, when there is one): the user
// set the item to stay in the menu bar, but it is out of sight.
void TilePainter::placedMark(const QRectF& rect, double radius, bool besideNewMark)
{
    const double inset = std::max(4.0, radius * 0.4);
    const double side = 11;
    const double shift = besideNewMark ? 10 : 0;
    const double x = m_rtl ? rect.left() + inset + shift : rect.right() - inset - side - shift;
    symbol(m_c, QRectF(x, rect.top() + inset - 1, side, side), QStringLiteral("pin.fill"),
           Theme::systemOrange());
}

// A tile's fill and its hairline border. The border is filled as a ring rather than
// stroked: stroking curves costs more than the rest of the tile together.
void TilePainter::face(const QRectF& rect, double radius, int fill, bool dropTarget)
{
    QPainter& p = m_p;
    const double edge = dropTarget ? 1.5 : 1;
    const QRectF inner = rect.adjusted(edge, edge, -edge, -edge);
    const double innerRadius = std::max(0.0, radius - edge);
    QPainterPath border;
    border.addRoundedRect(rect, radius, radius);
    border.addRoundedRect(inner, innerRadius, innerRadius);
    p.setPen(Qt::NoPen);
    p.fillPath(border, dropTarget ? QBrush(Theme::systemBlue()) : m_c.palette.glass(rect, 12));
    p.setBrush(m_c.palette.glass(inner, fill));
    p.drawRoundedRect(inner, innerRadius, innerRadius);
}

// The system's keyboard focus ring: the accent colour, a little outside the shape.
void TilePainter::focusRing(const QRectF& rect, double radius)
{
    constexpr double gap = 1.5, width = 2.5;
    const QRectF outer = rect.adjusted(-gap - width, -gap - width, gap + width, gap + width);
    const QRectF inner = rect.adjusted(-gap, -gap, gap, gap);
    QPainterPath ring;
    ring.addRoundedRect(outer, radius + gap + width, radius + gap + width);
    ring.addRoundedRect(inner, radius + gap, radius + gap);
    m_p.save();
    m_p.setRenderHint(QPainter::Antialiasing);
    m_p.fillPath(ring, QColor(10, 132, 255, 210));
    m_p.restore();
}

void TilePainter::searchField(const QString& query, const QRectF& rect, QStringList* painted)
{
    m_c.painted = painted;
    m_p.save();
    const double radius = rect.height() / 2;
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(m_c.palette.glass(rect, 26));
    m_p.drawRoundedRect(rect, radius, radius);
    const Box b{rect, m_rtl};
    symbol(m_c, b.at(10, 7, 14, 14), QStringLiteral("magnifyingglass"),
           m_c.palette.secondaryText());
    const QFont font = fontOf(m_c, 13);
    const QRectF textRect = b.span(30, 0, 12, rect.height());
    text(m_c, textRect, query, font, m_c.palette.primaryText(), b.lead());
    // The caret stands after the text, on the side the text runs to.
    const double advance =
        std::min(QFontMetricsF(font).horizontalAdvance(query), textRect.width());
    const double caretX = m_rtl ? textRect.right() - advance - 2 : textRect.left() + advance + 1;
    m_p.fillRect(QRectF(caretX, rect.top() + 7, 1.5, rect.height() - 14), Theme::systemBlue());
    m_p.restore();
    m_c.painted = nullptr;
}

void TilePainter::settingsButton(const QRectF& rect, const TileState& state)
{
    roundButton(rect, state, QStringLiteral("gearshape"), 4);
}

void TilePainter::roundButton(const QRectF& rect, const TileState& state, const QString& symbolName,
                              double inset)
{
    m_p.save();
    const int fill = state.pressed ? 44 : state.hovered ? 32 : 0;
    if (fill > 0) {
        m_p.setPen(Qt::NoPen);
        m_p.setBrush(m_c.palette.glass(rect, fill));
        m_p.drawEllipse(rect);
    }
    symbol(m_c, rect.adjusted(inset, inset, -inset, -inset), symbolName,
           state.hovered ? m_c.palette.primaryText() : m_c.palette.secondaryText());
    m_p.restore();
    if (state.focused)
        focusRing(rect, rect.height() / 2);
}

void TilePainter::header(const QString& title, const QRectF& rect)
{
    const Box b{rect, m_rtl};
    text(m_c, b.span(4, 0, 4, rect.height()), title, fontOf(m_c, 11, QFont::DemiBold),
         m_c.palette.secondaryText(), b.lead());
}

// Small secondary text, wrapped over up to two lines, in the reading direction.
int TilePainter::footnoteLines(const QString& note, double width, PaintCache* cache)
{
    if (note.isEmpty())
        return 0;
    const QFont font = cache ? cache->font(footnotePointSize, QFont::Normal)
                             : Theme::font(footnotePointSize, QFont::Normal);
    const QFontMetricsF metrics(font);
    const QRectF wrapped = metrics.boundingRect(QRectF(0, 0, width - 2 * footnoteInset, 1e6),
                                                int(Qt::AlignLeft | Qt::TextWordWrap), note);
    return std::max(1, int(std::ceil(wrapped.height() / metrics.lineSpacing() - 0.01)));
}

void TilePainter::footnote(const QString& note, const QRectF& rect)
{
    m_p.save();
    m_p.setFont(fontOf(m_c, footnotePointSize));
    m_p.setPen(m_c.palette.secondaryText());
    m_p.drawText(
        rect.adjusted(footnoteInset, 0, -footnoteInset, 0),
        int((m_rtl ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignAbsolute | Qt::AlignVCenter) |
            Qt::TextWordWrap,
        note);
    m_p.restore();
}

void TilePainter::emptyNote(const QString& note, const QRectF& rect)
{
    m_p.save();
    m_p.setPen(Qt::NoPen);
    m_p.setBrush(m_c.palette.glass(rect, 8));
    m_p.drawRoundedRect(rect, 12, 12);
    text(m_c, rect.adjusted(12, 0, -12, 0), note, fontOf(m_c, 12), m_c.palette.secondaryText(),
         Qt::AlignHCenter);
    m_p.restore();
}

void TilePainter::weather(const PanelTile& t, const QRectF& rect)
{
    const Box b{rect, m_rtl};
    if (t.asksForAccess) {
        const double h = rect.height();
        symbol(m_c, b.at(12, (h - 18) / 2, 18, 18), t.symbol,
               t.accent.value_or(Theme::systemBlue()));
        wrappedText(m_c, b.span(40, 0, 34, h), t.label, fontOf(m_c, 12, QFont::Medium),
                    m_c.palette.primaryText(), b.lead());
        symbol(m_c, b.at(rect.width() - 26, (h - 16) / 2, 16, 16),
               m_rtl ? QStringLiteral("chevron.left") : QStringLiteral("chevron.right"),
               m_c.palette.secondaryText());
        return;
    }
    symbol(m_c, b.at(12, 13, 32, 32), t.symbol,
                          t.accent.value_or(Theme::systemBlue()));
    symbol(m_c, b.at(54, 13, 11, 11), QStringLiteral("location.fill"), m_c.palette.secondaryText());
    // The place and the description take whatever the figures beside them leave.
    const QFont temperature = fontOf(m_c, 25, QFont::Light);
    const QFont range = fontOf(m_c, 10.5);
    const double beside = 12 + 10;
    text(m_c, b.span(69, 9, beside + QFontMetricsF(temperature).horizontalAdvance(t.subtitle), 19),
         t.label, fontOf(m_c, 13, QFont::DemiBold), m_c.palette.primaryText(), b.lead());
    text(m_c, b.span(54, 30, beside + QFontMetricsF(range).horizontalAdvance(t.detail), 16), t.note,
         fontOf(m_c, 11), m_c.palette.secondaryText(), b.lead());
    figures(m_c, b.at(rect.width() - 112, 5, 100, 30), t.subtitle, temperature,
            m_c.palette.primaryText(), b.trail());
    // The range line holds words as well as figures: it reads in its own direction.
    text(m_c, b.at(rect.width() - 172, 36, 160, 15), t.detail, range,
            m_c.palette.secondaryText(), b.trail());
}

void TilePainter::permission(const PanelTile& t, const QRectF& rect)
{
    const Box b{rect, m_rtl};
    disc(m_c, t, b.at(10, (rect.height() - 30) / 2, 30, 30));
    text(m_c, b.span(50, 7, 34, 18), t.label, fontOf(m_c, 12.5, QFont::DemiBold),
         m_c.palette.primaryText(), b.lead());
    text(m_c, b.span(50, 25, 34, 15), t.subtitle, fontOf(m_c, 10.5), m_c.palette.secondaryText(),
         b.lead());
    const QString chevron =
        m_rtl ? QStringLiteral("chevron.left") : QStringLiteral("chevron.right");
    symbol(m_c, b.at(rect.width() - 26, (rect.height() - 16) / 2, 16, 16), chevron,
           m_c.palette.secondaryText());
}

void TilePainter::dashboard(const PanelTile& t, const QRectF& rect)
{
    const Box b{rect, m_rtl};
    const double h = rect.height();
    const QColor accent = t.accent.value_or(Theme::systemBlue());
    if (t.kind == TileKind::Stat) {
        const QRectF gauge = b.at(11, (h - 40) / 2, 40, 40);
        ring(m_p, gauge, t.percent.value_or(0), accent, 4.5);
        symbol(m_c, gauge.adjusted(12, 12, -12, -12), t.symbol, accent);
        text(m_c, b.span(61, h / 2 - 17, 8, 15), t.label, fontOf(m_c, 11),
             m_c.palette.secondaryText(), b.lead());
        figures(m_c, b.span(61, h / 2 - 2, 8, 21), t.subtitle, fontOf(m_c, 17, QFont::DemiBold),
                m_c.palette.primaryText(), b.lead());
        return;
    }
    disc(m_c, t, b.at(10, (h - 30) / 2, 30, 30));
    if (t.kind == TileKind::Network) {
        text(m_c, b.span(50, 0, 160, h), t.label, fontOf(m_c, 12.5, QFont::DemiBold),
             m_c.palette.primaryText(), b.lead());
        figures(m_c, b.span(130, 0, 14, h), t.subtitle, fontOf(m_c, 12.5, QFont::Medium),
                m_c.palette.primaryText(), b.trail());
        return;
    }
    // The owner's line gives way to a name that needs two lines and already says it.
    const QString owner = ownerLine(t);
    const QFont labelFont = fontOf(m_c, 12.5, QFont::DemiBold);
    const bool ownerSaid = t.label.startsWith(owner) &&
                           needsTwoLines(t.label, labelFont, b.span(48, 0, 10, h).width());
    if (owner.isEmpty() || ownerSaid) {
        wrappedText(m_c, b.span(48, 0, 10, h), t.label, labelFont, m_c.palette.primaryText(),
                    b.lead());
        return;
    }
    text(m_c, b.span(48, h / 2 - 16, 10, 17), t.label, labelFont, m_c.palette.primaryText(),
         b.lead());
    text(m_c, b.span(48, h / 2 + 1, 10, 14), owner, fontOf(m_c, 10.5), m_c.palette.secondaryText(),
         b.lead());
}

void TilePainter::capsule(const PanelTile& t, const QRectF& rect)
{
    const Box b{rect, m_rtl};
    const double h = rect.height();
    disc(m_c, t, b.at(6, 6, h - 12, h - 12));
    const double x = h + 2;
    switch (t.kind) {
    case TileKind::Stat:
        text(m_c, b.span(x, h / 2 - 14, 14, 13), t.label, fontOf(m_c, 10.5),
             m_c.palette.secondaryText(), b.lead());
        figures(m_c, b.span(x, h / 2 - 1, 14, 16), t.subtitle, fontOf(m_c, 13, QFont::DemiBold),
                m_c.palette.primaryText(), b.lead());
        break;
    case TileKind::Network:
        text(m_c, b.span(x, 0, 170, h), t.label, fontOf(m_c, 12.5, QFont::Medium),
             m_c.palette.primaryText(), b.lead());
        figures(m_c, b.span(110, 0, 16, h), t.subtitle, fontOf(m_c, 12.5, QFont::DemiBold),
                m_c.palette.primaryText(), b.trail());
        break;
    default: {
        // A name too long for one line takes two in a slightly smaller size.
        const QRectF label = b.span(x, 0, 14, h);
        const QFont font = fontOf(m_c, 12.5, QFont::Medium);
        wrappedText(m_c, label, t.label,
                    needsTwoLines(t.label, font, label.width()) ? fontOf(m_c, 11, QFont::Medium)
                                                                : font,
                    m_c.palette.primaryText(), b.lead());
    }
    }
}

void TilePainter::gridCell(const PanelTile& t, const QRectF& rect)
{
    const Box b{rect, m_rtl};
    const double w = rect.width();
    const QColor accent = t.accent.value_or(Theme::systemBlue());
    if (t.kind == TileKind::Network) {
        disc(m_c, t, b.at(10, 10, 30, 30));
        text(m_c, b.span(48, 10, 8, 30), t.label, fontOf(m_c, 11.5, QFont::DemiBold),
             m_c.palette.primaryText(), b.lead());
        figures(m_c, b.span(10, 47, 8, 16), t.detail, fontOf(m_c, 10.5, QFont::Medium),
                m_c.palette.secondaryText(), b.lead());
        return;
    }
    // A name that needs two lines takes them, and the picture above moves up for it.
    const QFont labelFont = fontOf(m_c, 10.5);
    const bool twoLines = t.kind == TileKind::Item && needsTwoLines(t.label, labelFont, w - 8);
    const double side = twoLines ? 28 : 34;
    const QRectF top(rect.left() + (w - side) / 2, rect.top() + (twoLines ? 6 : 9), side, side);
    if (t.kind == TileKind::Stat) {
        ring(m_p, top, t.percent.value_or(0), accent, 3.5);
        wholeFigures(m_c, top.adjusted(4.5, 0, -4.5, 0), t.subtitle, 10, QFont::DemiBold,
                     m_c.palette.primaryText());
    } else {
        disc(m_c, t, top);
    }
    const QRectF label = twoLines ? QRectF(rect.left() + 4, rect.top() + 36, w - 8, 32)
                                  : QRectF(rect.left() + 5, rect.top() + 48, w - 10, 15);
    wrappedText(m_c, label, t.label, labelFont, m_c.palette.primaryText(), Qt::AlignHCenter);
}

void TilePainter::stripRow(const PanelTile& t, const QRectF& rect)
{
    const Box b{rect, m_rtl};
    const double h = rect.height();
    const QColor accent = t.accent.value_or(Theme::systemBlue());
    itemMark(m_c, t, b.at(10, (h - 18) / 2, 18, 18), accent);
    if (t.kind == TileKind::Stat) {
        text(m_c, b.span(38, 0, 130, h), t.label, fontOf(m_c, 12.5), m_c.palette.primaryText(),
             b.lead());
        bar(m_c, b.at(rect.width() - 128, (h - 5) / 2, 62, 5), t.percent.value_or(0), accent,
            m_rtl);
        figures(m_c, b.at(rect.width() - 56, 0, 44, h), t.subtitle,
                fontOf(m_c, 12, QFont::DemiBold), m_c.palette.primaryText(), b.trail());
        return;
    }
    const QString trailing = t.kind == TileKind::Network ? t.subtitle : ownerLine(t);
    const double trailingWidth = t.kind == TileKind::Network ? 150 : 110;
    text(m_c, b.span(38, 0, trailingWidth + 20, h), t.label, fontOf(m_c, 12.5),
         m_c.palette.primaryText(), b.lead());
    const QRectF trailingBox = b.at(rect.width() - trailingWidth - 12, 0, trailingWidth, h);
    if (t.kind == TileKind::Network)
        figures(m_c, trailingBox, trailing, fontOf(m_c, 12, QFont::Medium),
                m_c.palette.primaryText(), b.trail());
    else
        text(m_c, trailingBox, trailing, fontOf(m_c, 11), m_c.palette.secondaryText(), b.trail());
}

} // namespace ravlin
