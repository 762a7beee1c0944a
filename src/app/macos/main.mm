// Ravlin.app: the menu-bar agent over the real macOS services.
#include "ReopenHandler.h"
#include "UrlOpenFilter.h"

#include "core/app/AppDelegate.h"
#include "foundation/QtScheduler.h"
#include "foundation/ResourceBundle.h"
#include "platform/Platform.h"
#include "platform/macos/MacPlatform.h"
#include "core/app/MenuBarServices.h"
#include "ui/ArrangeHUD.h"
#include "ui/RavlinBar.h"
#include "ui/settings/SettingsWindowController.h"
#include "ui/welcome/WelcomeWindowController.h"

#import <AppKit/AppKit.h>

#include <QApplication>
#include <QLoggingCategory>
#include <QTimer>

using namespace ravlin;

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (qEnvironmentVariableIsEmpty("QT_LOGGING_RULES"))
        QLoggingCategory::setFilterRules(QStringLiteral("de.vexa.Ravlin.*.debug=false"));
    // An agent: no Dock icon and no main menu, decided before the event loop runs.
    [NSApp setActivationPolicy:NSApplicationActivationPolicyAccessory];
    QApplication::setQuitOnLastWindowClosed(false);

    QtScheduler scheduler;
    Platform platform = macos::makePlatform(scheduler);
    Resources resources(Resources::locate(QCoreApplication::applicationDirPath()),
                        platform.preferredLanguages);
    AppDelegate delegate(platform, scheduler, resources);

    ArrangeHUD arrangeGuide(*platform.screens, delegate.languageManager());
    RavlinBar panel(RavlinBarServices{
        scheduler, *platform.screens, delegate.preferences(), delegate.languageManager(),
        delegate.systemStats(), delegate.weatherService(), delegate.tileModel(),
        delegate.menuBar().permissions(), *platform.workspace, platform.appearance.get()});
    SettingsWindowController settings(delegate);
    WelcomeWindowController welcome(delegate);
    AppWindows windows;
    windows.guide = &arrangeGuide;
    windows.panel = &panel;
    windows.settings = &settings;
    windows.welcome = &welcome;
    delegate.setWindows(windows);

    // ravlin:// URLs from launchers, Shortcuts and scripts; one that launched the application
    // waits inside the delegate until start-up is over.
    UrlOpenFilter urls([&](const QString& url) { delegate.openURL(url); });
    app.installEventFilter(&urls);

    QTimer::singleShot(0, [&] {
        ReopenHandler::install([&] { delegate.applicationShouldHandleReopen(false); });
        delegate.applicationDidFinishLaunching(QCoreApplication::arguments());
    });
    return QApplication::exec();
}
