#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

namespace ravlin {

// In-process notifications by name, without sender or user information, as the
// settings store announces its changes. Observers are removed when their token dies.
class NotificationCenter {
public:
    class Token {
    public:
        Token() = default;
        Token(Token&&) noexcept = default;
        Token& operator=(Token&&) noexcept = default;
        ~Token() { reset(); }
        void reset();
        bool isActive() const { return m_alive && *m_alive; }

    private:
        friend class NotificationCenter;
        std::shared_ptr<bool> m_alive;
    };

    [[nodiscard]] Token addObserver(const QString& name, std::function<void()> handler);
    void post(const QString& name);
    int postedCount(const QString& name) const;

private:
    struct Observer {
        QString name;
        std::shared_ptr<bool> alive;
        std::function<void()> handler;
    };
    std::vector<Observer> m_observers;
    std::vector<std::pair<QString, int>> m_counts;
};

} // namespace ravlin
