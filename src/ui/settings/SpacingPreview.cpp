#include "SpacingPreview.h"

#include "ui/SymbolRenderer.h"

#include <QPainter>
#include <QPainterPath>

#include <array>

namespace ravlin {
namespace {

constexpr double glyph = 16;
constexpr double barHeight = 24;
constexpr std::array<const char16_t*, 6> symbols = {u"wifi",  u"battery.100", u"magnifyingglass",
                                                   u"switch.2", u"speaker.wave.2", u"clock"};

} // namespace

SpacingPreview::SpacingPreview(QWidget* parent) : QWidget(parent)
{
    setObjectName(QStringLiteral("spacingPreview"));
    setAccessibleName(QStringLiteral("Preview"));
    setMinimumHeight(int(barHeight) + 12);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void SpacingPreview::setValues(int spacing, int padding)
{
    if (spacing == m_spacing && padding == m_padding)
        return;
    m_spacing = spacing;
    m_padding = padding;
    update();
}

QSize SpacingPreview::sizeHint() const
{
    return {480, int(barHeight) + 12};
}

// The items stand from the right end, as in the menu bar: each takes its glyph and the padding
// on both sides, and the spacing lies between two items.
void SpacingPreview::paintEvent(QPaintEvent*)
{
    QPainter p(this);
    p.setRenderHint(QPainter::Antialiasing);
    const QRectF bar(0.5, 6, width() - 1.0, barHeight);
    QPainterPath shape;
    shape.addRoundedRect(bar, 6, 6);
    p.fillPath(shape, QColor(236, 236, 240));
    p.setPen(QPen(QColor(0, 0, 0, 30), 1));
    p.drawPath(shape);
    p.setClipPath(shape);
    const double pad = m_padding / 2.0;
    const double itemWidth = glyph + 2 * pad;
    const bool rtl = layoutDirection() == Qt::RightToLeft;
    double edge = rtl ? bar.left() + 10 : bar.right() - 10;
    for (std::size_t i = 0; i < symbols.size(); ++i) {
        const double left = rtl ? edge : edge - itemWidth;
        const QRectF item(left, bar.top() + 3, itemWidth, barHeight - 6);
        if (i == 2) {
            p.setPen(Qt::NoPen);
            p.setBrush(QColor(0, 0, 0, 40));
            p.drawRoundedRect(item, 4, 4);
        }
        const QRectF mark(item.center().x() - glyph / 2, bar.center().y() - glyph / 2, glyph, glyph);
        SymbolRenderer::paint(p, mark, QString::fromUtf16(symbols[i]), QColor(40, 40, 45));
        edge = rtl ? edge + itemWidth + m_spacing : edge - itemWidth - m_spacing;
    }
}

} // namespace ravlin
