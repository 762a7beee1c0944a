#include "SimEventMonitors.h"

#include <algorithm>

namespace ravlin {

class SimEventMonitors::SimMonitor final : public EventMonitors::Monitor {
public:
    SimMonitor(SimEventMonitors& owner, std::shared_ptr<std::function<void(const Event&)>> handler)
        : m_owner(owner), m_handler(std::move(handler))
    {}
    ~SimMonitor() override
    {
        std::erase_if(m_owner.m_entries, [this](const Entry& e) { return e.handler == m_handler; });
    }

private:
    SimEventMonitors& m_owner;
    std::shared_ptr<std::function<void(const Event&)>> m_handler;
};

std::unique_ptr<EventMonitors::Monitor>
SimEventMonitors::watch(int kinds, std::function<void(const Event&)> handler)
{
    return add(kinds, false, std::move(handler));
}

std::unique_ptr<EventMonitors::Monitor>
SimEventMonitors::watchOwn(int kinds, std::function<void(const Event&)> handler)
{
    return add(kinds, true, std::move(handler));
}

std::unique_ptr<EventMonitors::Monitor>
SimEventMonitors::add(int kinds, bool own, std::function<void(const Event&)> handler)
{
    auto shared = std::make_shared<std::function<void(const Event&)>>(std::move(handler));
    m_entries.push_back({kinds, own, shared});
    return std::make_unique<SimMonitor>(*this, shared);
}

void SimEventMonitors::deliver(const Event& event, bool own)
{
    const Kind kind = event.kind;
    // Handlers may add or remove monitors.
    std::vector<std::shared_ptr<std::function<void(const Event&)>>> handlers;
    for (const Entry& e : m_entries)
        if ((e.kinds & kind) && e.own == own)
            handlers.push_back(e.handler);
    for (const auto& handler : handlers) {
        const bool stillInstalled =
            std::any_of(m_entries.begin(), m_entries.end(),
                        [&](const Entry& e) { return e.handler == handler; });
        if (stillInstalled)
            (*handler)(event);
    }
}

int SimEventMonitors::installed(int kinds) const
{
    return int(std::count_if(m_entries.begin(), m_entries.end(),
                             [&](const Entry& e) { return e.kinds & kinds; }));
}

} // namespace ravlin
