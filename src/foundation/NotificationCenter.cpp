#include "NotificationCenter.h"

#include <algorithm>

namespace ravlin {

void NotificationCenter::Token::reset()
{
    if (m_alive)
        *m_alive = false;
    m_alive.reset();
}

NotificationCenter::Token NotificationCenter::addObserver(const QString& name,
                                                          std::function<void()> handler)
{
    Token token;
    token.m_alive = std::make_shared<bool>(true);
    m_observers.push_back({name, token.m_alive, std::move(handler)});
    return token;
}

void NotificationCenter::post(const QString& name)
{
    auto count =
        std::find_if(m_counts.begin(), m_counts.end(), [&](auto& c) { return c.first == name; });
    if (count == m_counts.end())
        m_counts.emplace_back(name, 1);
    else
        ++count->second;

    std::erase_if(m_observers, [](const Observer& o) { return !*o.alive; });
    // Handlers may add or remove observers: call a snapshot.
    const std::vector<Observer> snapshot = m_observers;
    for (const Observer& observer : snapshot) {
        if (observer.name == name && *observer.alive)
            observer.handler();
    }
}

int NotificationCenter::postedCount(const QString& name) const
{
    auto count =
        std::find_if(m_counts.begin(), m_counts.end(), [&](auto& c) { return c.first == name; });
    return count == m_counts.end() ? 0 : count->second;
}

} // namespace ravlin
