#pragma once

#include <functional>
#include <utility>
#include <vector>

namespace ravlin {

// Whether the system draws its interface light or dark, and word when that changes
// (on the main thread), so that windows drawn by hand can follow it.
class Appearance {
public:
    virtual ~Appearance() = default;

    virtual bool isDark() const = 0;

    // Called after every switch, for as long as the appearance lives.
    void whenChanged(std::function<void()> listener) { m_listeners.push_back(std::move(listener)); }

protected:
    void announce()
    {
        const auto listeners = m_listeners; // a listener may add another
        for (const auto& listener : listeners)
            listener();
    }

private:
    std::vector<std::function<void()>> m_listeners;
};

} // namespace ravlin
