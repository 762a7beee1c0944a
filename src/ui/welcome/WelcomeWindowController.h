#pragma once

#include "core/app/WelcomePresenter.h"

#include <QObject>

#include <memory>

namespace ravlin {

class AppDelegate;
class WelcomeView;

// The welcome window: made when first shown, centred on the main display, and brought to the
// front with the keyboard. Closing it tells the guide the user is done with it.
class WelcomeWindowController final : public QObject, public WelcomePresenter {
    Q_OBJECT
public:
    explicit WelcomeWindowController(AppDelegate& app);
    ~WelcomeWindowController() override;

    void show() override;
    void hide() override;
    bool isVisible() const override;
    // Absent until the window is first shown.
    WelcomeView* view() const { return m_view.get(); }

private:
    void placeOnScreen();

    AppDelegate& m_app;
    std::unique_ptr<WelcomeView> m_view;
    bool m_hiding = false;
};

} // namespace ravlin
