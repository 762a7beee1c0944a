#pragma once

#include <QPointer>
#include <QWidget>

#include <array>
#include <vector>

class QStackedWidget;

namespace ravlin {

class AppDelegate;
class SettingsActions;
class SettingsPage;
class SettingsToolbar;

// The settings window: the toolbar of tabs over the chosen tab's page. The
// window is as tall as the page needs, as the system's settings windows are; only a
// page taller than the screen allows scrolls.
// A change of language rebuilds the whole content in that language and direction.
class SettingsView : public QWidget {
    Q_OBJECT
public:
    static constexpr int tabCount = 5;

    SettingsView(AppDelegate& app, SettingsActions& actions, QWidget* parent = nullptr);
    ~SettingsView() override;

    int currentTab() const { return m_tab; }
    // Brings the tab to the front (0 General, 1 Menu bar, 2 Language, 3 About, 4 Rules; Rules
    // stands after Menu bar in the toolbar).
    void setCurrentTab(int tab);
    SettingsPage* page(int tab) const;
    SettingsToolbar* toolbar() const { return m_toolbar; }
    // Makes the content anew in the current language and direction.
    void rebuild();
    // The tallest the window may be: its screen's visible height.
    void setMaximumWindowHeight(int height);

Q_SIGNALS:
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build();
    void showTab(int tab, bool announce);
    void refreshPages();
    void fitToPage();

    AppDelegate& m_app;
    SettingsActions& m_actions;
    QWidget* m_content = nullptr;
    // Content replaced by a rebuild, waiting for the event loop to delete it.
    std::vector<QPointer<QWidget>> m_retired;
    SettingsToolbar* m_toolbar = nullptr;
    QStackedWidget* m_stack = nullptr;
    std::array<SettingsPage*, tabCount> m_pages{};
    int m_tab = 0;
    int m_maximumHeight = 100000;
};

} // namespace ravlin
