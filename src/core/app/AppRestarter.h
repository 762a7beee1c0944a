#pragma once

#include "foundation/Scheduler.h"
#include "platform/Workspace.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace ravlin {

struct BarItem;

// Restarts applications so that they read a changed system setting (the item spacing) now
// rather than at the next login. Only applications that live in the menu bar are offered: they
// have no documents to lose, and quit and come back as their users expect. The system's own
// processes are never restarted.
class AppRestarter {
public:
    // How long an application may take to quit before it is left alone.
    static constexpr double patience = 10.0;

    AppRestarter(Workspace& workspace, Scheduler& scheduler, QString ownBundleId);
    ~AppRestarter();

    // The running applications with items among `items` that can be restarted, by name.
    std::vector<RunningApplication> candidates(const std::vector<BarItem>& items);
    // Asks each to quit and opens it again once it has.
    void restart(const std::vector<RunningApplication>& applications);
    // Bundle identifiers asked to quit that have not come back yet.
    QStringList waiting() const;

private:
    struct Pending {
        RunningApplication application;
        QString url;
    };
    void terminated(const RunningApplication& application);
    void giveUp();

    Workspace& m_workspace;
    Scheduler& m_scheduler;
    QString m_ownBundleId;
    std::vector<Pending> m_pending;
    Workspace::ObserverToken m_terminateToken;
    Timer m_patience;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
