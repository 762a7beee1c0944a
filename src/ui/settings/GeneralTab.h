#pragma once

#include "SettingsPage.h"
#include "core/settings/ShortcutRules.h"

namespace ravlin {

class AppDelegate;
class NumberField;
class PopupButton;
class SettingsGroup;
class SettingsActions;
class SettingsRow;
class ShortcutField;
class ToggleSwitch;

// Start-up, hiding and the panel: the switches of the settings store, the
// auto-rehide interval and the tile style.
class GeneralTab : public SettingsPage {
    Q_OBJECT
public:
    GeneralTab(AppDelegate& app, SettingsActions& actions, QWidget* parent = nullptr);

    void refresh() override;

private:
    void buildStartup();
    void buildHiding();
    void buildGestures();
    void buildPanel();
    void buildShortcuts();
    void buildUpdates();
    void addShortcutRow(SettingsGroup* group, Shortcut which, const QString& name,
                        const QString& titleKey);
    void recorded(Shortcut which, const std::optional<KeyChord>& chord);
    void showProblem(Shortcut which);
    QWidget* intervalControl();

    AppDelegate& m_app;
    SettingsActions& m_actions;
    ToggleSwitch* m_launchAtLogin = nullptr;
    ToggleSwitch* m_autoRehide = nullptr;
    SettingsRow* m_intervalRow = nullptr;
    NumberField* m_interval = nullptr;
    ToggleSwitch* m_alwaysHidden = nullptr;
    ToggleSwitch* m_clickShowsInBar = nullptr;
    ToggleSwitch* m_revealOnHover = nullptr;
    ToggleSwitch* m_gestureClick = nullptr;
    ToggleSwitch* m_gestureScroll = nullptr;
    ToggleSwitch* m_gestureHover = nullptr;
    ToggleSwitch* m_barStatistics = nullptr;
    ToggleSwitch* m_systemTiles = nullptr;
    ToggleSwitch* m_weather = nullptr;
    PopupButton* m_style = nullptr;
    ToggleSwitch* m_autoUpdate = nullptr;     // absent without an updater
    PopupButton* m_updateChannel = nullptr;
    struct ShortcutRow {
        SettingsRow* row = nullptr;
        ShortcutField* field = nullptr;
        QString refusal; // the text key of the last chord refused, until the next recording
        QString holder;  // the item that holds that chord, by name
    };
    ShortcutRow m_panelShortcut;
    ShortcutRow m_hiddenShortcut;
    ShortcutRow& shortcutRow(Shortcut which)
    {
        return which == Shortcut::Panel ? m_panelShortcut : m_hiddenShortcut;
    }

public:
    // For the sandbox and tests.
    ShortcutField* shortcutField(Shortcut which) { return shortcutRow(which).field; }
    SettingsRow* shortcutSettingsRow(Shortcut which) { return shortcutRow(which).row; }
};

} // namespace ravlin
