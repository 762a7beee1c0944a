#pragma once

#include "SettingsPage.h"

namespace ravlin {

class AppDelegate;
class SettingsActions;

// Name, tagline and version with the check for updates, the notices of what the program ships with, and
// the way to the system's own Control Center settings.
class AboutTab : public SettingsPage {
    Q_OBJECT
public:
    AboutTab(AppDelegate& app, SettingsActions& actions, QWidget* parent = nullptr);

    static QString version() { return QStringLiteral(RAVLIN_VERSION); }

private:
    void buildHeader();
    void buildNotices();
    void buildControlCentre();

    AppDelegate& m_app;
    SettingsActions& m_actions;
};

} // namespace ravlin
