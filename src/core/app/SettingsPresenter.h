#pragma once

namespace ravlin {

// Opens the settings window on a tab (0 General, 1 Menu bar, 2 Language, 3 About).
class SettingsPresenter {
public:
    virtual ~SettingsPresenter() = default;
    virtual void show(int tab) = 0;
    // The Menu Bar tab scrolled to its layouts, with the name field ready for typing.
    virtual void showLayoutNaming() { show(1); }
};

} // namespace ravlin
