#pragma once

#include "Circumstances.h"
#include "RuleEvaluator.h"
#include "foundation/Scheduler.h"
#include "platform/Screens.h"
#include "platform/Situation.h"
#include "platform/Workspace.h"

#include <QTimeZone>

#include <functional>
#include <memory>

namespace ravlin {

class SystemProbe;

// What the watch reads and listens to; the application object owns all of it.
struct SituationSources {
    Scheduler& scheduler;
    Screens& screens;
    Workspace& workspace;
    SystemProbe* probe = nullptr;
    Situation* situation = nullptr; // absent: Wi-Fi, front application and Focus are unknown
};

// Reads the circumstances the rules look at, and tells when they may have changed: it follows
// only the events the rules need (displays, power, network, applications, Focus) and, where a
// rule looks at the time of day, keeps one timer for the next moment a time condition turns.
// Nothing is looked at again and again: without rules it costs nothing at all.
class SituationWatch {
public:
    using Changed = std::function<void(const QString& why)>;

    SituationWatch(SituationSources sources, Changed changed);
    ~SituationWatch();
    SituationWatch(const SituationWatch&) = delete;
    SituationWatch& operator=(const SituationWatch&) = delete;

    Circumstances now() const;
    // Follows what the rules need from now on (and nothing else).
    void follow(const RuleNeeds& needs);
    const RuleNeeds& following() const { return m_needs; }
    // When the timer for the next time boundary fires, in seconds from now; absent: none armed.
    std::optional<double> nextBoundaryIn() const;

private:
    void listen();
    void armBoundary();
    void tell(const QString& why);
    std::optional<bool> onBattery() const;
    QTimeZone zone() const;

    SituationSources m_s;
    Changed m_changed;
    RuleNeeds m_needs;
    Timer m_boundary;
    double m_boundaryDue = 0;
    Screens::ObserverToken m_screensToken;
    Situation::ObserverToken m_situationToken;
    Workspace::ObserverToken m_launchToken;
    Workspace::ObserverToken m_terminateToken;
    Workspace::ObserverToken m_wakeToken;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

} // namespace ravlin
