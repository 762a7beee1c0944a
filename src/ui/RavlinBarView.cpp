#include "RavlinBarView.h"

#include "BarStyleLayout.h"
#include "RavlinBarAccessible.h"
#include "TilePainter.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/PanelPlacement.h"
#include "core/tiles/TileModel.h"

#include <QAccessible>
#include <QEvent>
#include <QMouseEvent>

#include <cmath>

namespace ravlin {
namespace {

// A press that moves further than this becomes a drag.
constexpr double dragDistance = 4;

} // namespace

RavlinBarView::RavlinBarView(const Sources& sources, PanelRequest request, TileStyle style,
                             QWidget* parent)
    : QWidget(parent), m_content(sources.content), m_tiles(sources.tiles),
      m_request(std::move(request)), m_style(style), m_emptyText(sources.emptyText),
      m_noMatchText(sources.noMatchText), m_settingsName(sources.settingsName),
      m_paintCache(sources.paintCache), m_palette(sources.palette),
      m_barHeight(sources.barHeight)
{
    static const bool accessibleInstalled = [] {
        QAccessible::installFactory(&RavlinBarAccessible::factory);
        return true;
    }();
    Q_UNUSED(accessibleInstalled);
    setAttribute(Qt::WA_TranslucentBackground);
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    auto redraw = [this] {
        rebuild();
        update();
    };
    connect(&sources.tiles, &TileModel::changed, this, redraw);
    connect(&sources.stats, &SystemStats::changed, this, redraw);
    connect(&sources.weather, &WeatherService::changed, this, redraw);
    resize(int(PanelPlacement::panelWidth), height());
    rebuild();
    if (isRow())
        resize(sizeHint());
    else
        resize(width(), heightForWidth(width()));
}

void RavlinBarView::rebuild()
{
    m_sections = m_content.sections(m_request);
    relayout();
    if (m_focus && *m_focus != settingsKey && !placed(*m_focus)) {
        m_focus.reset();
        m_focusShown = false;
    }
}

void RavlinBarView::setPalette(PanelPalette palette)
{
    m_palette = palette;
    update();
}

QString RavlinBarView::emptyText() const
{
    return m_request.query.isEmpty() ? m_emptyText : m_noMatchText;
}

QStringList RavlinBarView::tileKeys() const
{
    QStringList keys;
    for (const PanelLayout::PlacedTile& p : m_layout.tiles)
        keys.append(tileOf(p).key);
    return keys;
}

void RavlinBarView::pressSettings()
{
    if (onSettings)
        onSettings();
}

QString RavlinBarView::accessibleNameOf(const PanelTile& tile) const
{
    return accessibleNamer ? accessibleNamer(tile) : tile.label;
}

void RavlinBarView::relayout()
{
    m_layout = layoutFor(width() > 0 ? width() : PanelPlacement::panelWidth);
    m_scroll = std::clamp(m_scroll, 0.0, maximumScroll());
    updateGeometry();
}

PanelLayout RavlinBarView::layoutFor(double width) const
{
    const bool searching = !m_request.query.isEmpty();
    const bool noteEmpty = searching ? m_sections.empty() : m_request.groups.empty();
    if (m_style == TileStyle::Bar)
        return BarStyleLayout::make(m_sections, m_barHeight, isRightToLeft(), noteEmpty,
                                    searching, true, !m_request.footnote.isEmpty());
    const double footnoteWidth = width - 2 * PanelLayout::padding;
    return PanelLayout::make(m_sections, m_style, width, isRightToLeft(), noteEmpty,
                             TilePainter::footnoteLines(m_request.footnote, footnoteWidth,
                                                        m_paintCache),
                             searching, true);
}

QSize RavlinBarView::sizeHint() const
{
    if (isRow())
        return {int(std::ceil(m_layout.width)), int(std::ceil(m_layout.height))};
    const int w = int(PanelPlacement::panelWidth);
    return {w, heightForWidth(w)};
}

int RavlinBarView::heightForWidth(int width) const
{
    const PanelLayout layout = width == this->width() ? m_layout : layoutFor(width);
    return int(std::ceil(layout.preferredHeight(m_style)));
}

const PanelTile& RavlinBarView::tileOf(const PanelLayout::PlacedTile& placed) const
{
    return m_sections[placed.section].tiles[placed.index];
}

const PanelLayout::PlacedTile* RavlinBarView::placed(const QString& key) const
{
    for (const PanelLayout::PlacedTile& p : m_layout.tiles)
        if (tileOf(p).key == key)
            return &p;
    return nullptr;
}

const PanelTile* RavlinBarView::tile(const QString& key) const
{
    const PanelLayout::PlacedTile* p = placed(key);
    return p ? &tileOf(*p) : nullptr;
}

std::optional<QRectF> RavlinBarView::tileRect(const QString& key) const
{
    const PanelLayout::PlacedTile* p = placed(key);
    return p ? std::optional(p->rect) : std::nullopt;
}

bool RavlinBarView::isItem(const QString& key) const
{
    const PanelTile* t = tile(key);
    return t && t->kind == TileKind::Item;
}

// `point` is in the view's own coordinates: only what is in sight can be hit.
std::optional<QString> RavlinBarView::keyAt(const QPointF& point) const
{
    if (!rect().contains(point.toPoint()))
        return std::nullopt;
    const std::optional<QRectF> gear = pinnedSettingsButton();
    if (gear && gear->contains(point))
        return settingsKey;
    if (const std::optional<QRectF> note = pinnedFootnoteMark(); note && note->contains(point))
        return footnoteKey;
    if (footerArea().contains(point))
        return std::nullopt; // the footer hides what scrolled under it
    const PanelLayout::PlacedTile* p = m_layout.tileAt(toContent(point));
    if (p)
        return tileOf(*p).key;
    if (onFootnote && m_layout.footnote && m_layout.footnote->contains(toContent(point)))
        return footnoteKey;
    return std::nullopt;
}

bool RavlinBarView::clickTile(const QString& key)
{
    if (key == settingsKey) {
        pressSettings();
        return true;
    }
    if (key == footnoteKey && !onFootnote)
        return false;
    if (key == footnoteKey && m_layout.footnote) {
        const std::function<void()> told = onFootnote; // the callback may close the panel
        told();
        return true;
    }
    const PanelTile* found = tile(key);
    if (!found)
        return false;
    // Copied first: a callback may close the panel or refill this view.
    const PanelTile t = *found;
    switch (t.kind) {
    case TileKind::Item:
        if (onActivate)
            onActivate(std::get<BarItem>(*t.content));
        break;
    case TileKind::Stat:
        if (onStat)
            onStat(std::get<Stat>(*t.content));
        break;
    case TileKind::Network:
        if (onStat)
            onStat(std::get<NetworkRates>(*t.content).stat);
        break;
    case TileKind::Weather:
        if (onWeather)
            onWeather();
        break;
    case TileKind::Permission:
        if (onPermission)
            onPermission(t.key);
        break;
    }
    return true;
}

bool RavlinBarView::dropTile(const QString& dragged, const QString& onto)
{
    const PanelLayout::PlacedTile* from = placed(dragged);
    if (!from || !isItem(dragged) || !isItem(onto))
        return false;
    // The order is kept among the tiles shown together with the dragged one.
    QStringList within;
    for (const PanelTile& t : m_sections[from->section].tiles)
        within.append(t.key);
    m_tiles.move(dragged, onto, within);
    return true;
}

void RavlinBarView::setHover(std::optional<QString> key)
{
    if (key == m_hover)
        return;
    m_hover = std::move(key);
    // The bar shows pictures only: the name comes as a tool tip under the pointer.
    if (isRow()) {
        const PanelTile* t = m_hover ? tile(*m_hover) : nullptr;
        setToolTip(m_hover == footnoteKey ? m_request.footnote
                                          : t ? accessibleNameOf(*t) : QString());
    }
    update();
}

void RavlinBarView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    setFocus(Qt::MouseFocusReason);
    m_pressed = keyAt(event->position());
    m_pressPoint = m_pointer = event->position();
    m_dragging = false;
    update();
}

void RavlinBarView::mouseMoveEvent(QMouseEvent* event)
{
    m_pointer = event->position();
    if (m_pressed && !m_dragging && isItem(*m_pressed) &&
        (m_pointer - m_pressPoint).manhattanLength() > dragDistance)
        m_dragging = true;
    setHover(keyAt(m_pointer));
    if (m_dragging)
        update();
}

void RavlinBarView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton || !m_pressed)
        return;
    const QString pressed = *std::exchange(m_pressed, std::nullopt);
    const bool dragging = std::exchange(m_dragging, false);
    const std::optional<QString> under = keyAt(event->position());
    update();
    if (dragging) {
        if (under && *under != pressed)
            dropTile(pressed, *under);
        return;
    }
    if (under == pressed)
        clickTile(pressed);
}

void RavlinBarView::leaveEvent(QEvent*)
{
    setHover(std::nullopt);
}

void RavlinBarView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LayoutDirectionChange) {
        relayout();
        update();
    }
    QWidget::changeEvent(event);
}

void RavlinBarView::resizeEvent(QResizeEvent*)
{
    relayout();
}

} // namespace ravlin
