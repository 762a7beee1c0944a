// Scrolling: the panel scrolls down its column, the bar style along its row (from its leading
// end, mirrored right to left); the footer with the gear stays where it is.
#include "RavlinBarView.h"

#include "BarStyleLayout.h"

#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

// One notch of a mouse wheel scrolls this far.
constexpr double wheelNotch = 40;

} // namespace

double RavlinBarView::maximumScroll() const
{
    return std::max(0.0, std::ceil(contentExtent()) - viewExtent());
}

void RavlinBarView::setScrollOffset(double offset)
{
    const double clamped = std::clamp(offset, 0.0, maximumScroll());
    if (clamped == m_scroll)
        return;
    m_scroll = clamped;
    if (m_dragging || m_hover)
        setHover(keyAt(m_pointer));
    update();
}

// Right to left, the row's leading end is its right end: an offset of 0 shows that end.
QPointF RavlinBarView::contentOrigin() const
{
    if (!isRow())
        return {0, m_scroll};
    if (!isRightToLeft())
        return {m_scroll, 0};
    return {m_layout.width - width() - m_scroll, 0};
}

void RavlinBarView::scrollIntoView(const QRectF& rect)
{
    constexpr double margin = 6;
    const QRectF r = toView(rect);
    const QRectF v = viewport();
    if (!isRow()) {
        if (r.top() - margin < v.top())
            scrollBy(r.top() - margin - v.top());
        else if (r.bottom() + margin > v.bottom())
            scrollBy(r.bottom() + margin - v.bottom());
        return;
    }
    // Right to left, scrolling on brings in what stands further left.
    const double forward = isRightToLeft() ? -1 : 1;
    if (r.left() - margin < v.left())
        scrollBy(forward * (r.left() - margin - v.left()));
    else if (r.right() + margin > v.right())
        scrollBy(forward * (r.right() + margin - v.right()));
}

double RavlinBarView::footerExtent() const
{
    if (!m_layout.settingsButton)
        return 0;
    return isRow() ? m_layout.footerWidth : m_layout.footerHeight;
}

// Under the panel's content; at the bar's trailing end.
QRectF RavlinBarView::footerArea() const
{
    const double f = footerExtent();
    if (!isRow())
        return QRectF(0, height() - f, width(), f);
    return isRightToLeft() ? QRectF(0, 0, f, height()) : QRectF(width() - f, 0, f, height());
}

QRectF RavlinBarView::viewport() const
{
    const double f = footerExtent();
    if (!isRow())
        return QRectF(0, 0, width(), std::max(0.0, height() - f));
    const double w = std::max(0.0, width() - f);
    return isRightToLeft() ? QRectF(f, 0, w, height()) : QRectF(0, 0, w, height());
}

// The part of the content in sight: all but what the footer covers.
QRectF RavlinBarView::visibleContent() const
{
    return viewport().translated(contentOrigin());
}

std::optional<QRectF> RavlinBarView::pinnedSettingsButton() const
{
    if (!m_layout.settingsButton)
        return std::nullopt;
    const QRectF laid = *m_layout.settingsButton;
    if (isRow()) {
        const double pad = BarStyleLayout::padding;
        const double x = isRightToLeft() ? pad : width() - pad - laid.width();
        return QRectF(x, laid.y(), laid.width(), laid.height());
    }
    const double size = PanelLayout::settingsButtonSize;
    return QRectF(laid.x(), height() - PanelLayout::padding - size, size, size);
}

// The mark stands between the content and the gear, pinned with it at the bar's trailing end.
std::optional<QRectF> RavlinBarView::pinnedFootnoteMark() const
{
    const std::optional<QRectF> gear = pinnedSettingsButton();
    if (!isRow() || !m_layout.footnote || !gear)
        return std::nullopt;
    const QRectF laid = *m_layout.footnote;
    const double gap = 2 * BarStyleLayout::cellGap;
    const double x = isRightToLeft() ? gear->right() + gap : gear->left() - gap - laid.width();
    return QRectF(x, laid.y(), laid.width(), laid.height());
}

std::optional<QRectF> RavlinBarView::footnoteMarkRect() const
{
    const std::optional<QRectF> pinned = pinnedFootnoteMark();
    return pinned ? std::optional(pinned->translated(contentOrigin())) : std::nullopt;
}

std::optional<QRectF> RavlinBarView::settingsRect() const
{
    const std::optional<QRectF> pinned = pinnedSettingsButton();
    return pinned ? std::optional(pinned->translated(contentOrigin())) : std::nullopt;
}

bool RavlinBarView::isTileVisible(const QString& key) const
{
    if (key == settingsKey) {
        const std::optional<QRectF> gear = pinnedSettingsButton();
        return gear && QRectF(rect()).contains(*gear);
    }
    const std::optional<QRectF> r = tileRect(key);
    return r && r->intersects(visibleContent());
}

// A trackpad reports points, a wheel notches of 120. The bar takes either direction of the
// wheel along its row; a sideways swipe moves it the way the fingers go.
void RavlinBarView::wheelEvent(QWheelEvent* event)
{
    const QPoint pixels = event->pixelDelta();
    const QPoint angle = event->angleDelta();
    double delta = !pixels.isNull() ? pixels.y() : angle.y() / 120.0 * wheelNotch;
    if (isRow()) {
        const bool sideways = !pixels.isNull() ? std::abs(pixels.x()) > std::abs(pixels.y())
                                               : std::abs(angle.x()) > std::abs(angle.y());
        if (sideways) {
            const double along = !pixels.isNull() ? pixels.x() : angle.x() / 120.0 * wheelNotch;
            delta = isRightToLeft() ? -along : along;
        }
    }
    if (maximumScroll() <= 0 || delta == 0) {
        event->ignore();
        return;
    }
    m_pointer = event->position();
    scrollBy(-delta);
    event->accept();
}

} // namespace ravlin
