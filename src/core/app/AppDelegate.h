#pragma once

#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>

namespace ravlin {

class ArrangeGuide;
class DiagnosticLogs;
class GlobalShortcuts;
class ItemChanges;
class LanguageManager;
class MenuBarGestures;
class MenuBarHideEngine;
class MenuBarServices;
class NotificationCenter;
class Preferences;
class Resources;
class Rules;
class ScannerModel;
class Scheduler;
class SettingsPresenter;
class SoftwareUpdate;
class StatusBarController;
class SystemStats;
class TileModel;
class TilePanel;
class WatchList;
class UrlCommands;
class WeatherService;
class WelcomeGuide;
class WelcomePresenter;
struct Platform;

// The windows the application shows, made by the interface layer.
struct AppWindows {
    TilePanel* panel = nullptr;
    ArrangeGuide* guide = nullptr;
    SettingsPresenter* settings = nullptr;
    WelcomePresenter* welcome = nullptr;
};

// The application object: owns the single instance of each service of the
// core and runs the start-up sequence over the platform it is given.
class AppDelegate {
public:
    AppDelegate(Platform& platform, Scheduler& scheduler, const Resources& resources);
    ~AppDelegate();

    // The interface's windows; set before launching.
    void setWindows(const AppWindows& windows);
    const AppWindows& windows() const { return m_windows; }

    // The start-up sequence, with the process's arguments.
    void applicationDidFinishLaunching(const QStringList& arguments);
    // The user opened the running application again.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);
    // The system hands over a URL of the application's scheme (ravlin://…); whether it asked
    // for something the application does.
    bool openURL(const QString& url);

    Platform& platform() const { return m_platform; }
    Scheduler& scheduler() const { return m_scheduler; }
    NotificationCenter& notificationCenter() const { return *m_notifications; }
    Preferences& preferences() const { return *m_preferences; }
    LanguageManager& languageManager() const { return *m_language; }
    SystemStats& systemStats() const { return *m_stats; }
    WeatherService& weatherService() const { return *m_weather; }
    MenuBarServices& menuBar() const { return *m_menuBar; }
    ScannerModel& scannerModel() const { return *m_scannerModel; }
    TileModel& tileModel() const { return *m_tileModel; }
    DiagnosticLogs& diagnosticLogs() const { return *m_logs; }
    MenuBarHideEngine& hideEngine() const { return *m_hideEngine; }
    SoftwareUpdate& softwareUpdate() const { return *m_updates; }
    WelcomeGuide& welcomeGuide() const { return *m_welcome; }
    // Absent until start-up made it (and never made by a second copy or the self-test).
    StatusBarController* statusBar() const { return m_statusBar.get(); }
    // The system-wide shortcuts; absent until start-up made them, like the status bar.
    GlobalShortcuts* shortcuts() const { return m_shortcuts.get(); }
    // The items to show when they change, and the watch and spotlight that do it (absent until
    // start-up made them, like the status bar).
    WatchList& watchList() const { return *m_watchList; }
    ItemChanges* itemChanges() const { return m_changes.get(); }
    // The user's rules; absent until start-up made them.
    Rules* rules() const { return m_rules.get(); }
    // The menu bar's reveal gestures; absent until start-up made them.
    MenuBarGestures* gestures() const { return m_gestures.get(); }
    // Where the self-tests write their reports (empty: the default folder).
    void setLogDirectory(const QString& directory);
    bool launched() const { return m_launched; }

private:
    bool anotherInstanceIsRunning();
    void runHideEngineSelfTest();
    // Ravlin is being removed: the system settings it changed go back, and the process ends.
    void restoreSystemSettings();
    void makeRulesAndChanges();
    void showSettings(int tab);
    void makeShortcuts();

    Platform& m_platform;
    Scheduler& m_scheduler;
    std::unique_ptr<NotificationCenter> m_notifications;
    std::unique_ptr<Preferences> m_preferences;
    std::unique_ptr<LanguageManager> m_language;
    std::unique_ptr<SystemStats> m_stats;
    std::unique_ptr<WeatherService> m_weather;
    std::unique_ptr<DiagnosticLogs> m_logs;
    std::unique_ptr<MenuBarServices> m_menuBar;
    std::unique_ptr<ScannerModel> m_scannerModel;
    std::unique_ptr<TileModel> m_tileModel;
    std::unique_ptr<MenuBarHideEngine> m_hideEngine;
    std::unique_ptr<SoftwareUpdate> m_updates;
    std::unique_ptr<WelcomeGuide> m_welcome;
    std::unique_ptr<StatusBarController> m_statusBar;
    std::unique_ptr<GlobalShortcuts> m_shortcuts;
    std::unique_ptr<WatchList> m_watchList;
    std::unique_ptr<ItemChanges> m_changes;
    std::unique_ptr<Rules> m_rules;
    std::unique_ptr<MenuBarGestures> m_gestures;
    std::unique_ptr<UrlCommands> m_urls;
    AppWindows m_windows;
    QString m_hideLog;
    bool m_launched = false;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
