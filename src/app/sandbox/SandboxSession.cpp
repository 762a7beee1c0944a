#include "SandboxSession.h"

#include "core/app/AppDelegate.h"
#include "core/app/MenuBarServices.h"
#include "platform/ApplicationControl.h"
#include "platform/sim/SimApplicationControl.h"
#include "platform/sim/SimAssessmentMode.h"
#include "platform/sim/SimEventMonitors.h"
#include "platform/sim/SimMenuBarSpacing.h"
#include "platform/sim/SimSituation.h"
#include "platform/sim/SimStatusBar.h"
#include "ui/ArrangeHUD.h"
#include "ui/ArrangeView.h"
#include "ui/RavlinBar.h"
#include "ui/settings/SettingsView.h"
#include "ui/settings/SettingsWindowController.h"
#include "ui/settings/ShortcutField.h"
#include "ui/welcome/WelcomeView.h"
#include "ui/welcome/WelcomeWindowController.h"
#include "core/settings/KeyChord.h"
#include "platform/sim/SimHotKeys.h"
#include "platform/sim/SimUpdater.h"
#include "ui/RavlinBarView.h"

#include "foundation/ResourceBundle.h"
#include "platform/linux/LinuxServices.h"
#include "platform/linux/LinuxSystemProbe.h"
#include "platform/linux/PlistFileDefaultsStore.h"
#include "platform/linux/XdgLoginItems.h"
#include "platform/sim/SimDesktop.h"
#include "platform/sim/SimGeocoder.h"
#include "platform/sim/SimHttpClient.h"
#include "platform/sim/SimLocationService.h"
#include "platform/sim/SimLoginItems.h"
#include "platform/sim/SimPlatform.h"
#include "platform/sim/SimSystemProbe.h"
#include <QPushButton>

#include <QCoreApplication>
#include <QKeyEvent>

namespace ravlin::sandbox {

SandboxSession::SandboxSession(Options options)
    : m_options(std::move(options)), m_desktop(std::make_unique<SimDesktop>())
{
    m_defaultsPath = m_options.defaultsPath.isEmpty()
                         ? m_tempDir.filePath(QStringLiteral("de.vexa.Ravlin.plist"))
                         : m_options.defaultsPath;
    m_platform.defaults = std::make_unique<PlistFileDefaultsStore>(m_defaultsPath);
    auto login = std::make_unique<SimLoginItems>();
    m_login = login.get();
    if (m_options.realLoginItems)
        m_platform.loginItems =
            std::make_unique<XdgLoginItems>(QCoreApplication::applicationFilePath());
    else
        m_platform.loginItems = std::move(login);
    m_ownedSimLogin = std::move(login);
    m_platform.bundleIdentifier = QStringLiteral("de.vexa.Ravlin");
    installSimServices(m_platform, *m_desktop);
    installSimBarServices(m_platform, *m_desktop, m_scheduler);
    // Clicks that go to other applications reach the global monitors; clicks on
    // the application's own items do not.
    m_desktop->addClickListener([this](const SimUserClick& click) {
        const auto hit = m_desktop->itemAt(click.point);
        if (hit && hit->item.own)
            return;
        EventMonitors::Event event;
        event.kind = click.button == MouseButton::Right ? EventMonitors::RightMouseDown
                                                        : EventMonitors::LeftMouseDown;
        event.modifierFlags = click.flags;
        monitors().deliver(event);
    });
    m_desktop->setDefaults(m_platform.defaults.get());
    m_desktop->setScheduler(&m_scheduler);
    if (m_options.realSystem)
        LinuxServices::install(m_platform, m_scheduler);
    else
        installSimulatedSystem();
}

void SandboxSession::installSimulatedSystem()
{
    auto probe = std::make_unique<SimSystemProbe>(m_scheduler);
    m_probe = probe.get();
    m_platform.systemProbe = std::move(probe);
    auto location = std::make_unique<SimLocationService>(m_scheduler);
    m_location = location.get();
    m_platform.location = std::move(location);
    situation().setWifiNameGate([location = m_location] {
        return location->authorizationStatus() == LocationAuthorization::AuthorizedAlways;
    });
    auto geocoder = std::make_unique<SimGeocoder>(m_scheduler);
    m_geocoder = geocoder.get();
    m_platform.geocoder = std::move(geocoder);
    auto http = std::make_unique<SimHttpClient>(m_scheduler);
    m_http = http.get();
    m_platform.http = std::move(http);
}

bool SandboxSession::useMachineProbe()
{
    if (m_app)
        return false;
    m_platform.systemProbe = std::make_unique<LinuxSystemProbe>();
    m_probe = nullptr;
    return true;
}

SandboxSession::~SandboxSession()
{
    // The settings window works on the application, so it goes first; the application
    // goes before the other windows and the services it uses.
    m_settingsWindow.reset();
    m_welcomeWindow.reset();
    m_app.reset();
}

SimStatusBar& SandboxSession::statusBar()
{
    return static_cast<SimStatusBar&>(*m_platform.statusBar);
}

SimEventMonitors& SandboxSession::monitors()
{
    return static_cast<SimEventMonitors&>(*m_platform.eventMonitors);
}

SimAssessmentMode& SandboxSession::assessmentMode()
{
    return static_cast<SimAssessmentMode&>(*m_platform.assessmentMode);
}

SimApplicationControl& SandboxSession::application()
{
    return static_cast<SimApplicationControl&>(*m_platform.application);
}

ArrangeGuide* SandboxSession::arrangeGuide()
{
    return m_arrangeHUD.get();
}

QWidget* SandboxSession::arrangeWindow()
{
    return m_arrangeHUD ? m_arrangeHUD->window() : nullptr;
}

std::vector<QWidget*> SandboxSession::visibleWindows()
{
    std::vector<QWidget*> windows;
    QWidget* settings =
        m_settingsWindow && m_settingsWindow->isVisible() ? m_settingsWindow->view() : nullptr;
    QWidget* welcome =
        m_welcomeWindow && m_welcomeWindow->isVisible() ? m_welcomeWindow->view() : nullptr;
    for (QWidget* window :
         {welcome, settings, arrangeWindow(), m_ravlinBar ? m_ravlinBar->window() : nullptr})
        if (window && window->isVisible())
            windows.push_back(window);
    return windows;
}

bool SandboxSession::pressArrangeDone()
{
    if (!m_arrangeHUD || !m_arrangeHUD->isVisible())
        return false;
    const auto buttons = m_arrangeHUD->window()->findChildren<QPushButton*>();
    if (buttons.isEmpty())
        return false;
    buttons.first()->click();
    return true;
}

SettingsWindowController& SandboxSession::settingsWindow()
{
    app();
    return *m_settingsWindow;
}

WelcomeWindowController& SandboxSession::welcomeWindow()
{
    app();
    return *m_welcomeWindow;
}

SimHotKeys& SandboxSession::hotKeys()
{
    return static_cast<SimHotKeys&>(*m_platform.hotKeys);
}

QWidget* SandboxSession::keyTarget()
{
    if (m_ravlinBar && m_ravlinBar->isVisible() && m_ravlinBar->view())
        return m_ravlinBar->view();
    if (!m_settingsWindow || !m_settingsWindow->isVisible() || !m_settingsWindow->view())
        return nullptr;
    QWidget* view = m_settingsWindow->view();
    for (ShortcutField* field : view->findChildren<ShortcutField*>())
        if (field->isRecording())
            return field;
    return view->focusWidget() ? view->focusWidget() : view;
}

QString SandboxSession::pressKey(const KeyChord& chord)
{
    if (hotKeys().press(chord.virtualKeyCode(), chord.hotKeyModifiers()))
        return QStringLiteral("shortcut");
    QWidget* target = keyTarget();
    if (!target)
        return QString();
    const auto modifiers = Qt::KeyboardModifiers(chord.qtModifiers());
    // Command and Control chords type nothing.
    const QString text = modifiers & (Qt::ControlModifier | Qt::MetaModifier) ? QString()
                                                                               : chord.typedText();
    QKeyEvent press(QEvent::KeyPress, chord.qtKey(), modifiers, text);
    QCoreApplication::sendEvent(target, &press);
    QKeyEvent release(QEvent::KeyRelease, chord.qtKey(), modifiers, text);
    QCoreApplication::sendEvent(target, &release);
    return m_ravlinBar && target == m_ravlinBar->view() ? QStringLiteral("panel")
                                                         : QStringLiteral("settings");
}

SimUpdater* SandboxSession::updater()
{
    return static_cast<SimUpdater*>(m_platform.updater.get());
}

void SandboxSession::removeUpdater()
{
    m_platform.updater.reset();
}

SimSituation& SandboxSession::situation()
{
    return static_cast<SimSituation&>(*m_platform.situation);
}

SimMenuBarSpacing& SandboxSession::menuBarSpacing()
{
    return static_cast<SimMenuBarSpacing&>(*m_platform.menuBarSpacing);
}

bool SandboxSession::setSystemLanguages(const QStringList& languages)
{
    if (m_app)
        return false;
    m_systemLanguages = languages;
    return true;
}

AppDelegate& SandboxSession::app()
{
    if (!m_app) {
        QString dir = m_options.resourcesDir;
        if (dir.isEmpty())
            dir = qEnvironmentVariable("RAVLIN_RESOURCES");
        if (dir.isEmpty())
            dir = Resources::locate(QCoreApplication::applicationDirPath());
        m_platform.preferredLanguages = m_systemLanguages;
        m_resources = std::make_unique<Resources>(dir, m_systemLanguages);
        m_app = std::make_unique<AppDelegate>(m_platform, m_scheduler, *m_resources);
        m_arrangeHUD = std::make_unique<ArrangeHUD>(*m_platform.screens, m_app->languageManager());
        m_ravlinBar = std::make_unique<RavlinBar>(RavlinBarServices{
            m_scheduler, *m_platform.screens, m_app->preferences(), m_app->languageManager(),
            m_app->systemStats(), m_app->weatherService(), m_app->tileModel(),
            m_app->menuBar().permissions(), *m_platform.workspace, m_platform.appearance.get()});
        m_ravlinBar->setAnimated(false); // virtual time has no animation frames
        m_settingsWindow = std::make_unique<SettingsWindowController>(*m_app);
        m_welcomeWindow = std::make_unique<WelcomeWindowController>(*m_app);
        AppWindows windows;
        windows.guide = m_arrangeHUD.get();
        windows.panel = m_ravlinBar.get();
        windows.settings = m_settingsWindow.get();
        windows.welcome = m_welcomeWindow.get();
        m_app->setWindows(windows);
        m_app->setLogDirectory(m_options.logDir);
    }
    return *m_app;
}

void SandboxSession::restart(const QStringList& arguments)
{
    quit();
    start(arguments);
}

void SandboxSession::quit()
{
    // In the order of the destructor: what works on the application goes first.
    m_settingsWindow.reset();
    m_welcomeWindow.reset();
    m_app.reset();
    m_ravlinBar.reset();
    m_arrangeHUD.reset();
    statusBar().closeMenu();
    m_scheduler.runDue(); // whatever the old process left due finds it gone
}

void SandboxSession::start(const QStringList& arguments)
{
    m_started = true;
    app().applicationDidFinishLaunching(arguments);
    m_scheduler.runDue();
}

} // namespace ravlin::sandbox
