#pragma once

#include "Scheduler.h"

#include <QElapsedTimer>

class QObject;

namespace ravlin {

// The production scheduler: Qt timers on the main event loop and the global thread pool.
class QtScheduler final : public Scheduler {
public:
    QtScheduler();
    ~QtScheduler() override;

    Timer after(double seconds, std::function<void()> fn) override;
    Timer every(double seconds, std::function<void()> fn) override;
    void async(std::function<void()> fn) override;
    void sleepBlocking(double seconds) override;
    double now() const override;
    QDateTime currentDate() const override;

protected:
    void backgroundImpl(std::function<void()> work, std::function<void()> then) override;

private:
    Timer start(double seconds, bool repeating, std::function<void()> fn);

    QObject* m_context;
    QElapsedTimer m_clock;
};

} // namespace ravlin
