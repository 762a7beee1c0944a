#include "AppDelegate.h"

#include "GlobalShortcuts.h"
#include "MenuBarServices.h"
#include "SettingsPresenter.h"
#include "SoftwareUpdate.h"
#include "StartingStyle.h"
#include "UrlCommands.h"
#include "WelcomeGuide.h"
#include "core/bar/MenuBarGestures.h"
#include "core/bar/MenuBarHideEngine.h"
#include "core/bar/StatusBarController.h"
#include "core/bar/TilePanel.h"
#include "core/changes/ItemChanges.h"
#include "core/changes/WatchList.h"
#include "core/discovery/MenuBarScanner.h"
#include "core/discovery/PermissionManager.h"
#include "core/discovery/ScannerModel.h"
#include "core/rules/Rules.h"
#include "core/settings/LanguageManager.h"
#include "core/settings/ItemSpacing.h"
#include "core/settings/LaunchAtLogin.h"
#include "core/settings/Preferences.h"
#include "core/sysinfo/SystemStats.h"
#include "core/sysinfo/WeatherService.h"
#include "core/tiles/TileModel.h"
#include "foundation/DiagnosticLogs.h"
#include "foundation/Logging.h"
#include "foundation/NotificationCenter.h"
#include "foundation/SelfTestText.h"
#include "platform/Accessibility.h"
#include "platform/ApplicationControl.h"
#include "platform/Platform.h"
#include "platform/SystemProbe.h"
#include "platform/Situation.h"
#include "platform/Workspace.h"

#include <QPointer>

namespace ravlin {

AppDelegate::AppDelegate(Platform& platform, Scheduler& scheduler, const Resources& resources)
    : m_platform(platform), m_scheduler(scheduler),
      m_notifications(std::make_unique<NotificationCenter>()),
      m_preferences(std::make_unique<Preferences>(*platform.defaults, *m_notifications,
                                                  platform.loginItems.get())),
      m_language(std::make_unique<LanguageManager>(resources, *platform.defaults, *m_preferences)),
      m_stats(std::make_unique<SystemStats>(scheduler, *platform.systemProbe)),
      m_weather(std::make_unique<WeatherService>(scheduler, *platform.location, *platform.geocoder,
                                                 *platform.http)),
      m_logs(std::make_unique<DiagnosticLogs>()),
      m_menuBar(std::make_unique<MenuBarServices>(platform, scheduler, *platform.defaults,
                                                  *m_language, *m_logs)),
      m_scannerModel(std::make_unique<ScannerModel>(m_menuBar->scanner(), m_menuBar->apps())),
      m_tileModel(std::make_unique<TileModel>(*platform.defaults)),
      m_hideEngine(std::make_unique<MenuBarHideEngine>(platform.assessmentMode.get())),
      m_updates(std::make_unique<SoftwareUpdate>(*platform.defaults, platform.updater.get())),
      m_watchList(std::make_unique<WatchList>(*platform.defaults)),
      m_urls(std::make_unique<UrlCommands>(*this))
{
    m_welcome = std::make_unique<WelcomeGuide>(WelcomeServices{
        scheduler, *platform.defaults, *m_preferences, m_menuBar->permissions(),
        *platform.workspace, [this]() -> std::optional<bool> {
            if (!m_statusBar)
                return std::nullopt;
            return m_statusBar->mainItemShown();
        }});
}

void AppDelegate::setWindows(const AppWindows& windows)
{
    m_windows = windows;
    m_welcome->setPresenter(windows.welcome);
}

AppDelegate::~AppDelegate()
{
    m_welcome->setPresenter(nullptr);
    m_gestures.reset();
    m_shortcuts.reset();
    if (m_windows.panel && m_launched)
        m_windows.panel->onSettings = nullptr;
    // What works through the status bar goes before it.
    m_rules.reset();
    m_changes.reset();
    if (m_statusBar)
        m_statusBar->setPanelExtras({});
    m_statusBar.reset(); // before the services it borrows
}

void AppDelegate::setLogDirectory(const QString& directory)
{
    m_logs->setDirectory(directory);
}

bool AppDelegate::anotherInstanceIsRunning()
{
    Workspace& workspace = *m_platform.workspace;
    const std::int32_t self = workspace.currentProcessIdentifier();
    std::optional<QString> ownID;
    if (auto me = workspace.runningApplication(self))
        ownID = me->bundleIdentifier;
    else if (!m_platform.bundleIdentifier.isEmpty())
        ownID = m_platform.bundleIdentifier;
    for (const RunningApplication& app : workspace.runningApplications()) {
        // Two absent identifiers count as the same application.
        if (app.pid != self && app.bundleIdentifier == ownID) {
            qCInfo(lcApp) << "another copy is running (pid" << app.pid
                          << "); bringing it forward and quitting";
            workspace.activate(app.pid);
            m_platform.application->terminate();
            return true;
        }
    }
    return false;
}

void AppDelegate::applicationDidFinishLaunching(const QStringList& arguments)
{
    m_launched = true;
    // Run by an uninstaller, also while another copy still runs: it only gives back settings.
    if (arguments.contains(QStringLiteral("--restore-system-settings"))) {
        restoreSystemSettings();
        return;
    }
    if (anotherInstanceIsRunning())
        return;
    if (arguments.contains(QStringLiteral("--hidetest"))) {
        runHideEngineSelfTest();
        return;
    }
    m_preferences->registerDefaults();
    m_language->applyStored();
    m_updates->apply();
    StartingStyle::chooseForNewUser(*m_preferences, m_platform.screens->screens());
    m_statusBar =
        std::make_unique<StatusBarController>(StatusBarServices{m_scheduler,
                                                                *m_preferences,
                                                                *m_language,
                                                                *m_notifications,
                                                                *m_platform.statusBar,
                                                                *m_platform.eventMonitors,
                                                                *m_platform.screens,
                                                                *m_platform.workspace,
                                                                *m_platform.events,
                                                                *m_platform.application,
                                                                *m_hideEngine,
                                                                m_menuBar->captureEngine(),
                                                                m_menuBar->scanner(),
                                                                m_menuBar->reader(),
                                                                m_menuBar->system(),
                                                                m_menuBar->apps(),
                                                                *m_scannerModel,
                                                                m_menuBar->itemFactory(),
                                                                m_menuBar->grouping(),
                                                                m_menuBar->moveEngine(),
                                                                m_menuBar->resolver(),
                                                                m_windows.panel,
                                                                m_windows.guide,
                                                                m_windows.settings,
                                                                m_updates.get(),
                                                                m_platform.bundleIdentifier});
    makeRulesAndChanges();
    makeShortcuts();
    m_gestures = std::make_unique<MenuBarGestures>(
        MenuBarGestureServices{m_scheduler, *m_preferences, *m_notifications,
                               *m_platform.eventMonitors, *m_platform.screens, *m_platform.events,
                               *m_platform.windowServer, *m_platform.accessibility},
        *m_statusBar);
    m_urls->ready();
    if (m_preferences->showWeather())
        m_weather->refreshIfStale();
    // A first reading at launch primes the sampler; the tile panel starts it again when it shows
    // figures. A panel the user opened within that second needs it to go on.
    m_stats->start(SystemStats::defaultInterval);
    m_scheduler.after(1.0, [stats = QPointer<SystemStats>(m_stats.get()), panel = m_windows.panel] {
        if (stats && !(panel && panel->isVisible()))
            stats->stop();
    });
    PermissionManager& permissions = m_menuBar->permissions();
    if (!permissions.hasScreenRecording())
        permissions.requestScreenRecording();
    if (m_preferences->launchAtLogin() && m_platform.loginItems &&
        !LaunchAtLogin::isEnabled(*m_platform.loginItems))
        LaunchAtLogin::setEnabled(*m_platform.loginItems, true);
    m_welcome->launched();
    if (arguments.contains(QStringLiteral("--settings")))
        showSettings(0);
}

void AppDelegate::makeRulesAndChanges()
{
    m_changes = std::make_unique<ItemChanges>(m_platform, m_scheduler, *m_menuBar, *m_scannerModel,
                                              *m_watchList, *m_statusBar, *m_language);
    m_rules = std::make_unique<Rules>(
        SituationSources{m_scheduler, *m_platform.screens, *m_platform.workspace,
                         m_platform.systemProbe.get(), m_platform.situation.get()},
        *m_statusBar, *m_preferences, *m_language, *m_scannerModel);
    ChangeSpotlight& spotlight = m_changes->spotlight();
    Rules& rules = *m_rules;
    m_statusBar->setPanelExtras(
        {[&spotlight](std::vector<BarGroup> groups) { return spotlight.arrange(std::move(groups)); },
         [&rules] { return rules.inForceLine(); }, [&spotlight] { spotlight.seen(); }});
    m_rules->start();
    // macOS tells the Wi-Fi network's name only to applications allowed to use the location,
    // and announces no network change when that leave is given.
    QObject::connect(m_weather.get(), &WeatherService::locationAccessChanged, m_weather.get(),
                     [&rules] {
                         if (rules.watch().following().wifi)
                             rules.engine().evaluate(QStringLiteral("location access changed"));
                     });
}

void AppDelegate::restoreSystemSettings()
{
    ItemSpacing spacing(m_platform.menuBarSpacing.get(), *m_platform.defaults);
    const bool ok = spacing.restoreOnRemoval();
    if (ok)
        qCInfo(lcApp) << "the system settings Ravlin changed are back as they were";
    else
        qCWarning(lcApp) << "the system settings Ravlin changed could not all be put back";
    m_platform.application->exit(ok ? 0 : 1);
}

void AppDelegate::makeShortcuts()
{
    if (m_windows.panel)
        m_windows.panel->onSettings = [this] { showSettings(0); };
    GlobalShortcuts::Actions actions;
    actions.togglePanel = [this] {
        if (m_statusBar && !m_statusBar->arranging())
            m_statusBar->toggleTileFromKeyboard();
    };
    actions.toggleHiddenSection = [this] {
        if (m_statusBar && !m_statusBar->arranging())
            m_statusBar->menuToggle();
    };
    actions.openItem = [this](const QString& key) {
        if (m_statusBar && !m_statusBar->arranging())
            m_statusBar->openItemByKey(key);
    };
    m_shortcuts = std::make_unique<GlobalShortcuts>(m_platform.hotKeys.get(), *m_preferences,
                                                    *m_notifications, std::move(actions));
}

// A person who cannot find Ravlin's icon opens the application again: where the bar does not
// show it, the welcome window says how to bring it back instead of the settings opening.
bool AppDelegate::applicationShouldHandleReopen(bool)
{
    if (!m_welcome->reopened())
        showSettings(0);
    return true;
}

bool AppDelegate::openURL(const QString& url)
{
    return m_urls->handle(url);
}

void AppDelegate::showSettings(int tab)
{
    if (m_windows.settings)
        m_windows.settings->show(tab);
    else
        qCInfo(lcApp) << "the settings window would open on tab" << tab;
}

void AppDelegate::runHideEngineSelfTest()
{
    const bool trusted = m_platform.accessibility->isProcessTrusted();
    auto text = [](bool b) { return b ? QStringLiteral("true") : QStringLiteral("false"); };
    m_hideLog = QStringLiteral("HideEngine test @ ") +
                SelfTestText::date(m_scheduler.currentDate()) + QStringLiteral("\n  isAvailable=") +
                text(m_hideEngine->isAvailable()) + QStringLiteral("\n  AXTrusted=") +
                text(trusted) + u'\n';
    m_logs->write(DiagnosticLogs::hideLog, m_hideLog);
    m_hideEngine->restrict(
        {}, MenuBarHideEngine::allowedSystemItems(), [this](std::optional<PlatformError> error) {
            m_hideLog +=
                error ? QStringLiteral("  ❌ restrict error: ") + error->description + u'\n'
                      : QStringLiteral("  ✅ restrict OK — Drittanbieter-Items ausgeblendet (6s)\n");
            m_logs->write(DiagnosticLogs::hideLog, m_hideLog);
            // The later steps hold the application weakly: it may be gone by then.
            std::weak_ptr<bool> alive = m_alive;
            m_scheduler.after(6.0, [this, alive] {
                if (alive.expired())
                    return;
                m_hideEngine->release();
                m_hideLog += QStringLiteral("  ↩︎ release — Items wieder eingeblendet\n");
                m_logs->write(DiagnosticLogs::hideLog, m_hideLog);
                m_scheduler.after(1.0, [this, alive] {
                    if (!alive.expired())
                        m_platform.application->exit(0);
                });
            });
        });
}

} // namespace ravlin
