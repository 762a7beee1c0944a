#pragma once

#include "core/foundation/VirtualScheduler.h"
#include "platform/Platform.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>
#include <optional>

namespace ravlin {
class AppDelegate;
class DefaultsStore;
class Resources;
class SimDesktop;
class SimLoginItems;
} // namespace ravlin

namespace ravlin::sandbox {

// The state of the simulated application process.
struct ProcessState {
    bool running = false;
    std::optional<int> exitCode;
    bool terminateRequested = false;
    QString activationPolicy = QStringLiteral("accessory");
};

// One simulated desktop with the application on it, in virtual time: the world
// a sandbox script sets up, acts on and observes.
class SandboxSession {
public:
    struct Options {
        QString defaultsPath; // empty: a fresh settings file in a temporary folder
        QString logDir;       // empty: the fixed /tmp paths
        QString resourcesDir; // empty: found beside the executable
    };

    explicit SandboxSession(Options options);
    ~SandboxSession();

    VirtualScheduler& scheduler() { return m_scheduler; }
    Platform& platform() { return m_platform; }
    DefaultsStore& defaults() { return *m_platform.defaults; }
    SimLoginItems& login() { return *m_login; }
    SimDesktop& desktop() { return *m_desktop; }
    QString defaultsPath() const { return m_defaultsPath; }
    QString logDir() const { return m_options.logDir; }

    // The simulated system's preferred languages; fixed before anything reads texts.
    bool setSystemLanguages(const QStringList& languages);

    // The application object, made on first use (texts can be read before start).
    AppDelegate& app();
    bool hasApp() const { return bool(m_app); }
    bool started() const { return m_process.running || m_process.exitCode.has_value(); }
    void start(const QStringList& arguments);
    ProcessState& process() { return m_process; }

private:
    Options m_options;
    QTemporaryDir m_tempDir;
    QString m_defaultsPath;
    VirtualScheduler m_scheduler;
    std::unique_ptr<SimDesktop> m_desktop;
    Platform m_platform;
    SimLoginItems* m_login = nullptr;
    QStringList m_systemLanguages{QStringLiteral("en")};
    std::unique_ptr<Resources> m_resources;
    std::unique_ptr<AppDelegate> m_app;
    ProcessState m_process;
};

} // namespace ravlin::sandbox
