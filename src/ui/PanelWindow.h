#pragma once

#include <QWidget>

#include <functional>

namespace ravlin {

// The borderless floating window that hosts a menu-bar panel. It is shown without
// activating the application but may become the key window; losing that status
// is reported, as the platform's panel delegate would be told.
class PanelWindow : public QWidget {
    Q_OBJECT
public:
    PanelWindow();

    std::function<void()> onResignKey;

protected:
    bool event(QEvent* event) override;
};

} // namespace ravlin
