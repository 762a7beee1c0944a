#include "SettingsWindowController.h"

#include "MenuBarTab.h"
#include "SettingsActions.h"
#include "SettingsView.h"
#include "WindowActivation.h"
#include "WindowPlacement.h"
#include "core/app/AppDelegate.h"
#include "foundation/Logging.h"
#include "platform/ApplicationControl.h"
#include "platform/Platform.h"
#include "platform/Screens.h"

#include <QGuiApplication>
#include <QScreen>

namespace ravlin {

SettingsWindowController::SettingsWindowController(AppDelegate& app)
    : m_app(app), m_actions(std::make_unique<SettingsActions>(app))
{}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show(int tab)
{
    if (tab < 0 || tab >= SettingsView::tabCount) {
        qCWarning(lcUi) << "there is no settings tab" << tab << "- opening General";
        tab = 0;
    }
    const bool opening = !isVisible();
    if (!m_view)
        makeWindow();
    m_view->setCurrentTab(tab);
    ApplicationControl* application = m_app.platform().application.get();
    if (application)
        application->setActivationPolicy(ApplicationControl::Policy::Regular);
    if (opening)
        placeOnScreen();
    m_view->show();
    if (application)
        application->activate();
    WindowActivation::bringToFront(m_view.get());
}

void SettingsWindowController::showLayoutNaming()
{
    show(1);
    if (auto* tab = qobject_cast<MenuBarTab*>(m_view->page(1)))
        tab->focusLayoutName();
}

void SettingsWindowController::close()
{
    if (isVisible())
        m_view->close();
}

bool SettingsWindowController::isVisible() const
{
    return m_view && m_view->isVisible();
}

int SettingsWindowController::currentTab() const
{
    return m_view ? m_view->currentTab() : -1;
}

void SettingsWindowController::makeWindow()
{
    m_view = std::make_unique<SettingsView>(m_app, *m_actions);
    connect(m_view.get(), &SettingsView::closed, this, &SettingsWindowController::windowClosed);
}

void SettingsWindowController::placeOnScreen()
{
    // As tall as each tab needs, within the main display's visible height.
    if (Screens* screens = m_app.platform().screens.get())
        if (const std::optional<ScreenInfo> main = screens->mainScreen())
            m_view->setMaximumWindowHeight(int(main->visibleFrame.height));
    m_view->move(newWindowOrigin(m_app.platform().screens.get(), m_view->size()));
}

void SettingsWindowController::windowClosed()
{
    if (ApplicationControl* application = m_app.platform().application.get())
        application->setActivationPolicy(ApplicationControl::Policy::Accessory);
}

} // namespace ravlin
