#include "SimWorkspace.h"

#include "SimDesktop.h"

namespace ravlin {

namespace {
const QString applicationsFolder = QStringLiteral("/Applications/");
} // namespace

SimWorkspace::SimWorkspace(SimDesktop& desktop) : m_desktop(desktop)
{
    m_desktop.addLifecycleListener([this](const SimApp& app, bool launched) {
        notify(launched ? WorkspaceNotification::DidLaunchApplication
                        : WorkspaceNotification::DidTerminateApplication,
               describe(app));
    });
}

RunningApplication SimWorkspace::describe(const SimApp& app)
{
    RunningApplication r;
    if (!app.bundleId.isEmpty())
        r.bundleIdentifier = app.bundleId;
    if (!app.name.isEmpty())
        r.localizedName = app.name;
    r.pid = app.pid;
    r.activationPolicy = app.policy;
    return r;
}

std::vector<RunningApplication> SimWorkspace::runningApplications()
{
    std::vector<RunningApplication> result;
    for (const SimApp& app : m_desktop.apps()) {
        if (app.running)
            result.push_back(describe(app));
    }
    return result;
}

std::optional<RunningApplication> SimWorkspace::runningApplication(std::int32_t pid)
{
    const SimApp* app = m_desktop.appByPid(pid);
    if (!app || !app->running)
        return std::nullopt;
    return describe(*app);
}

std::int32_t SimWorkspace::currentProcessIdentifier()
{
    return SimDesktop::ownPid;
}

bool SimWorkspace::openURL(const QString& url)
{
    m_desktop.recordOpened(url);
    return true;
}

std::optional<QString> SimWorkspace::urlForApplication(const QString& bundleIdentifier)
{
    const SimApp* app = m_desktop.app(bundleIdentifier);
    if (!app)
        return std::nullopt;
    return applicationsFolder + app->name + QStringLiteral(".app");
}

bool SimWorkspace::openApplication(const QString& applicationURL, bool activates)
{
    Q_UNUSED(activates);
    for (const SimApp& app : m_desktop.apps()) {
        if (applicationsFolder + app.name + QStringLiteral(".app") == applicationURL) {
            m_desktop.recordOpened(app.bundleId);
            if (!app.running)
                m_desktop.launch(app.bundleId);
            return true;
        }
    }
    return false;
}

bool SimWorkspace::activate(std::int32_t pid)
{
    return m_desktop.appByPid(pid) != nullptr;
}

void SimWorkspace::terminateSelf()
{
    m_desktop.terminateRequested = true;
}

} // namespace ravlin
