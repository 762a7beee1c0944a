#pragma once

#include "SettingsPage.h"

#include <QHash>
#include <QPointer>

#include <cstdint>

class QLineEdit;
class QVBoxLayout;

namespace ravlin {

class AppDelegate;
class PopupButton;
class SegmentedControl;
class SettingsActions;
class SettingsColumn;
class SettingsGroup;
class SettingsRow;
class ToggleSwitch;
struct BarItem;

// Where each menu-bar item belongs. With separators: the detected items with a
// bar/panel/off choice each, arrange mode, item spacing and a full rescan. With
// the system's assessment mode: switches that hide apps and system items.
class MenuBarTab : public SettingsPage {
    Q_OBJECT
public:
    MenuBarTab(AppDelegate& app, SettingsActions& actions, QWidget* parent = nullptr);

    void refresh() override;
    void activated() override;

    bool engineMode() const { return m_engine; }
    // Scrolls the layouts into view and puts the keyboard in the name field.
    void focusLayoutName();
    SegmentedControl* placementControl(const QString& key) const { return m_placements.value(key); }

private:
    // Plain mode.
    void buildPlain();
    void buildTools();
    void fillItems(SettingsColumn& column);
    QWidget* itemRow(const BarItem& item);
    void choosePlacement(const QString& key, const QString& choice);
    void applySpacing();
    // Both modes: new items and named layouts.
    void buildNewItems();
    void buildLayouts();
    void refreshLayouts();
    void layoutNameChanged();
    void saveLayout();
    PopupButton* layoutPopup(const QString& name, bool withOff);
    void exportLayout();
    void importLayout();
    // Engine mode.
    void buildEngine();
    void fillApps();
    void buildSystemItems();
    // Follows the scanner's lists: they change right after it announces, so the
    // window looks once the change is done, and only rebuilds rows when they differ.
    void scheduleReload();
    void reload();
    QString listSignature() const;

    AppDelegate& m_app;
    SettingsActions& m_actions;
    bool m_engine;
    bool m_reloadPending = false;
    QString m_shownSignature;
    QVBoxLayout* m_listHolder = nullptr;
    QPointer<SettingsColumn> m_lists;
    QHash<QString, SegmentedControl*> m_placements;
    QPushButton* m_arrange = nullptr;
    SettingsRow* m_spacingRow = nullptr;
    SettingsGroup* m_apps = nullptr;
    QHash<QString, ToggleSwitch*> m_appSwitches;
    QHash<std::int64_t, ToggleSwitch*> m_systemSwitches;
    ToggleSwitch* m_spotlight = nullptr;
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
