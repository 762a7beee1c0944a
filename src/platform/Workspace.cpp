#include "Workspace.h"

#include <algorithm>

namespace ravlin {

Workspace::ObserverToken Workspace::addObserver(WorkspaceNotification which, Observer observer)
{
    auto shared = std::make_shared<Observer>(std::move(observer));
    m_observers.push_back({which, shared});
    return shared;
}

void Workspace::notify(WorkspaceNotification which, const RunningApplication& application)
{
    std::erase_if(m_observers, [](const Entry& e) { return e.observer.expired(); });
    // A copy: an observer may add or drop observers while it runs.
    const std::vector<Entry> observers = m_observers;
    for (const Entry& entry : observers) {
        if (entry.which != which)
            continue;
        if (auto observer = entry.observer.lock())
            (*observer)(application);
    }
}

} // namespace ravlin
