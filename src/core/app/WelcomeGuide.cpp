#include "WelcomeGuide.h"

#include "WelcomePresenter.h"
#include "core/discovery/PermissionManager.h"
#include "core/settings/Preferences.h"
#include "foundation/DefaultsStore.h"
#include "foundation/Logging.h"
#include "platform/Workspace.h"

namespace ravlin {

WelcomeGuide::WelcomeGuide(WelcomeServices services) : m_s(std::move(services)) {}

WelcomeGuide::~WelcomeGuide()
{
    m_firstLook.invalidate();
    m_looking.invalidate();
}

void WelcomeGuide::launched()
{
    m_firstLook = m_s.scheduler.after(firstLookDelay, [this] { look(); });
}

bool WelcomeGuide::reopened()
{
    const std::optional<bool> shown = m_s.iconShown ? m_s.iconShown() : std::nullopt;
    if (!shown || *shown)
        return false;
    show(WelcomePage::ItemNotShown);
    return true;
}

void WelcomeGuide::look()
{
    const bool permissionsChanged = readPermissions();
    const std::optional<bool> shown = m_s.iconShown ? m_s.iconShown() : std::nullopt;
    const bool showing = isShowing();
    if (shown && !*shown) {
        if (!showing || m_page != WelcomePage::ItemNotShown) {
            qCWarning(lcApp) << "the menu bar shows no Ravlin icon (switched off under Allow in "
                                "the Menu Bar?); the welcome window shows the way back";
            show(WelcomePage::ItemNotShown);
        } else if (permissionsChanged) {
            Q_EMIT changed();
        }
        return;
    }
    if (showing && m_page == WelcomePage::ItemNotShown) {
        qCInfo(lcApp) << "Ravlin's icon is back in the menu bar";
        if (completed()) {
            m_presenter->hide();
            stopLooking();
            return;
        }
        m_page = WelcomePage::Introduction;
        Q_EMIT changed();
        return;
    }
    if (!showing && !completed()) {
        show(WelcomePage::Introduction);
        return;
    }
    if (permissionsChanged)
        Q_EMIT changed();
}

bool WelcomeGuide::completed() const
{
    return m_s.defaults.boolForKey(completedKey);
}

bool WelcomeGuide::isShowing() const
{
    return m_presenter && m_presenter->isVisible();
}

std::optional<KeyChord> WelcomeGuide::panelShortcut() const
{
    return m_s.preferences.shortcut(Shortcut::Panel);
}

bool WelcomeGuide::launchAtLogin() const
{
    return m_s.preferences.launchAtLogin();
}

void WelcomeGuide::setLaunchAtLogin(bool on)
{
    m_s.preferences.setLaunchAtLogin(on);
    Q_EMIT changed();
}

void WelcomeGuide::openScreenRecordingSettings()
{
    m_s.permissions.openScreenRecordingSettings();
}

// Asking first puts Ravlin on the system's list, where the user then switches it on.
void WelcomeGuide::openAccessibilitySettings()
{
    m_s.permissions.requestAccessibility();
    m_s.permissions.openAccessibilitySettings();
}

void WelcomeGuide::openMenuBarSettings()
{
    if (!m_s.workspace.openURL(menuBarSettingsURL))
        qCWarning(lcApp) << "the Menu Bar settings could not be opened";
}

void WelcomeGuide::finish()
{
    if (m_page == WelcomePage::Introduction && !completed()) {
        m_s.defaults.set(completedKey, true);
        m_s.defaults.noteUserChange();
    }
    stopLooking();
    if (isShowing())
        m_presenter->hide();
}

void WelcomeGuide::show(WelcomePage page)
{
    m_page = page;
    readPermissions();
    if (!m_presenter) {
        qCInfo(lcApp) << "the welcome window would open";
        return;
    }
    m_presenter->show();
    startLooking();
    Q_EMIT changed();
}

// True when either permission changed since the last look.
bool WelcomeGuide::readPermissions()
{
    const bool screen = m_s.permissions.hasScreenRecording();
    const bool accessibility = m_s.permissions.hasAccessibility();
    const bool changedNow = screen != m_screenRecording || accessibility != m_accessibility;
    m_screenRecording = screen;
    m_accessibility = accessibility;
    return changedNow;
}

void WelcomeGuide::startLooking()
{
    if (!m_looking.isValid())
        m_looking = m_s.scheduler.every(lookInterval, [this] { look(); });
}

void WelcomeGuide::stopLooking()
{
    m_looking.invalidate();
}

} // namespace ravlin
