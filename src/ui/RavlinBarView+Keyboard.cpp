// The keyboard and the search: typing filters the tiles, the arrows and Tab move the focus
// ring, Return and Space open, Escape clears and closes, the page keys scroll.
#include "RavlinBarView.h"

#include "RavlinBarAccessible.h"

#include "core/tiles/SearchText.h"

#include <QAccessible>
#include <QKeyEvent>

#include <algorithm>
#include <cmath>

namespace ravlin {
namespace {

// One press of an arrow key scrolls this far; paging keeps this much of the previous view.
constexpr double arrowStep = 32;
constexpr double pageOverlap = 40;

} // namespace

void RavlinBarView::setQuery(const QString& typed)
{
    const QString query = SearchText::capped(typed);
    if (query == m_request.query)
        return;
    const double before = contentExtent();
    m_request.query = query;
    m_focusShown = false;
    m_focus.reset();
    m_scroll = 0;
    rebuild();
    update();
    if (contentExtent() != before && onContentSizeChanged)
        onContentSizeChanged();
}

void RavlinBarView::setFocusedKey(const std::optional<QString>& key)
{
    if (key && *key != settingsKey && !placed(*key))
        return;
    m_focus = key;
    m_focusShown = key.has_value();
    if (key && QAccessible::isActive()) {
        QAccessibleEvent moved(this, QAccessible::Focus);
        moved.setChild(int(RavlinBarAccessible::entryKeys(*this).indexOf(*key)));
        QAccessible::updateAccessibility(&moved);
    }
    // The gear is always in sight; a tile may have to be brought into view.
    if (key && *key != settingsKey) {
        if (const std::optional<QRectF> r = tileRect(*key))
            scrollIntoView(*r);
    }
    update();
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
    const double page = std::max(arrowStep, viewExtent() - pageOverlap);
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

} // namespace ravlin
