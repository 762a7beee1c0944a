#pragma once

#include "platform/StatusBar.h"

#include <QSet>
#include <QStringList>

#include <map>

namespace ravlin {

class SimDesktop;
class SimStatusItem;

// The application's own status items in the simulated bar. Items take their
// place by preferred position and push other items off screen by their length;
// a person's click reaches the item's action with its button and modifiers; a
// menu popped up stays open until a script chooses an entry or closes it.
class SimStatusBar final : public StatusBar {
public:
    explicit SimStatusBar(SimDesktop& desktop);
    ~SimStatusBar() override;

    std::unique_ptr<StatusItem> createItem(double length, const QString& autosaveName) override;
    CurrentEvent currentEvent() const override { return m_current; }
    bool symbolExists(const QString& symbolName) const override
    {
        return !missingSymbols.contains(symbolName);
    }

    // Symbols the simulated system lacks (tests of the fallbacks).
    QSet<QString> missingSymbols;

    // The items that exist now, by autosave name.
    std::vector<const SimStatusItem*> items() const;
    const SimStatusItem* item(const QString& autosaveName) const;

    // The open menu, if any; choose follows a path of titles into submenus.
    const std::optional<MenuModel>& openMenu() const { return m_openMenu; }
    enum class Choice { Done, NoMenu, NoSuchEntry };
    Choice choose(const QStringList& path);
    void closeMenu()
    {
        m_openMenu.reset();
        m_pointedPath.clear();
    }
    // The pointer rests on an entry with a submenu (a path of titles), which opens beside it.
    bool point(const QStringList& path);
    // The entry a path of titles leads to in the open menu, if any.
    const MenuEntry* entryAt(const QStringList& path) const;
    const QStringList& pointedPath() const { return m_pointedPath; }
    // The frame of the item whose menu is open, in window-server coordinates.
    std::optional<WindowServerRect> menuAnchor() const { return m_menuAnchor; }
    int menusOpened() const { return m_menusOpened; }

private:
    friend class SimStatusItem;
    void clicked(std::int64_t window, const CurrentEvent& event);

    SimDesktop& m_desktop;
    std::map<std::int64_t, SimStatusItem*> m_items;
    CurrentEvent m_current;
    std::optional<MenuModel> m_openMenu;
    QStringList m_pointedPath;
    std::optional<WindowServerRect> m_menuAnchor;
    int m_menusOpened = 0;
};

// One own item of the simulated bar; what it was told is kept for the dump.
class SimStatusItem final : public StatusItem {
public:
    SimStatusItem(SimStatusBar& bar, SimDesktop& desktop, std::int64_t window, QString autosaveName,
                  double length);
    ~SimStatusItem() override;

    QString autosaveName() const override { return m_autosaveName; }
    double length() const override { return m_length; }
    void setLength(double length) override;
    void setImage(const QString& symbolName, bool isTemplate) override;
    void setTitle(const QString& title) override { m_title = title; }
    void setToolTip(const QString& toolTip) override { m_toolTip = toolTip; }
    void setAppearsDisabled(bool disabled) override { m_appearsDisabled = disabled; }
    void setAction(std::function<void()> action) override { m_action = std::move(action); }
    std::optional<ScreenRect> windowFrame() const override;
    void popUpMenu(const MenuModel& menu) override;

    std::int64_t window() const { return m_window; }
    QString image() const { return m_image; }
    QString title() const { return m_title; }
    QString toolTip() const { return m_toolTip; }
    bool appearsDisabled() const { return m_appearsDisabled; }
    std::optional<WindowServerRect> windowServerFrame() const;
    bool onScreen() const;
    void click() const
    {
        if (m_action)
            m_action();
    }

private:
    SimStatusBar& m_bar;
    SimDesktop& m_desktop;
    std::int64_t m_window;
    QString m_autosaveName;
    double m_length;
    QString m_image;
    QString m_title;
    QString m_toolTip;
    bool m_appearsDisabled = false;
    std::function<void()> m_action;
};

} // namespace ravlin
