#include "ScannerModel.h"

#include "MenuBarScanner.h"
#include "core/tiles/SiblingNames.h"

namespace ravlin {

ScannerModel::ScannerModel(const MenuBarScanner& scanner, MenuBarApps& apps)
    : m_scanner(scanner), m_apps(apps)
{}

void ScannerModel::refresh()
{
    std::vector<MenuBarItemInfo> items = m_scanner.scan();
    Q_EMIT willChange();
    m_items = std::move(items);
}

void ScannerModel::refreshMenuBarApps()
{
    std::vector<MenuBarApps::Entry> apps = m_apps.scanThirdParty();
    Q_EMIT willChange();
    m_menuBarApps = std::move(apps);
}

void ScannerModel::setDetected(std::vector<BarItem> detected)
{
    nameSiblingsApart(detected);
    Q_EMIT willChange();
    m_detected = std::move(detected);
}

} // namespace ravlin
