#include "SimDesktop.h"

#include "foundation/Scheduler.h"
#include "platform/MenuExtras.h"

#include <algorithm>
#include <limits>

namespace ravlin {

SimDesktop::SimDesktop()
{
    SimApp self;
    self.bundleId = ownBundleId;
    self.name = ownName;
    self.pid = ownPid;
    self.policy = ActivationPolicy::Accessory;
    self.extras = SimExtras::No;
    m_apps.push_back(self);
}

void SimDesktop::blockFor(double seconds)
{
    if (m_scheduler)
        m_scheduler->sleepBlocking(seconds);
}

bool SimDesktop::setGeneration(int generation)
{
    if (generation != 15 && generation != 26 && generation != 27)
        return false;
    m_generation = generation;
    if (generation >= 26)
        menuBarOwner(); // the process that owns the bar's windows runs from the start
    return true;
}

double SimDesktop::longestItem() const
{
    if (m_generation < 27)
        return std::numeric_limits<double>::infinity();
    double narrowest = std::numeric_limits<double>::infinity();
    for (const SimScreen& s : screens())
        narrowest = std::min(narrowest, s.width);
    return narrowest / 2;
}

const SimApp& SimDesktop::ensureSystemApp(const QString& bundleId, const QString& name)
{
    if (const SimApp* existing = app(bundleId))
        return *existing;
    SimApp system;
    system.bundleId = bundleId;
    system.name = name;
    system.policy = ActivationPolicy::Accessory;
    system.extras = SimExtras::No;
    addApp(system);
    return *app(bundleId);
}

const SimApp& SimDesktop::menuBarOwner()
{
    return m_generation >= 27
               ? ensureSystemApp(agentBundleId, QStringLiteral("MenuBarAgent"))
               : ensureSystemApp(controlCenterBundleId, QStringLiteral("Control Center"));
}

QString SimDesktop::identifierOf(const SimItem& item)
{
    if (!item.identifier.isEmpty())
        return item.identifier;
    return MenuExtras::identifierFor(item.title, item.bundleId).value_or(item.title);
}

void SimDesktop::addScreen(const SimScreen& screen)
{
    m_screens.push_back(screen);
    for (SimItem& own : m_movable)
        discardIfTooLong(own);
    for (const auto& listener : std::vector(m_screenListeners))
        listener();
}

void SimDesktop::plugInScreen(const SimScreen& screen)
{
    if (m_screens.empty())
        m_screens.push_back(SimScreen{});
    addScreen(screen);
}

bool SimDesktop::removeScreen(std::size_t index)
{
    if (index >= m_screens.size() || m_screens.size() < 2)
        return false;
    m_screens.erase(m_screens.begin() + std::ptrdiff_t(index));
    for (const auto& listener : std::vector(m_screenListeners))
        listener();
    return true;
}

std::vector<SimScreen> SimDesktop::screens() const
{
    if (m_screens.empty())
        return {SimScreen{}};
    return m_screens;
}

WindowServerRect SimDesktop::screenFrame(std::size_t index) const
{
    const std::vector<SimScreen> all = screens();
    double x = 0;
    for (std::size_t i = 0; i < index && i < all.size(); ++i)
        x += all[i].width;
    const SimScreen& s = all.at(std::min(index, all.size() - 1));
    return {x, 0, s.width, s.height};
}

std::optional<WindowServerRect> SimDesktop::notchFrame(std::size_t index) const
{
    const std::vector<SimScreen> all = screens();
    if (index >= all.size() || all[index].notch <= 0)
        return std::nullopt;
    const WindowServerRect frame = screenFrame(index);
    const double width = all[index].notch;
    return WindowServerRect{frame.x + (frame.width - width) / 2, 0, width,
                            all[index].menuBarHeight > 0 ? all[index].menuBarHeight : 24};
}

WindowServerPoint SimDesktop::onDisplay(WindowServerPoint mainBarPoint, std::size_t index) const
{
    const WindowServerRect display = screenFrame(index);
    const double fromRightEdge = screenFrame(0).maxX() - mainBarPoint.x;
    return {display.maxX() - fromRightEdge, mainBarPoint.y};
}

std::int32_t SimDesktop::addApp(SimApp app, bool keepPid)
{
    if (!keepPid || app.pid < 0) {
        auto taken = [this](std::int32_t pid) { return appByPid(pid) != nullptr; };
        while (taken(m_nextPid))
            ++m_nextPid;
        app.pid = m_nextPid++;
    }
    if (SimApp* existing = this->app(app.bundleId)) {
        *existing = app;
        return app.pid;
    }
    m_apps.push_back(app);
    return app.pid;
}

SimApp* SimDesktop::app(const QString& bundleId)
{
    auto it = std::find_if(m_apps.begin(), m_apps.end(),
                           [&](const SimApp& a) { return a.bundleId == bundleId; });
    return it == m_apps.end() ? nullptr : &*it;
}

const SimApp* SimDesktop::app(const QString& bundleId) const
{
    return const_cast<SimDesktop*>(this)->app(bundleId);
}

const SimApp* SimDesktop::appByPid(std::int32_t pid) const
{
    auto it =
        std::find_if(m_apps.begin(), m_apps.end(), [&](const SimApp& a) { return a.pid == pid; });
    return it == m_apps.end() ? nullptr : &*it;
}

const std::vector<SimApp>& SimDesktop::preinstalledApps()
{
    static const std::vector<SimApp> apps = [] {
        std::vector<SimApp> list;
        for (const auto& [id, name] :
             {std::pair{QStringLiteral("com.apple.ActivityMonitor"),
                        QStringLiteral("Activity Monitor")},
              std::pair{QStringLiteral("com.apple.weather"), QStringLiteral("Weather")},
              std::pair{systemSettingsId, QStringLiteral("System Settings")}}) {
            SimApp a;
            a.bundleId = id;
            a.name = name;
            a.running = false;
            list.push_back(a);
        }
        return list;
    }();
    return apps;
}

const SimApp* SimDesktop::installedApp(const QString& bundleId) const
{
    if (const SimApp* declared = app(bundleId))
        return declared;
    for (const SimApp& a : preinstalledApps()) {
        if (a.bundleId == bundleId)
            return &a;
    }
    return nullptr;
}

bool SimDesktop::launch(const QString& bundleId)
{
    // A preinstalled application gets its process (and pid) only now, so that the
    // rest of the desktop reads the same whether it was ever opened or not.
    if (!app(bundleId)) {
        if (const SimApp* installed = installedApp(bundleId))
            addApp(*installed);
    }
    SimApp* a = app(bundleId);
    if (!a || a->running)
        return false;
    a->running = true;
    const SimApp copy = *a;
    for (const LifecycleListener& listener : m_lifecycle)
        listener(copy, true);
    return true;
}

bool SimDesktop::terminate(const QString& bundleId)
{
    SimApp* a = app(bundleId);
    if (!a || !a->running || a->bundleId == ownBundleId)
        return false;
    a->running = false;
    const SimApp copy = *a;
    for (const LifecycleListener& listener : m_lifecycle)
        listener(copy, false);
    return true;
}

namespace {

// How often a busy item moved on by now.
int busySteps(const SimBusy& busy, const Scheduler* scheduler)
{
    if (busy.every <= 0 || !scheduler)
        return 0;
    return int(std::max(0.0, scheduler->now() - busy.since) / busy.every);
}

} // namespace

int SimDesktop::badgeOf(const SimItem& item) const
{
    return item.badge + (item.busy.value ? 0 : busySteps(item.busy, m_scheduler));
}

std::optional<QString> SimDesktop::valueOf(const SimItem& item) const
{
    if (!item.busy.value || item.busy.every <= 0)
        return item.ax.value;
    return item.ax.value.value_or(QString()) + QString::number(busySteps(item.busy, m_scheduler));
}

void SimDesktop::countAXRequest(std::int32_t pid)
{
    const SimApp* app = appByPid(pid);
    ++m_costs.axRequests[app ? app->bundleId : QString::number(pid)];
}

void SimDesktop::recordActivation(const SimItem& item, const QString& how)
{
    m_activations.push_back({item.bundleId, item.title, how});
}

} // namespace ravlin
