#include "WelcomeWindowController.h"

#include "WelcomeView.h"
#include "core/app/AppDelegate.h"
#include "core/app/WelcomeGuide.h"
#include "platform/ApplicationControl.h"
#include "platform/Platform.h"
#include "ui/settings/WindowActivation.h"
#include "ui/settings/WindowPlacement.h"

#include <QGuiApplication>
#include <QScreen>

namespace ravlin {

WelcomeWindowController::WelcomeWindowController(AppDelegate& app) : m_app(app) {}

WelcomeWindowController::~WelcomeWindowController() = default;

void WelcomeWindowController::show()
{
    const bool opening = !isVisible();
    if (!m_view) {
        m_view = std::make_unique<WelcomeView>(m_app.welcomeGuide(), m_app.languageManager());
        connect(m_view.get(), &WelcomeView::closed, this, [this] {
            if (!m_hiding)
                m_app.welcomeGuide().finish();
        });
    }
    if (opening)
        placeOnScreen();
    m_view->show();
    if (ApplicationControl* application = m_app.platform().application.get())
        application->activate();
    WindowActivation::bringToFront(m_view.get());
}

void WelcomeWindowController::hide()
{
    if (!isVisible())
        return;
    m_hiding = true;
    m_view->close();
    m_hiding = false;
}

bool WelcomeWindowController::isVisible() const
{
    return m_view && m_view->isVisible();
}

// Centred, a little above the middle, as the system places a new window.
void WelcomeWindowController::placeOnScreen()
{
    m_view->move(newWindowOrigin(m_app.platform().screens.get(), m_view->size()));
}

} // namespace ravlin
