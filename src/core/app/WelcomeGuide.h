#pragma once

#include "core/settings/KeyChord.h"
#include "foundation/Scheduler.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>

namespace ravlin {

class DefaultsStore;
class PermissionManager;
class Preferences;
class WelcomePresenter;
class Workspace;

// What the welcome window shows: the introduction of a first start, or, when the menu bar
// shows none of Ravlin's items, the one way back to them.
enum class WelcomePage { Introduction, ItemNotShown };

struct WelcomeServices {
    Scheduler& scheduler;
    DefaultsStore& defaults;
    Preferences& preferences;
    PermissionManager& permissions;
    Workspace& workspace;
    // Whether the bar shows Ravlin's icon; absent while there is no status item to ask.
    std::function<std::optional<bool>()> iconShown;
};

// Getting started. On the first start it opens the welcome window: what Ravlin does, the two
// permissions with the way to grant each and whether it is granted now, the global shortcut
// and launch at login. Whenever the bar shows no Ravlin icon (the system's "Allow in the Menu
// Bar" list can switch any application's items off, Ravlin's too), it opens the window on a
// page with the one button that leads to that list, since the user has no other way to reach
// Ravlin then. While the window shows, it looks again every second, so that what it says
// follows what the user changes in System Settings.
class WelcomeGuide : public QObject {
    Q_OBJECT
public:
    // Just after the bar's own second look at where the items stand.
    static constexpr double firstLookDelay = 1.0;
    static constexpr double lookInterval = 1.0;
    static inline const QString completedKey = QStringLiteral("ravlin.welcomeShown");
    static inline const QString menuBarSettingsURL =
        QStringLiteral("x-apple.systempreferences:com.apple.MenuBarSettings");

    explicit WelcomeGuide(WelcomeServices services);
    ~WelcomeGuide() override;

    void setPresenter(WelcomePresenter* presenter) { m_presenter = presenter; }

    // The application started: the first look is taken a moment later.
    void launched();
    // The user opened the running application again. True when that showed the window (the
    // icon is not shown); otherwise the caller does what a reopen usually does.
    bool reopened();
    // Looks at the icon now: opens the window on the right page, or keeps it up to date.
    void look();

    bool completed() const;
    WelcomePage page() const { return m_page; }
    bool isShowing() const;
    bool screenRecording() const { return m_screenRecording; }
    bool accessibility() const { return m_accessibility; }
    std::optional<KeyChord> panelShortcut() const;
    bool launchAtLogin() const;

    // The window's controls.
    void setLaunchAtLogin(bool on);
    void openScreenRecordingSettings();
    void openAccessibilitySettings();
    void openMenuBarSettings();
    // The user is done with the introduction (its button, or closing the window).
    void finish();

Q_SIGNALS:
    // What the window shows changed.
    void changed();

private:
    void show(WelcomePage page);
    bool readPermissions();
    void startLooking();
    void stopLooking();

    WelcomeServices m_s;
    WelcomePresenter* m_presenter = nullptr;
    WelcomePage m_page = WelcomePage::Introduction;
    bool m_screenRecording = false;
    bool m_accessibility = false;
    Timer m_firstLook;
    Timer m_looking;
};

} // namespace ravlin
