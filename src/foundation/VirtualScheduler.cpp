#include "VirtualScheduler.h"

#include <algorithm>
#include <cmath>

namespace ravlin {

VirtualScheduler::VirtualScheduler(QDateTime startDate) : m_startDate(std::move(startDate)) {}

Timer VirtualScheduler::schedule(double due, double interval, std::function<void()> fn)
{
    auto state = std::make_shared<Timer::State>();
    m_queue.emplace(Key{due, m_sequence++}, Entry{state, std::move(fn), interval});
    return Timer(state);
}

Timer VirtualScheduler::after(double seconds, std::function<void()> fn)
{
    return schedule(m_now + std::max(0.0, seconds), 0, std::move(fn));
}

Timer VirtualScheduler::every(double seconds, std::function<void()> fn)
{
    const double interval = std::max(seconds, 1e-6);
    return schedule(m_now + interval, interval, std::move(fn));
}

void VirtualScheduler::async(std::function<void()> fn)
{
    schedule(m_now, 0, std::move(fn));
}

void VirtualScheduler::sleepBlocking(double seconds)
{
    m_now += std::max(0.0, seconds);
}

QDateTime VirtualScheduler::currentDate() const
{
    return m_startDate.addMSecs(qint64(m_now * 1000.0));
}

void VirtualScheduler::setBackgroundDuration(double seconds)
{
    m_backgroundDuration = std::isfinite(seconds) ? std::max(0.0, seconds) : 0.0;
}

void VirtualScheduler::backgroundImpl(std::function<void()> work, std::function<void()> then)
{
    auto finish = [this, work = std::move(work), then = std::move(then)]() mutable {
        work();
        if (then)
            async(std::move(then));
    };
    if (m_backgroundDuration > 0)
        schedule(m_now + m_backgroundDuration, 0, std::move(finish));
    else
        finish(); // at once, here; the result is still handed over as a main-queue step
}

void VirtualScheduler::advance(double seconds)
{
    const double target = m_now + std::max(0.0, seconds);
    while (!m_queue.empty()) {
        auto first = m_queue.begin();
        if (first->first.first > target)
            break;
        Entry entry = std::move(first->second);
        const double due = first->first.first;
        m_queue.erase(first);
        if (!entry.state->valid)
            continue;
        // A blocking sleep inside an earlier step may already have moved the clock further.
        m_now = std::max(m_now, due);
        if (entry.interval > 0) {
            m_queue.emplace(Key{m_now + entry.interval, m_sequence++}, entry);
        } else {
            entry.state->valid = false;
        }
        ++m_fired;
        entry.fn();
    }
    m_now = std::max(m_now, target);
}

} // namespace ravlin
