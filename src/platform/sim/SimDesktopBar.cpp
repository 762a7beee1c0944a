#include "SimDesktop.h"

#include "foundation/DefaultsStore.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace ravlin {

QString SimDesktop::preferredPositionKey(const QString& autosaveName)
{
    return QStringLiteral("NSStatusItem Preferred Position ") + autosaveName;
}

bool SimDesktop::isPresent(const SimItem& item) const
{
    const SimApp* a = app(item.bundleId);
    return a && a->running && !item.discarded;
}

bool SimDesktop::isTakenOut(const SimItem& item) const
{
    return (m_hider && m_hider(item)) || !allowedInMenuBar(item.bundleId);
}

void SimDesktop::setAllowedInMenuBar(const QString& bundleId, bool allowed)
{
    if (allowed)
        m_notAllowed.remove(bundleId);
    else
        m_notAllowed.insert(bundleId);
}

void SimDesktop::discardIfTooLong(SimItem& item) const
{
    if (item.own && item.width >= longestItem())
        item.discarded = true;
}

double SimDesktop::itemHeight(const SimItem& item) const
{
    // A screen without a reserved strip (the menu bar hides itself) still draws
    // its items at the usual height.
    const double bar = mainScreen().menuBarHeight;
    return item.height.value_or(bar > 0 ? bar : 24.0);
}

double SimDesktop::movableRightEnd() const
{
    double x = mainScreen().width;
    for (const SimItem& item : m_fixed) {
        if (isPresent(item) && !isTakenOut(item))
            x -= item.width;
    }
    return x;
}

std::vector<SimPlacedItem> SimDesktop::bar() const
{
    std::vector<SimPlacedItem> placed;
    std::vector<SimPlacedItem> hidden;
    double x = mainScreen().width;
    double hiddenX = -20000; // out of the bar, each at a place of its own
    auto place = [&](const std::vector<SimItem>& row) {
        for (const SimItem& item : row) {
            if (!isPresent(item))
                continue;
            if (isTakenOut(item)) {
                hiddenX -= item.width;
                hidden.push_back({item,
                                  app(item.bundleId)->pid,
                                  {hiddenX, 0, item.width, itemHeight(item)},
                                  false});
                continue;
            }
            x -= item.width;
            SimPlacedItem p{
                item, app(item.bundleId)->pid, {x, 0, item.width, itemHeight(item)}, x >= 0};
            // Where the bar keeps no long items, what has no room waits in the overflow menu.
            p.inOverflow = !p.onScreen && !itemsAreWindows();
            // The camera housing covers whatever stands under it.
            if (const std::optional<WindowServerRect> notch = notchFrame(0);
                p.onScreen && notch && p.frame.x < notch->maxX() && p.frame.maxX() > notch->x) {
                p.onScreen = false;
                p.behindNotch = true;
            }
            placed.push_back(p);
        }
    };
    place(m_fixed);
    place(m_movable);
    placed.insert(placed.end(), hidden.rbegin(), hidden.rend());
    std::reverse(placed.begin(), placed.end());
    return placed;
}

std::optional<SimPlacedItem> SimDesktop::placed(std::int64_t window) const
{
    for (const SimPlacedItem& p : bar()) {
        if (p.item.window == window)
            return p;
    }
    return std::nullopt;
}

std::optional<SimPlacedItem> SimDesktop::placedByTitle(const QString& title) const
{
    for (const SimPlacedItem& p : bar()) {
        if (p.item.title == title)
            return p;
    }
    return std::nullopt;
}

// The part of an item that stands on a display takes clicks, also when the rest of
// it is pushed off the left edge: the visible stretch of a collapsed separator.
std::optional<SimPlacedItem> SimDesktop::itemAt(WindowServerPoint point) const
{
    const WindowServerRect displays = screenFrame(screens().size() - 1);
    if (point.x < 0 || point.x >= displays.maxX() || point.y < 0)
        return std::nullopt;
    // The front application's menus stand over whatever reaches under them, and the camera
    // housing takes no clicks.
    if (onAppMenus(point))
        return std::nullopt;
    for (std::size_t i = 0; i < screens().size(); ++i)
        if (const std::optional<WindowServerRect> notch = notchFrame(i); notch && notch->contains(point))
            return std::nullopt;
    // Another display's bar shows the same items at the same distance from its right edge.
    for (std::size_t i = 1; i < screens().size(); ++i) {
        const WindowServerRect display = screenFrame(i);
        if (point.x >= display.x && point.x < display.maxX()) {
            point.x = screenFrame(0).maxX() - (display.maxX() - point.x);
            break;
        }
    }
    for (const SimPlacedItem& p : bar()) {
        if (p.frame.contains(point) && !p.behindNotch)
            return p;
    }
    return std::nullopt;
}

std::optional<WindowServerRect> SimDesktop::visibleStretch(std::int64_t window) const
{
    const std::optional<SimPlacedItem> p = placed(window);
    if (!p)
        return std::nullopt;
    const WindowServerRect screen = screenFrame(0);
    const double left = std::max(p->frame.x, screen.x + appMenusWidth());
    const double right = std::min(p->frame.maxX(), screen.maxX());
    if (right <= left || p->behindNotch)
        return std::nullopt;
    return WindowServerRect{left, p->frame.y, right - left, p->frame.height};
}

std::int64_t SimDesktop::assignWindow(std::int64_t wanted)
{
    if (wanted != 0 && !item(wanted))
        return wanted;
    while (item(m_nextWindow))
        ++m_nextWindow;
    return m_nextWindow++;
}

std::int64_t SimDesktop::addItem(SimItem newItem)
{
    newItem.window = assignWindow(newItem.window);
    if (newItem.owner.isEmpty()) {
        if (const SimApp* a = app(newItem.bundleId))
            newItem.owner = a->name;
    }
    newItem.own = newItem.bundleId == ownBundleId;
    (newItem.fixed ? m_fixed : m_movable).push_back(newItem);
    return newItem.window;
}

const SimItem* SimDesktop::item(std::int64_t window) const
{
    return const_cast<SimDesktop*>(this)->item(window);
}

SimItem* SimDesktop::item(std::int64_t window)
{
    for (auto* row : {&m_fixed, &m_movable}) {
        for (SimItem& i : *row) {
            if (i.window == window)
                return &i;
        }
    }
    return nullptr;
}

bool SimDesktop::setItemWidth(std::int64_t window, double width)
{
    SimItem* i = item(window);
    if (!i)
        return false;
    i->width = width;
    discardIfTooLong(*i);
    return true;
}

bool SimDesktop::removeItem(std::int64_t window)
{
    for (auto* row : {&m_fixed, &m_movable}) {
        auto it = std::find_if(row->begin(), row->end(),
                               [&](const SimItem& i) { return i.window == window; });
        if (it != row->end()) {
            row->erase(it);
            return true;
        }
    }
    return false;
}

// Every place in the movable part of the row an item of that width could take,
// rightmost first: where its left edge would stand and how far it would be from
// the right end of the movable items.
std::vector<SimDesktop::Slot> SimDesktop::slotsFor(double width) const
{
    std::vector<Slot> slots;
    const double rightEnd = movableRightEnd();
    double distance = 0;
    for (std::size_t i = 0; i <= m_movable.size(); ++i) {
        if (i == 0 || isPresent(m_movable[i - 1])) {
            if (i > 0)
                distance += m_movable[i - 1].width;
            slots.push_back({i, rightEnd - distance - width, distance});
        }
    }
    return slots;
}

std::int64_t SimDesktop::addOwnItem(const QString& autosaveName, double length)
{
    double preferred = 0;
    if (m_defaults)
        preferred = DefaultsStore::toDouble(m_defaults->object(preferredPositionKey(autosaveName)));
    std::size_t best = 0;
    double bestDistance = std::numeric_limits<double>::infinity();
    for (const Slot& slot : slotsFor(length)) {
        const double d = std::fabs(slot.distanceFromRightEnd - preferred);
        if (d < bestDistance) { // the right one wins a tie: it comes first
            bestDistance = d;
            best = slot.index;
        }
    }
    SimItem own;
    own.window = assignWindow(0);
    own.bundleId = ownBundleId;
    own.owner = ownName;
    own.title = autosaveName;
    own.width = length;
    own.own = true;
    own.ax.actions = {QStringLiteral("AXPress")};
    discardIfTooLong(own);
    m_movable.insert(m_movable.begin() + std::ptrdiff_t(best), own);
    return own.window;
}

bool SimDesktop::dragItem(std::int64_t window, double releaseX)
{
    auto it = std::find_if(m_movable.begin(), m_movable.end(),
                           [&](const SimItem& i) { return i.window == window; });
    if (it == m_movable.end() || !isPresent(*it))
        return false;
    const SimItem dragged = *it;
    m_movable.erase(it);

    // The item lands where its centre comes nearest the release x; the right
    // place on a tie. (Slots overlap, so "the slot that holds x" is ambiguous.)
    const std::vector<Slot> slots = slotsFor(dragged.width);
    const Slot* best = nullptr;
    double bestDistance = std::numeric_limits<double>::infinity();
    for (const Slot& slot : slots) {
        const double d = std::abs(slot.x + dragged.width / 2 - releaseX);
        if (d < bestDistance) {
            bestDistance = d;
            best = &slot;
        }
    }
    m_movable.insert(m_movable.begin() + std::ptrdiff_t(best->index), dragged);
    if (dragged.own)
        writePreferredPosition(dragged, best->distanceFromRightEnd);
    return true;
}

void SimDesktop::resetPositions()
{
    std::stable_partition(m_movable.begin(), m_movable.end(),
                          [](const SimItem& i) { return i.own; });
    const auto others =
        std::find_if(m_movable.begin(), m_movable.end(), [](const SimItem& i) { return !i.own; });
    std::stable_sort(others, m_movable.end(),
                     [](const SimItem& a, const SimItem& b) { return a.window < b.window; });
}

void SimDesktop::shufflePositions(std::uint32_t seed)
{
    std::vector<std::size_t> slots;
    std::vector<SimItem> others;
    for (std::size_t i = 0; i < m_movable.size(); ++i) {
        if (!m_movable[i].own) {
            slots.push_back(i);
            others.push_back(m_movable[i]);
        }
    }
    std::mt19937 random(seed);
    std::shuffle(others.begin(), others.end(), random);
    for (std::size_t i = 0; i < slots.size(); ++i)
        m_movable[slots[i]] = others[i];
}

void SimDesktop::writePreferredPosition(const SimItem& item, double distance)
{
    if (!m_defaults)
        return;
    const PlistValue value = std::trunc(distance) == distance ? PlistValue(std::int64_t(distance))
                                                              : PlistValue(distance);
    m_defaults->set(preferredPositionKey(item.title), value);
}

} // namespace ravlin
