#include "SimWindowServer.h"

#include "SimDesktop.h"

#include <QColor>

namespace ravlin {

namespace {

PlistValue bounds(const WindowServerRect& r)
{
    return PlistDict{{QStringLiteral("X"), r.x},
                     {QStringLiteral("Y"), r.y},
                     {QStringLiteral("Width"), r.width},
                     {QStringLiteral("Height"), r.height}};
}

PlistValue windowEntry(const SimPlacedItem& p)
{
    PlistDict d{
        {WindowKey::layer, p.item.layer},     {WindowKey::number, p.item.window},
        {WindowKey::ownerPID, p.pid},         {WindowKey::bounds, bounds(p.frame)},
        {WindowKey::ownerName, p.item.owner},
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
    // Front to back as the window server keeps them: the rightmost item first.
    const std::vector<SimPlacedItem> bar = m_desktop.bar();
    for (auto it = bar.rbegin(); it != bar.rend(); ++it) {
        if (option == WindowListOption::OnScreenOnly && !it->onScreen)
            continue;
        list.push_back(windowEntry(*it));
    }
    for (const PlistValue& raw : m_desktop.rawWindows())
        list.push_back(raw);
    return list;
}

QImage SimWindowServer::windowImage(std::uint32_t windowNumber)
{
    const std::optional<SimPlacedItem> p = m_desktop.placed(windowNumber);
    if (!p)
        return {};
    if (!p->onScreen) {
        QImage dot(1, 1, QImage::Format_ARGB32);
        dot.fill(Qt::transparent);
        return dot;
    }
    QImage image(int(p->frame.width), int(p->frame.height), QImage::Format_ARGB32);
    image.fill(QColor::fromHsv(int(windowNumber * 37 % 360), 160, 200));
    return image;
}

} // namespace ravlin
