#include "SimWindowServer.h"

#include "SimDesktop.h"
#include "SimItemPicture.h"

#include <algorithm>

namespace ravlin {

namespace {

PlistValue bounds(const WindowServerRect& r)
{
    return PlistDict{{QStringLiteral("X"), r.x},
                     {QStringLiteral("Y"), r.y},
                     {QStringLiteral("Width"), r.width},
                     {QStringLiteral("Height"), r.height}};
}

// `owner` is the process the window list names: the item's own, or the system's.
PlistValue windowEntry(const SimPlacedItem& p, const SimApp* owner)
{
    PlistDict d{
        {WindowKey::layer, p.item.layer},
        {WindowKey::number, p.item.window},
        {WindowKey::ownerPID, owner ? owner->pid : p.pid},
        {WindowKey::bounds, bounds(p.frame)},
        {WindowKey::ownerName, owner ? owner->name : p.item.owner},
    };
    // The window server leaves out what is not there.
    if (!p.item.title.isEmpty())
        d.insert(WindowKey::name, p.item.title);
    if (p.onScreen)
        d.insert(WindowKey::isOnscreen, true);
    return d;
}

} // namespace

std::optional<PlistArray> SimWindowServer::windowList(WindowListOption option)
{
    m_desktop.countWindowList();
    if (m_desktop.windowListFails)
        return std::nullopt;
    const SimScreen main = m_desktop.mainScreen();
    PlistArray list;
    list.push_back(PlistDict{
        {WindowKey::layer, 24},
        {WindowKey::number, 1},
        {WindowKey::ownerPID, 88},
        {WindowKey::bounds, bounds({0, 0, main.width, main.menuBarHeight})},
        {WindowKey::ownerName, QStringLiteral("Window Server")},
        {WindowKey::name, QStringLiteral("Menubar")},
        {WindowKey::isOnscreen, true},
    });
    if (m_desktop.itemsAreWindows())
        appendItemWindows(list, option);
    else
        appendBarWindows(list);
    // An open menu is a pop-up window in front of everything.
    if (const std::optional<SimDesktop::OpenMenu>& menu = m_desktop.openMenu())
        list.insert(list.begin(),
                    PlistDict{{WindowKey::layer, WindowLevel::popUpMenu},
                              {WindowKey::number, SimDesktop::openMenuWindow},
                              {WindowKey::ownerPID, menu->pid},
                              {WindowKey::bounds, bounds(menu->frame)},
                              {WindowKey::ownerName, menu->owner},
                              {WindowKey::isOnscreen, true}});
    for (const PlistValue& raw : m_desktop.rawWindows())
        list.push_back(raw);
    return list;
}

void SimWindowServer::appendItemWindows(PlistArray& list, WindowListOption option)
{
    const SimApp* owner = m_desktop.windowOwnersAreSystem() ? &m_desktop.menuBarOwner() : nullptr;
    // Front to back as the window server keeps them: the rightmost item first.
    const std::vector<SimPlacedItem> bar = m_desktop.bar();
    for (auto it = bar.rbegin(); it != bar.rend(); ++it) {
        if (option == WindowListOption::OnScreenOnly && !it->onScreen)
            continue;
        list.push_back(windowEntry(*it, owner));
    }
}

// One window per display holds every item; it is the agent's, at the status-window level.
void SimWindowServer::appendBarWindows(PlistArray& list)
{
    const SimApp& agent = m_desktop.menuBarOwner();
    for (std::size_t i = 0; i < m_desktop.screens().size(); ++i) {
        const WindowServerRect frame = m_desktop.screenFrame(i);
        const double height = m_desktop.screens()[i].menuBarHeight;
        list.push_back(PlistDict{
            {WindowKey::layer, 25},
            {WindowKey::number, std::int64_t(barWindowBase + i)},
            {WindowKey::ownerPID, agent.pid},
            {WindowKey::bounds, bounds({frame.x, 0, frame.width, height > 0 ? height : 24})},
            {WindowKey::ownerName, agent.name},
            {WindowKey::name, QStringLiteral("Menubar")},
            {WindowKey::isOnscreen, true},
        });
    }
}

QImage SimWindowServer::windowImage(std::uint32_t windowNumber)
{
    m_desktop.countWindowImage();
    if (!m_desktop.itemsAreWindows())
        return {}; // no window per item: nothing to take a picture of
    const std::optional<SimPlacedItem> p = m_desktop.placed(windowNumber);
    if (!p)
        return {};
    if (!p->onScreen) {
        QImage dot(1, 1, QImage::Format_ARGB32);
        dot.fill(Qt::transparent);
        return dot;
    }
    return simItemPicture(*p, m_desktop.badgeOf(p->item));
}

} // namespace ravlin
