#pragma once

namespace ravlin {

// Shows the welcome window, which reads what to show from the WelcomeGuide and follows its
// changes.
class WelcomePresenter {
public:
    virtual ~WelcomePresenter() = default;
    // Shows the window, or brings it forward.
    virtual void show() = 0;
    virtual void hide() = 0;
    virtual bool isVisible() const = 0;
};

} // namespace ravlin
