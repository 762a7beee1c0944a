#pragma once

#include "foundation/VirtualScheduler.h"
#include "platform/Platform.h"

#include <QJsonArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class QWidget;

#include <memory>
#include <optional>
#include <vector>

namespace ravlin {
class AppDelegate;
class DefaultsStore;
class Resources;
class SimGeocoder;
class SimHttpClient;
class SimLocationService;
class ArrangeGuide;
class ArrangeHUD;
class RavlinBar;
class SettingsWindowController;
class WelcomeWindowController;
class SimApplicationControl;
class SimAssessmentMode;
class SimDesktop;
class SimEventMonitors;
class SimStatusBar;
class SimLoginItems;
class SimMenuBarSpacing;
class SimSystemProbe;
class SimHotKeys;
class SimSituation;
class SimUpdater;
struct KeyChord;
} // namespace ravlin

namespace ravlin::sandbox {

// One simulated desktop with the application on it, in virtual time: the world
// a sandbox script sets up, acts on and observes.
class SandboxSession {
public:
    struct Options {
        QString defaultsPath; // empty: a fresh settings file in a temporary folder
        QString logDir;       // empty: the fixed /tmp paths
        QString resourcesDir; // empty: found beside the executable
        // The machine's own statistics, location, geocoder and network instead of the simulated
        // ones.
        bool realSystem = false;
        // The XDG autostart entry instead of the simulated login item (the interactive sandbox).
        bool realLoginItems = false;
    };

    explicit SandboxSession(Options options);
    ~SandboxSession();

    VirtualScheduler& scheduler() { return m_scheduler; }
    Platform& platform() { return m_platform; }
    DefaultsStore& defaults() { return *m_platform.defaults; }
    SimLoginItems& login() { return *m_login; }
    // The simulated system-information services; null where the real ones serve.
    SimSystemProbe* probe() { return m_probe; }
    SimLocationService* location() { return m_location; }
    SimGeocoder* geocoder() { return m_geocoder; }
    SimHttpClient* http() { return m_http; }
    // Reads the machine's own figures from now on; only before the application exists.
    bool useMachineProbe();
    SimDesktop& desktop() { return *m_desktop; }
    SimStatusBar& statusBar();
    SimEventMonitors& monitors();
    SimAssessmentMode& assessmentMode();
    SimApplicationControl& application();
    // The interface's windows, made with the application.
    ArrangeGuide* arrangeGuide();
    QWidget* arrangeWindow();
    RavlinBar* tilePanel() { return m_ravlinBar.get(); }
    // The application's windows that show now, front last.
    std::vector<QWidget*> visibleWindows();
    // Presses the arrange guide's done button; false when the guide is not showing.
    bool pressArrangeDone();
    SettingsWindowController& settingsWindow();
    WelcomeWindowController& welcomeWindow();
    SimMenuBarSpacing& menuBarSpacing();
    SimSituation& situation();
    // Timer firings of the virtual clock since the last reset (what a rest costs).
    std::uint64_t firedCount() const { return m_scheduler.firedCount() - m_firedBase; }
    void resetFiredCount() { m_firedBase = m_scheduler.firedCount(); }
    SimHotKeys& hotKeys();
    // The simulated updater; null once a script took it away.
    SimUpdater* updater();
    void removeUpdater();
    // A person presses the chord: a registered global shortcut takes it first, as the
    // system does; otherwise it goes to the key window (the open panel, or the settings
    // window's shortcut field that is recording, or its focused control). Answers where it
    // went: "shortcut", "panel", "settings" or "" (nowhere this application hears).
    QString pressKey(const KeyChord& chord);
    // The window that receives typing now, if any.
    QWidget* keyTarget();
    QString defaultsPath() const { return m_defaultsPath; }
    // The URLs the system handed over, with what the application made of each.
    QJsonArray& handledUrls() { return m_handledUrls; }
    QString logDir() const { return m_options.logDir; }

    // The simulated system's preferred languages; fixed before anything reads texts.
    bool setSystemLanguages(const QStringList& languages);

    // The application object, made on first use (texts can be read before start).
    AppDelegate& app();
    bool hasApp() const { return bool(m_app); }
    // The process was started; its exit and policy are the simulated application's.
    bool started() const { return m_started; }
    void start(const QStringList& arguments);
    // The process ends (its status items leave the bar, its windows close) and starts
    // again over the same desktop and settings file, as after a quit and a new launch.
    void restart(const QStringList& arguments);
    // The process ends as in a restart, without starting again yet.
    void quit();

private:
    void installSimulatedSystem();

    Options m_options;
    QTemporaryDir m_tempDir;
    QString m_defaultsPath;
    VirtualScheduler m_scheduler;
    std::unique_ptr<SimDesktop> m_desktop;
    Platform m_platform;
    SimLoginItems* m_login = nullptr;
    std::unique_ptr<SimLoginItems> m_ownedSimLogin; // kept for scripts when the real item serves
    SimSystemProbe* m_probe = nullptr;
    SimLocationService* m_location = nullptr;
    SimGeocoder* m_geocoder = nullptr;
    SimHttpClient* m_http = nullptr;
    QStringList m_systemLanguages{QStringLiteral("en")};
    std::unique_ptr<Resources> m_resources;
    std::unique_ptr<ArrangeHUD> m_arrangeHUD;
    std::unique_ptr<RavlinBar> m_ravlinBar;
    std::unique_ptr<SettingsWindowController> m_settingsWindow;
    std::unique_ptr<WelcomeWindowController> m_welcomeWindow;
    std::unique_ptr<AppDelegate> m_app;
    bool m_started = false;
    std::uint64_t m_firedBase = 0;
    QJsonArray m_handledUrls;
};

} // namespace ravlin::sandbox
