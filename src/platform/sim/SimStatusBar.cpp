#include "SimStatusBar.h"

#include "SimDesktop.h"

#include <algorithm>

namespace ravlin {

SimStatusBar::SimStatusBar(SimDesktop& desktop) : m_desktop(desktop)
{
    m_desktop.setOwnItemClickHandler([this](const SimItem& item, const SimUserClick& click) {
        CurrentEvent event;
        event.type = click.button == MouseButton::Right ? CurrentEvent::RightMouseUp
                                                        : CurrentEvent::LeftMouseUp;
        event.modifierFlags = click.flags;
        clicked(item.window, event);
    });
}

SimStatusBar::~SimStatusBar()
{
    m_desktop.setOwnItemClickHandler({});
}

std::unique_ptr<StatusItem> SimStatusBar::createItem(double length, const QString& autosaveName)
{
    const std::int64_t window = m_desktop.addOwnItem(autosaveName, length);
    auto item = std::make_unique<SimStatusItem>(*this, m_desktop, window, autosaveName, length);
    m_items[window] = item.get();
    return item;
}

std::vector<const SimStatusItem*> SimStatusBar::items() const
{
    std::vector<const SimStatusItem*> list;
    for (const auto& [window, item] : m_items)
        list.push_back(item);
    return list;
}

const SimStatusItem* SimStatusBar::item(const QString& autosaveName) const
{
    for (const auto& [window, item] : m_items)
        if (item->autosaveName() == autosaveName)
            return item;
    return nullptr;
}

void SimStatusBar::clicked(std::int64_t window, const CurrentEvent& event)
{
    auto it = m_items.find(window);
    if (it == m_items.end())
        return;
    m_current = event;
    it->second->click();
    m_current = CurrentEvent{};
}

const MenuEntry* SimStatusBar::entryAt(const QStringList& path) const
{
    if (!m_openMenu)
        return nullptr;
    const std::vector<MenuEntry>* entries = &m_openMenu->entries;
    const MenuEntry* found = nullptr;
    for (const QString& title : path) {
        const auto it = std::find_if(entries->begin(), entries->end(), [&](const MenuEntry& e) {
            return !e.separator && e.title == title;
        });
        if (it == entries->end())
            return nullptr;
        found = &*it;
        entries = &it->submenu;
    }
    return found;
}

bool SimStatusBar::point(const QStringList& path)
{
    const MenuEntry* entry = entryAt(path);
    if (!entry || entry->submenu.empty())
        return false;
    m_pointedPath = path;
    return true;
}

SimStatusBar::Choice SimStatusBar::choose(const QStringList& path)
{
    if (!m_openMenu)
        return Choice::NoMenu;
    const MenuEntry* chosen = entryAt(path);
    if (!chosen || !chosen->submenu.empty())
        return Choice::NoSuchEntry;
    // The menu closes before its command runs, as a real menu does.
    const std::function<void()> action = chosen->action;
    closeMenu();
    if (action)
        action();
    return Choice::Done;
}

SimStatusItem::SimStatusItem(SimStatusBar& bar, SimDesktop& desktop, std::int64_t window,
                             QString autosaveName, double length)
    : m_bar(bar), m_desktop(desktop), m_window(window), m_autosaveName(std::move(autosaveName)),
      m_length(length)
{}

SimStatusItem::~SimStatusItem()
{
    m_bar.m_items.erase(m_window);
    m_desktop.removeItem(m_window);
}

void SimStatusItem::setLength(double length)
{
    m_length = length;
    m_desktop.setItemWidth(m_window, length);
}

void SimStatusItem::setImage(const QString& symbolName, bool)
{
    m_image = m_bar.symbolExists(symbolName) ? symbolName : QString();
}

std::optional<WindowServerRect> SimStatusItem::windowServerFrame() const
{
    if (auto placed = m_desktop.placed(m_window))
        return placed->frame;
    return std::nullopt;
}

bool SimStatusItem::onScreen() const
{
    auto placed = m_desktop.placed(m_window);
    return placed && placed->onScreen;
}

std::optional<ScreenRect> SimStatusItem::windowFrame() const
{
    const SimItem* own = m_desktop.item(m_window);
    if (!own || own->discarded)
        return std::nullopt;
    // Where items have no windows of their own, the item reports a stand-in frame at the
    // bottom left of the main display, nowhere near the menu bar.
    if (!m_desktop.itemsAreWindows())
        return ScreenRect{0, 0, std::min(m_length, 22.0), 22};
    const std::optional<WindowServerRect> frame = windowServerFrame();
    if (!frame)
        return std::nullopt;
    return Geometry::toScreen(*frame, m_desktop.mainScreen().height);
}

void SimStatusItem::popUpMenu(const MenuModel& menu)
{
    m_bar.m_openMenu = menu;
    m_bar.m_pointedPath.clear();
    m_bar.m_menuAnchor = windowServerFrame();
    ++m_bar.m_menusOpened;
}

} // namespace ravlin
