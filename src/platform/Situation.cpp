#include "Situation.h"

namespace ravlin {

Situation::ObserverToken Situation::addObserver(Observer observer)
{
    auto shared = std::make_shared<Observer>(std::move(observer));
    m_observers.push_back(shared);
    return shared;
}

void Situation::notify(SituationChange change)
{
    std::erase_if(m_observers, [](const auto& o) { return o.expired(); });
    for (const auto& weak : std::vector(m_observers)) {
        if (const auto observer = weak.lock())
            (*observer)(change);
    }
}

} // namespace ravlin
