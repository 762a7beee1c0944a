#pragma once

#include "MenuBarApps.h"
#include "MenuBarItemInfo.h"
#include "core/tiles/BarItem.h"

#include <QObject>

#include <vector>

namespace ravlin {

class MenuBarScanner;

// The observable lists the settings window shows: the status items on screen,
// the items the controller detected, and the applications with menu-bar extras.
class ScannerModel : public QObject {
    Q_OBJECT
public:
    ScannerModel(const MenuBarScanner& scanner, MenuBarApps& apps);

    const std::vector<MenuBarItemInfo>& items() const { return m_items; }
    const std::vector<BarItem>& detected() const { return m_detected; }
    const std::vector<MenuBarApps::Entry>& menuBarApps() const { return m_menuBarApps; }

    void refresh();
    void refreshMenuBarApps();
    void setDetected(std::vector<BarItem> detected);

Q_SIGNALS:
    void willChange();

private:
    const MenuBarScanner& m_scanner;
    MenuBarApps& m_apps;
    std::vector<MenuBarItemInfo> m_items;
    std::vector<BarItem> m_detected;
    std::vector<MenuBarApps::Entry> m_menuBarApps;
};

} // namespace ravlin
