#pragma once

#include "Scheduler.h"

#include <cstdint>
#include <map>
#include <utility>

namespace ravlin {

// Deterministic scheduler for tests and sandbox scripts. Nothing runs until the
// clock is advanced; background work runs on the calling thread and its blocking
// sleeps move the clock forward.
//
// Background work takes no time unless given a duration: then it runs that many
// virtual seconds after it was handed over, and hands its result to the main queue
// when its own sleeps are over. Timers fire and the world changes in between; the
// work sees the world as it stands when it runs. (The work of this program waits
// first and looks afterwards, so the world at the end is the one it would see.)
class VirtualScheduler final : public Scheduler {
public:
    explicit VirtualScheduler(QDateTime startDate = QDateTime(QDate(2026, 1, 5), QTime(9, 0),
                                                              Qt::UTC));

    Timer after(double seconds, std::function<void()> fn) override;
    Timer every(double seconds, std::function<void()> fn) override;
    void async(std::function<void()> fn) override;
    void sleepBlocking(double seconds) override;
    double now() const override { return m_now; }
    QDateTime currentDate() const override;

    // Lets time pass, running every timer and deferred step that falls due, in order.
    void advance(double seconds);
    // Runs what is already due without moving the clock.
    void runDue() { advance(0); }

    // How long each piece of background work takes from now on (0: it runs at once).
    void setBackgroundDuration(double seconds);
    double backgroundDuration() const { return m_backgroundDuration; }

    std::uint64_t firedCount() const { return m_fired; }
    int pendingCount() const { return int(m_queue.size()); }

protected:
    void backgroundImpl(std::function<void()> work, std::function<void()> then) override;

private:
    struct Entry {
        std::shared_ptr<Timer::State> state;
        std::function<void()> fn;
        double interval = 0; // > 0: repeating
    };
    using Key = std::pair<double, std::uint64_t>;

    Timer schedule(double due, double interval, std::function<void()> fn);

    double m_now = 0;
    double m_backgroundDuration = 0;
    QDateTime m_startDate;
    std::uint64_t m_sequence = 0;
    std::uint64_t m_fired = 0;
    std::map<Key, Entry> m_queue;
};

} // namespace ravlin
