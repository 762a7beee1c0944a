#pragma once

#include "core/app/SettingsPresenter.h"

#include <QObject>

#include <memory>

namespace ravlin {

class AppDelegate;
class SettingsActions;
class SettingsView;

// The one settings window: made when first asked for, brought to the front when
// asked again. While it is open the application is a regular one, with a Dock
// icon and the keyboard; when it closes the application is an agent again.
class SettingsWindowController final : public QObject, public SettingsPresenter {
    Q_OBJECT
public:
    explicit SettingsWindowController(AppDelegate& app);
    ~SettingsWindowController() override;

    void show(int tab) override;
    void showLayoutNaming() override;
    void close();
    bool isVisible() const;
    // The tab in front; -1 before the window was first opened.
    int currentTab() const;
    // Absent until the window is first opened.
    SettingsView* view() const { return m_view.get(); }
    SettingsActions& actions() const { return *m_actions; }

private:
    void makeWindow();
    void placeOnScreen();
    void windowClosed();

    AppDelegate& m_app;
    std::unique_ptr<SettingsActions> m_actions;
    std::unique_ptr<SettingsView> m_view;
};

} // namespace ravlin
