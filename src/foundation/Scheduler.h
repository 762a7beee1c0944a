#pragma once

#include <QDateTime>

#include <functional>
#include <memory>

namespace ravlin {

// A handle on a scheduled one-shot or repeating timer. Copies share the timer;
// an empty handle is simply "no timer".
class Timer {
public:
    Timer() = default;

    void invalidate();
    bool isValid() const;

    struct State {
        bool valid = true;
        std::function<void()> onInvalidate;
    };
    explicit Timer(std::shared_ptr<State> state) : m_state(std::move(state)) {}

private:
    std::shared_ptr<State> m_state;
};

// All timing of the core goes through a Scheduler: production runs it on Qt's
// event loop, tests and scripts on a virtual clock.
class Scheduler {
public:
    virtual ~Scheduler() = default;

    virtual Timer after(double seconds, std::function<void()> fn) = 0;
    virtual Timer every(double seconds, std::function<void()> fn) = 0;
    // Runs fn on the main queue after the current work.
    virtual void async(std::function<void()> fn) = 0;
    // Blocks the calling thread on purpose (the platform's settle waits).
    virtual void sleepBlocking(double seconds) = 0;
    // Monotonic seconds.
    virtual double now() const = 0;
    virtual QDateTime currentDate() const = 0;

    // Runs work off the main thread and hands its result to then() on the main queue.
    template <class R> void background(std::function<R()> work, std::function<void(R)> then)
    {
        auto result = std::make_shared<R>();
        backgroundImpl([work = std::move(work), result] { *result = work(); },
                       [then = std::move(then), result] { then(std::move(*result)); });
    }
    void background(std::function<void()> work, std::function<void()> then = {})
    {
        backgroundImpl(std::move(work), std::move(then));
    }

protected:
    virtual void backgroundImpl(std::function<void()> work, std::function<void()> then) = 0;
};

} // namespace ravlin
