#include "QtScheduler.h"

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <cmath>

namespace ravlin {

QtScheduler::QtScheduler() : m_context(new QObject)
{
    m_clock.start();
}

QtScheduler::~QtScheduler()
{
    delete m_context;
}

Timer QtScheduler::start(double seconds, bool repeating, std::function<void()> fn)
{
    auto state = std::make_shared<Timer::State>();
    auto* timer = new QTimer(m_context);
    timer->setSingleShot(!repeating);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(int(std::lround(std::max(0.0, seconds) * 1000.0)));
    QPointer<QTimer> guard(timer);
    state->onInvalidate = [guard] {
        if (guard)
            guard->deleteLater();
    };
    QObject::connect(timer, &QTimer::timeout, m_context, [state, timer, fn = std::move(fn)] {
        if (!state->valid)
            return;
        if (timer->isSingleShot()) {
            state->valid = false;
            state->onInvalidate = nullptr;
            timer->deleteLater();
        }
        fn();
    });
    timer->start();
    return Timer(state);
}

Timer QtScheduler::after(double seconds, std::function<void()> fn)
{
    return start(seconds, false, std::move(fn));
}

Timer QtScheduler::every(double seconds, std::function<void()> fn)
{
    return start(seconds, true, std::move(fn));
}

void QtScheduler::async(std::function<void()> fn)
{
    QMetaObject::invokeMethod(m_context, std::move(fn), Qt::QueuedConnection);
}

void QtScheduler::sleepBlocking(double seconds)
{
    QThread::usleep(static_cast<unsigned long>(std::max(0.0, seconds) * 1e6));
}

double QtScheduler::now() const
{
    return double(m_clock.nsecsElapsed()) / 1e9;
}

QDateTime QtScheduler::currentDate() const
{
    return QDateTime::currentDateTime();
}

void QtScheduler::backgroundImpl(std::function<void()> work, std::function<void()> then)
{
    QPointer<QObject> context(m_context);
    QThreadPool::globalInstance()->start([context, work = std::move(work), then = std::move(then)] {
        work();
        if (context && then)
            QMetaObject::invokeMethod(context.data(), then, Qt::QueuedConnection);
    });
}

} // namespace ravlin
