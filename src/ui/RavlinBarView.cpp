#include "RavlinBarView.h"

#include "RavlinBarAccessible.h"
#include "TilePainter.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/PanelPlacement.h"
#include "core/tiles/SearchText.h"
#include "core/tiles/TileModel.h"

#include <QAccessible>
#include <QEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

// A press that moves further than this becomes a drag.
constexpr double dragDistance = 4;
// One notch of a mouse wheel, and one press of an arrow key, scroll this far.
constexpr double wheelNotch = 40;
constexpr double arrowStep = 32;
// Paging keeps this much of the previous view in sight.
constexpr double pageOverlap = 40;

} // namespace

RavlinBarView::RavlinBarView(const Sources& sources, PanelRequest request, TileStyle style,
                             QWidget* parent)
    : QWidget(parent), m_content(sources.content), m_tiles(sources.tiles),
      m_request(std::move(request)), m_style(style), m_emptyText(sources.emptyText),
      m_noMatchText(sources.noMatchText), m_settingsName(sources.settingsName),
      m_paintCache(sources.paintCache), m_palette(sources.palette)
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

void RavlinBarView::setQuery(const QString& typed)
{
    const QString query = SearchText::capped(typed);
    if (query == m_request.query)
        return;
    const double before = m_layout.height;
    m_request.query = query;
    m_focusShown = false;
    m_focus.reset();
    m_scroll = 0;
    rebuild();
    update();
    if (m_layout.height != before && onContentHeightChanged)
        onContentHeightChanged();
}

QStringList RavlinBarView::tileKeys() const
{
    QStringList keys;
    for (const PanelLayout::PlacedTile& p : m_layout.tiles)
        keys.append(tileOf(p).key);
    return keys;
}

void RavlinBarView::setFocusedKey(const std::optional<QString>& key)
{
    if (key && *key != settingsKey && !placed(*key))
        return;
    m_focus = key;
    m_focusShown = key.has_value();
    if (key && QAccessible::isActive()) {
        const int index = int(tileKeys().indexOf(*key));
        QAccessibleEvent moved(this, QAccessible::Focus);
        moved.setChild(index >= 0 ? index : int(tileKeys().size()));
        QAccessible::updateAccessibility(&moved);
    }
    // The gear is always in sight; a tile may have to be brought into view.
    if (key && *key != settingsKey) {
        if (const std::optional<QRectF> r = tileRect(*key))
            scrollIntoView(*r);
    }
    update();
}

void RavlinBarView::scrollIntoView(const QRectF& rect)
{
    constexpr double margin = 6;
    if (rect.top() - margin < m_scroll)
        setScrollOffset(rect.top() - margin);
    else if (rect.bottom() + margin > m_scroll + height() - footerHeight())
        setScrollOffset(rect.bottom() + margin - height() + footerHeight());
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

double RavlinBarView::maximumScroll() const
{
    return std::max(0.0, std::ceil(m_layout.height) - height());
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

// The part of the content in sight: above the footer, which never scrolls.
QRectF RavlinBarView::visibleContent() const
{
    return QRectF(0, m_scroll, width(), std::max(0.0, height() - footerHeight()));
}

double RavlinBarView::footerHeight() const
{
    return m_layout.settingsButton ? m_layout.footerHeight : 0.0;
}

std::optional<QRectF> RavlinBarView::pinnedSettingsButton() const
{
    if (!m_layout.settingsButton)
        return std::nullopt;
    const double size = PanelLayout::settingsButtonSize;
    return QRectF(m_layout.settingsButton->x(), height() - PanelLayout::padding - size, size, size);
}

std::optional<QRectF> RavlinBarView::settingsRect() const
{
    const std::optional<QRectF> pinned = pinnedSettingsButton();
    return pinned ? std::optional(pinned->translated(0, m_scroll)) : std::nullopt;
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

PanelLayout RavlinBarView::layoutFor(double width) const
{
    const bool searching = !m_request.query.isEmpty();
    const bool noteEmpty = searching ? m_sections.empty() : m_request.groups.empty();
    return PanelLayout::make(m_sections, m_style, width, isRightToLeft(), noteEmpty,
                             !m_request.footnote.isEmpty(), searching, true);
}

QSize RavlinBarView::sizeHint() const
{
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
    if (point.y() >= height() - footerHeight())
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
    if (key == footnoteKey && onFootnote && m_layout.footnote) {
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

void RavlinBarView::wheelEvent(QWheelEvent* event)
{
    // A trackpad reports points; a wheel reports notches of 120.
    const QPoint pixels = event->pixelDelta();
    const double delta =
        !pixels.isNull() ? pixels.y() : event->angleDelta().y() / 120.0 * wheelNotch;
    if (maximumScroll() <= 0 || delta == 0) {
        event->ignore();
        return;
    }
    m_pointer = event->position();
    scrollBy(-delta);
    event->accept();
}

void RavlinBarView::keyPressEvent(QKeyEvent* event)
{
    if (navigationKey(event) || typeKey(event)) {
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

// Keys that move, open, close or scroll. Qt's Control modifier is the Command key on a Mac.
bool RavlinBarView::navigationKey(QKeyEvent* event)
{
    const bool command = event->modifiers() & Qt::ControlModifier;
    const double page = std::max(arrowStep, height() - pageOverlap);
    switch (event->key()) {
    case Qt::Key_Comma:
        if (!command)
            return false;
        pressSettings();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
        moveFocus(event->key());
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        tabFocus(event->key() == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        activateFocused();
        return true;
    case Qt::Key_Space:
        // A blank belongs to the search unless the focus ring shows.
        if (!m_focusShown)
            return false;
        activateFocused();
        return true;
    case Qt::Key_Escape:
        if (!m_request.query.isEmpty())
            setQuery(QString());
        else if (onDismiss)
            onDismiss();
        return true;
    case Qt::Key_Backspace:
        if (m_request.query.isEmpty())
            return true;
        setQuery(m_request.query.chopped(1));
        return true;
    case Qt::Key_PageDown:
        scrollBy(page);
        return true;
    case Qt::Key_PageUp:
        scrollBy(-page);
        return true;
    case Qt::Key_Home:
        setScrollOffset(0);
        return true;
    case Qt::Key_End:
        setScrollOffset(maximumScroll());
        return true;
    default:
        return false;
    }
}

// Printable text goes into the search; a chord with Command or Control is not typing.
bool RavlinBarView::typeKey(QKeyEvent* event)
{
    if (event->modifiers() & (Qt::ControlModifier | Qt::MetaModifier))
        return false;
    QString text = event->text();
    text.removeIf([](QChar c) { return !c.isPrint(); });
    if (text.isEmpty())
        return false;
    // A search does not begin with blanks.
    if (m_request.query.isEmpty() && text.trimmed().isEmpty())
        return true;
    setQuery(m_request.query + text);
    return true;
}

// Return opens the focused tile; with no ring showing, the only tile a search left.
bool RavlinBarView::activateFocused()
{
    if (m_focusShown && m_focus)
        return clickTile(*m_focus);
    const QStringList keys = tileKeys();
    if (!m_request.query.isEmpty() && keys.size() == 1)
        return clickTile(keys.first());
    return false;
}

void RavlinBarView::moveFocus(int key)
{
    const QStringList keys = tileKeys();
    if (keys.isEmpty())
        return;
    if (!m_focusShown || !m_focus || *m_focus == settingsKey) {
        setFocusedKey(keys.first());
        return;
    }
    if (const std::optional<QString> next = neighbour(*m_focus, key))
        setFocusedKey(*next);
}

// Left and right step through the reading order (mirrored right to left); up and
// down go to the nearest tile of the line above or below.
std::optional<QString> RavlinBarView::neighbour(const QString& from, int key) const
{
    const QStringList keys = tileKeys();
    const qsizetype at = keys.indexOf(from);
    if (key == Qt::Key_Left || key == Qt::Key_Right) {
        const bool forward = (key == Qt::Key_Right) != isRightToLeft();
        const qsizetype next = at + (forward ? 1 : -1);
        return next >= 0 && next < keys.size() ? std::optional(keys[next]) : std::nullopt;
    }
    const QRectF here = *tileRect(from);
    const bool down = key == Qt::Key_Down;
    std::optional<QString> best;
    double bestRow = 0, bestColumn = 0;
    for (const PanelLayout::PlacedTile& p : m_layout.tiles) {
        const double dy = p.rect.center().y() - here.center().y();
        if (down ? dy <= 1 : dy >= -1)
            continue;
        const double row = std::abs(dy);
        const double column = std::abs(p.rect.center().x() - here.center().x());
        if (!best || row < bestRow - 1 || (std::abs(row - bestRow) <= 1 && column < bestColumn)) {
            best = tileOf(p).key;
            bestRow = row;
            bestColumn = column;
        }
    }
    return best;
}

void RavlinBarView::tabFocus(bool backwards)
{
    const QStringList keys = tileKeys();
    const bool onGear = m_focusShown && m_focus == settingsKey;
    if (onGear && !keys.isEmpty())
        setFocusedKey(backwards ? keys.last() : keys.first());
    else
        setFocusedKey(settingsKey);
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

void RavlinBarView::paintEvent(QPaintEvent*)
{
    m_painted.clear();
    QPainter painter(this);
    painter.setClipRect(QRectF(0, 0, width(), height() - footerHeight()));
    painter.translate(0, -m_scroll);
    const QRectF inSight = visibleContent();
    TilePainter tiles(painter, m_style, isRightToLeft(), m_paintCache, m_palette);
    for (const PanelLayout::PlacedHeader& h : m_layout.headers)
        if (h.rect.intersects(inSight))
            tiles.header(m_sections[h.section].title.value_or(QString()), h.rect);
    if (m_layout.searchField && m_layout.searchField->intersects(inSight))
        tiles.searchField(m_request.query, *m_layout.searchField, &m_painted[QStringLiteral("search")]);
    if (m_layout.emptyNote && m_layout.emptyNote->intersects(inSight))
        tiles.emptyNote(emptyText(), *m_layout.emptyNote);
    if (m_layout.footnote && m_layout.footnote->intersects(inSight))
        tiles.footnote(m_request.footnote, *m_layout.footnote);
    const std::optional<QString> under = m_dragging ? keyAt(m_pointer) : std::nullopt;
    for (const PanelLayout::PlacedTile& p : m_layout.tiles) {
        if (!p.rect.intersects(inSight))
            continue;
        const PanelTile& t = tileOf(p);
        TileState state;
        state.hovered = m_hover == t.key && !m_dragging;
        state.pressed = m_pressed == t.key && !m_dragging && m_hover == t.key;
        state.lifted = m_dragging && m_pressed == t.key;
        state.dropTarget =
            m_dragging && under == t.key && t.kind == TileKind::Item && m_pressed != t.key;
        state.focused = m_focusShown && m_focus == t.key && !m_dragging;
        tiles.tile(t, p.rect, state, &m_painted[t.key]);
    }
    painter.translate(0, m_scroll);
    painter.setClipRect(rect());
    paintFooter(painter);
    if (m_dragging) {
        painter.translate(0, -m_scroll);
        paintDragged(painter);
        painter.translate(0, m_scroll);
    }
    paintScroller(painter);
}

// The footer under the content: the gear at its trailing end, and a hairline above it
// while content scrolls underneath.
void RavlinBarView::paintFooter(QPainter& painter)
{
    const std::optional<QRectF> gear = pinnedSettingsButton();
    if (!gear)
        return;
    if (maximumScroll() > 0) {
        const double top = height() - footerHeight();
        painter.fillRect(QRectF(PanelLayout::padding, top, width() - 2 * PanelLayout::padding, 0.5),
                         m_palette.ink(30));
    }
    TileState state;
    state.hovered = m_hover == settingsKey;
    state.pressed = m_pressed == settingsKey && state.hovered;
    state.focused = m_focusShown && m_focus == settingsKey;
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
    TilePainter(painter, m_style, isRightToLeft(), m_paintCache, m_palette)
        .tile(tileOf(*p), p->rect.translated(m_pointer - m_pressPoint), state);
}

// A thin overlay scroller on the trailing edge, as the system draws one, whenever the
// content does not fit: it says that there is more, and how much.
void RavlinBarView::paintScroller(QPainter& painter)
{
    const double hidden = maximumScroll();
    if (hidden <= 0)
        return;
    const double track = height() - footerHeight() - 1.5 * PanelLayout::padding;
    const double thumb = std::max(24.0, track * height() / m_layout.height);
    const double y = PanelLayout::padding + (track - thumb) * (m_scroll / hidden);
    constexpr double thickness = 4, inset = 4;
    const double x = isRightToLeft() ? inset : width() - inset - thickness;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_palette.ink(92));
    painter.drawRoundedRect(QRectF(x, y, thickness, thumb), thickness / 2, thickness / 2);
    painter.restore();
}

} // namespace ravlin
