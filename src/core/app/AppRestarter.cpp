#include "AppRestarter.h"

#include "core/tiles/BarItem.h"
#include "foundation/Logging.h"

#include <QSet>

namespace ravlin {

AppRestarter::AppRestarter(Workspace& workspace, Scheduler& scheduler, QString ownBundleId)
    : m_workspace(workspace), m_scheduler(scheduler), m_ownBundleId(std::move(ownBundleId))
{}

AppRestarter::~AppRestarter()
{
    *m_alive = false;
    m_patience.invalidate();
}

std::vector<RunningApplication> AppRestarter::candidates(const std::vector<BarItem>& items)
{
    QSet<std::int32_t> withItems;
    for (const BarItem& item : items)
        if (item.pid > 0)
            withItems.insert(item.pid);
    std::vector<RunningApplication> found;
    for (const RunningApplication& app : m_workspace.runningApplications()) {
        const QString bundle = app.bundleIdentifier.value_or(QString());
        if (bundle.isEmpty() || bundle == m_ownBundleId ||
            bundle.startsWith(QStringLiteral("com.apple.")) ||
            app.activationPolicy != ActivationPolicy::Accessory || !withItems.contains(app.pid) ||
            !m_workspace.urlForApplication(bundle))
            continue;
        found.push_back(app);
    }
    return found;
}

void AppRestarter::restart(const std::vector<RunningApplication>& applications)
{
    std::weak_ptr<bool> alive = m_alive;
    if (!m_terminateToken)
        m_terminateToken = m_workspace.addObserver(
            WorkspaceNotification::DidTerminateApplication,
            [this, alive](const RunningApplication& app) {
                if (auto a = alive.lock(); a && *a)
                    terminated(app);
            });
    for (const RunningApplication& app : applications) {
        const std::optional<QString> url =
            m_workspace.urlForApplication(app.bundleIdentifier.value_or(QString()));
        if (!url)
            continue;
        m_pending.push_back({app, *url});
        qCInfo(lcApp).noquote() << "restarting" << app.bundleIdentifier.value_or(QString())
                                << "so that it takes the new item spacing";
        if (!m_workspace.terminate(app.pid)) {
            m_pending.pop_back();
            qCWarning(lcApp).noquote() << app.bundleIdentifier.value_or(QString())
                                       << "could not be asked to quit";
        }
    }
    if (!m_pending.empty() && !m_patience.isValid())
        m_patience = m_scheduler.after(patience, [this, alive] {
            if (auto a = alive.lock(); a && *a)
                giveUp();
        });
}

void AppRestarter::terminated(const RunningApplication& application)
{
    auto it = std::find_if(m_pending.begin(), m_pending.end(), [&](const Pending& p) {
        return p.application.pid == application.pid ||
               (application.bundleIdentifier &&
                p.application.bundleIdentifier == application.bundleIdentifier);
    });
    if (it == m_pending.end())
        return;
    const Pending done = *it;
    m_pending.erase(it);
    m_workspace.openApplication(done.url, false);
    if (m_pending.empty()) {
        m_patience.invalidate();
        m_patience = Timer();
    }
}

// An application that did not quit (it asked to save, or refused) is left as it is.
void AppRestarter::giveUp()
{
    m_patience = Timer();
    for (const Pending& p : m_pending)
        qCInfo(lcApp).noquote() << p.application.bundleIdentifier.value_or(QString())
                                << "did not quit; it takes the new spacing at its next start";
    m_pending.clear();
}

QStringList AppRestarter::waiting() const
{
    QStringList bundles;
    for (const Pending& p : m_pending)
        bundles.append(p.application.bundleIdentifier.value_or(QString()));
    return bundles;
}

} // namespace ravlin
