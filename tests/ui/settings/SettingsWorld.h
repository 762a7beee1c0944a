#pragma once

#include "SandboxSession.h"
#include "ScriptRunner.h"
#include "ui/settings/SettingsView.h"
#include "ui/settings/SettingsWindowController.h"

#include <QString>
#include <QTextStream>

#include <memory>

namespace ravlin {
class AppDelegate;
}

namespace ravlin::test {

// The whole application over a simulated desktop, with its settings window.
// The desktop is set up in the sandbox's script language; the window is then
// used through its widgets, as a person would.
class SettingsWorld {
public:
    SettingsWorld();
    ~SettingsWorld();

    // Runs sandbox script lines; a failing line fails the calling test.
    void script(const QString& lines);
    // Two apps' items, the clock and two of the system's items; engine mode when asked.
    void typicalDesktop(bool engine = false);
    // Starts the application and lets the first full rescan of the bar finish.
    void start(const QString& arguments = QString());
    void advance(double seconds);

    AppDelegate& app();
    sandbox::SandboxSession& session() { return m_session; }
    SettingsWindowController& window();
    // Opens the window on the tab and returns it.
    SettingsView& open(int tab);

    // A control of the open window by its object name (null when there is none).
    template <class T> T* find(const QString& name)
    {
        SettingsView* view = window().view();
        return view ? view->findChild<T*>(name) : nullptr;
    }
    // The key the controller gave the detected item with this label.
    QString keyOf(const QString& label);

private:
    sandbox::SandboxSession m_session;
    QString m_output;
    QTextStream m_out;
    std::unique_ptr<sandbox::ScriptRunner> m_runner;
};

} // namespace ravlin::test
