#pragma once

#include "SettingsPage.h"

namespace ravlin {

class AppDelegate;
class NumberField;
class PopupButton;
class SettingsActions;
class SettingsRow;
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
    void buildPanel();
    QWidget* intervalControl();

    AppDelegate& m_app;
    SettingsActions& m_actions;
    ToggleSwitch* m_launchAtLogin = nullptr;
    ToggleSwitch* m_autoRehide = nullptr;
    SettingsRow* m_intervalRow = nullptr;
    NumberField* m_interval = nullptr;
    ToggleSwitch* m_alwaysHidden = nullptr;
    ToggleSwitch* m_revealOnHover = nullptr;
    ToggleSwitch* m_systemTiles = nullptr;
    ToggleSwitch* m_weather = nullptr;
    PopupButton* m_style = nullptr;
};

} // namespace ravlin
