#pragma once

#include "SettingsPage.h"

namespace ravlin {

class AppDelegate;
class PopupButton;
class SettingsActions;

// The interface language: the system's first, then the 26 languages by their own names.
class LanguageTab : public SettingsPage {
    Q_OBJECT
public:
    LanguageTab(AppDelegate& app, SettingsActions& actions, QWidget* parent = nullptr);

    void refresh() override;
    PopupButton* picker() const { return m_picker; }

private:
    AppDelegate& m_app;
    SettingsActions& m_actions;
    PopupButton* m_picker = nullptr;
};

} // namespace ravlin
