#include "SituationWatch.h"

#include "FocusModeReading.h"
#include "foundation/Logging.h"
#include "platform/SystemProbe.h"

namespace ravlin {

SituationWatch::SituationWatch(SituationSources sources, Changed changed)
    : m_s(sources), m_changed(std::move(changed))
{}

SituationWatch::~SituationWatch()
{
    *m_alive = false;
    m_boundary.invalidate();
}

QTimeZone SituationWatch::zone() const
{
    return m_s.situation ? m_s.situation->timeZone() : QTimeZone::systemTimeZone();
}

std::optional<bool> SituationWatch::onBattery() const
{
    const std::optional<QList<PowerSource>> sources =
        m_s.probe ? m_s.probe->powerSources() : std::nullopt;
    if (!sources)
        return std::nullopt;
    for (const PowerSource& source : *sources)
        if (source.discharging)
            return source.discharging;
    return std::nullopt;
}

// Only what the rules need is read: a request to the system costs, a field nobody asks for
// does not.
Circumstances SituationWatch::now() const
{
    Circumstances c;
    c.displays = int(m_s.screens.screens().size());
    if (m_needs.power)
        c.onBattery = onBattery();
    if (m_needs.applications)
        for (const RunningApplication& app : m_s.workspace.runningApplications())
            if (app.bundleIdentifier)
                c.running.insert(*app.bundleIdentifier);
    if (m_s.situation) {
        if (m_needs.wifi)
            c.wifi = m_s.situation->wifiNetworkName();
        if (m_needs.frontmost)
            c.frontmost = m_s.situation->frontmostApplication();
        if (m_needs.focus)
            if (const std::optional<FocusRecords> records = m_s.situation->focusRecords())
                c.focus = FocusModeReading::activeMode(records->assertions,
                                                       records->modeConfigurations);
    }
    const QTime time = m_s.scheduler.currentDate().toTimeZone(zone()).time();
    c.minuteOfDay = time.hour() * 60 + time.minute();
    return c;
}

void SituationWatch::follow(const RuleNeeds& needs)
{
    if (needs == m_needs && (needs.boundaries.empty() || m_boundary.isValid()))
        return;
    m_needs = needs;
    listen();
    armBoundary();
}

void SituationWatch::tell(const QString& why)
{
    if (m_changed)
        m_changed(why);
}

void SituationWatch::listen()
{
    std::weak_ptr<bool> alive = m_alive;
    auto guarded = [this, alive](QString why) {
        return [this, alive, why] {
            if (auto a = alive.lock(); a && *a)
                tell(why);
        };
    };
    m_screensToken.reset();
    if (m_needs.displays)
        m_screensToken = m_s.screens.addChangeObserver(guarded(QStringLiteral("the displays changed")));
    m_launchToken.reset();
    m_terminateToken.reset();
    if (m_needs.applications) {
        auto launched = guarded(QStringLiteral("an application started"));
        auto ended = guarded(QStringLiteral("an application quit"));
        m_launchToken = m_s.workspace.addObserver(WorkspaceNotification::DidLaunchApplication,
                                                  [launched](const RunningApplication&) { launched(); });
        m_terminateToken = m_s.workspace.addObserver(
            WorkspaceNotification::DidTerminateApplication,
            [ended](const RunningApplication&) { ended(); });
    }
    // After a sleep the time of day, the power source and the network may all be new.
    m_wakeToken.reset();
    if (m_needs.any()) {
        auto woke = guarded(QStringLiteral("the Mac woke"));
        m_wakeToken = m_s.workspace.addObserver(WorkspaceNotification::DidWake,
                                                [this, alive, woke](const RunningApplication&) {
                                                    if (auto a = alive.lock(); a && *a)
                                                        armBoundary();
                                                    woke();
                                                });
    }
    m_situationToken.reset();
    if (m_s.situation && m_needs.any()) {
        m_situationToken = m_s.situation->addObserver([this, alive](SituationChange change) {
            if (auto a = alive.lock(); !a || !*a)
                return;
            switch (change) {
            case SituationChange::PowerSource:
                if (m_needs.power)
                    tell(QStringLiteral("the power source changed"));
                break;
            case SituationChange::WifiNetwork:
                if (m_needs.wifi)
                    tell(QStringLiteral("the network changed"));
                break;
            case SituationChange::FrontmostApplication:
                if (m_needs.frontmost)
                    tell(QStringLiteral("another application came to the front"));
                break;
            case SituationChange::FocusMode:
                if (m_needs.focus)
                    tell(QStringLiteral("the Focus changed"));
                break;
            case SituationChange::Clock:
                if (!m_needs.boundaries.empty()) {
                    armBoundary();
                    tell(QStringLiteral("the clock changed"));
                }
                break;
            }
        });
    }
}

std::optional<double> SituationWatch::nextBoundaryIn() const
{
    if (!m_boundary.isValid())
        return std::nullopt;
    return m_boundaryDue - m_s.scheduler.now();
}

// One timer, for the next moment any time condition turns; it arms the next one when it fires.
void SituationWatch::armBoundary()
{
    m_boundary.invalidate();
    m_boundary = Timer();
    if (m_needs.boundaries.empty())
        return;
    const QTimeZone z = zone();
    const QDateTime now = m_s.scheduler.currentDate().toTimeZone(z);
    std::optional<double> soonest;
    for (int boundary : m_needs.boundaries) {
        for (int day = 0; day <= 2; ++day) {
            const QDateTime at(now.date().addDays(day), QTime(boundary / 60, boundary % 60), z);
            const double seconds = double(now.msecsTo(at)) / 1000.0;
            if (seconds > 0) {
                soonest = soonest ? std::min(*soonest, seconds) : seconds;
                break;
            }
        }
    }
    if (!soonest)
        return;
    m_boundaryDue = m_s.scheduler.now() + *soonest;
    std::weak_ptr<bool> alive = m_alive;
    m_boundary = m_s.scheduler.after(*soonest, [this, alive] {
        if (auto a = alive.lock(); !a || !*a)
            return;
        armBoundary();
        tell(QStringLiteral("the time of day"));
    });
}

} // namespace ravlin
