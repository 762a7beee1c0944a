#pragma once

#include <QElapsedTimer>
#include <QMap>
#include <QTimer>
#include <QWidget>

#include <memory>

class QCheckBox;
class QComboBox;
class QTextStream;
class QPlainTextEdit;
class QVBoxLayout;

namespace ravlin::sandbox {

class DesktopCanvas;
class SandboxSession;
class ScriptRunner;

// The interactive sandbox: the simulated screen with Ravlin running on it, and a side
// bar to launch and quit applications, grant permissions, switch the hide engine,
// load a script, and follow what the program does.
class SandboxWindow : public QWidget {
    Q_OBJECT
public:
    struct Setup {
        QString defaultsPath; // the settings file Ravlin reads and writes
        QString logDir;
        QSize screenSize;       // the simulated screen
        bool realSystem = true; // this machine's statistics, network and login item
    };

    explicit SandboxWindow(Setup setup);
    ~SandboxWindow() override;

    // Starts Ravlin over the sample desktop, or over a script's desktop.
    void startSample();
    void startScript(const QString& path);
    void log(const QString& line);
    SandboxSession* session() const { return m_session.get(); }

protected:
    // Real key presses reach the simulated system first: a chord Ravlin registered as a
    // global shortcut is taken there, whichever window has the focus, as on a Mac.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void restart(const QString& script);
    void tick();
    void reportChanges();
    QWidget* buildSidebar();
    void rebuildAppList();

    Setup m_setup;
    std::unique_ptr<SandboxSession> m_session;
    std::unique_ptr<QTextStream> m_out;
    std::unique_ptr<ScriptRunner> m_runner;
    QString m_runnerOut;
    DesktopCanvas* m_canvas = nullptr;
    QPlainTextEdit* m_log = nullptr;
    QVBoxLayout* m_appList = nullptr;
    QComboBox* m_engine = nullptr;
    QTimer m_clock;
    QCheckBox* m_dark = nullptr; // the system's appearance, kept across restarts
    QElapsedTimer m_elapsed;
    QMap<QString, double> m_lengths;
    QString m_currentScript;
};

} // namespace ravlin::sandbox
