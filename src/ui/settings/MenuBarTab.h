#pragma once

#include "ItemShortcutFields.h"
#include "SettingsPage.h"

#include <QHash>
#include <QPointer>

#include <cstdint>

class QLineEdit;
class QVBoxLayout;

namespace ravlin {

class AppDelegate;
class ItemSpacingSection;
class PopupButton;
class SegmentedControl;
class SettingsActions;
class SettingsColumn;
class SettingsGroup;
class SettingsRow;
class ToggleSwitch;
class WatchButton;
struct BarItem;

// Where each menu-bar item belongs, whatever hides the items: the detected items with a
// bar/panel/off choice, a bell to see it when it changes and a shortcut that opens it each,
// arrange mode, a full rescan and the item spacing; where whole applications are hidden
// together, a line that says so.
class MenuBarTab : public SettingsPage {
    Q_OBJECT
public:
    MenuBarTab(AppDelegate& app, SettingsActions& actions, QWidget* parent = nullptr);

    void refresh() override;
    void activated() override;

    // Scrolls the layouts into view and puts the keyboard in the name field.
    void focusLayoutName();
    SegmentedControl* placementControl(const QString& key) const { return m_placements.value(key); }

private:
    void buildItems();
    void buildTools();
    void fillItems(SettingsColumn& column);
    QWidget* itemRow(const BarItem& item);
    void choosePlacement(const QString& key, const QString& choice);
    // New items and named layouts.
    void buildNewItems();
    void buildLayouts();
    void refreshLayouts();
    void layoutNameChanged();
    void saveLayout();
    PopupButton* layoutPopup(const QString& name, bool withOff);
    void exportLayout();
    void importLayout();
    // Follows the scanner's lists: they change right after it announces, so the
    // window looks once the change is done, and only rebuilds rows when they differ.
    void scheduleReload();
    void reload();
    QString listSignature() const;

    AppDelegate& m_app;
    SettingsActions& m_actions;
    bool m_reloadPending = false;
    QString m_shownSignature;
    QVBoxLayout* m_listHolder = nullptr;
    QPointer<SettingsColumn> m_lists;
    QHash<QString, SegmentedControl*> m_placements;
    QHash<QString, WatchButton*> m_watches;
    ItemShortcutFields m_itemShortcuts{m_app};
    QPushButton* m_arrange = nullptr;
    ItemSpacingSection* m_spacing = nullptr;
    SegmentedControl* m_newItems = nullptr;
    PopupButton* m_layoutChoice = nullptr;
    PopupButton* m_layoutOnDisplay = nullptr;
    PopupButton* m_layoutOnBattery = nullptr;
    QLineEdit* m_layoutName = nullptr;
    QPushButton* m_saveLayout = nullptr;
    SettingsRow* m_saveRow = nullptr;
    SettingsGroup* m_layouts = nullptr;
};

} // namespace ravlin
