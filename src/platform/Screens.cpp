#include "Screens.h"

#include <algorithm>

namespace ravlin {

Screens::ObserverToken Screens::addChangeObserver(std::function<void()> observer)
{
    auto shared = std::make_shared<std::function<void()>>(std::move(observer));
    m_observers.push_back(shared);
    return shared;
}

void Screens::notifyChanged()
{
    std::erase_if(m_observers, [](const auto& o) { return o.expired(); });
    for (const auto& weak : std::vector(m_observers)) {
        if (const auto observer = weak.lock())
            (*observer)();
    }
}

} // namespace ravlin
