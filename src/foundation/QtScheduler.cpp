#include "QtScheduler.h"

#include "Logging.h"

#include <QObject>
#include <QPointer>
#include <QThread>
#include <QThreadPool>
#include <QTimer>

#include <algorithm>
#include <cmath>
#include <limits>

namespace ravlin {
namespace {

// QTimer counts in int milliseconds: about 24.8 days at most.
constexpr int longestTimerMs = std::numeric_limits<int>::max();

int timerMilliseconds(double seconds)
{
    if (std::isnan(seconds)) {
        qCWarning(lcApp) << "a timer without a number of seconds fires at once";
        return 0;
    }
    if (seconds * 1000.0 <= double(longestTimerMs))
        return int(std::lround(std::max(0.0, seconds) * 1000.0));
    qCWarning(lcApp).noquote()
        << QStringLiteral("a timer of %1 seconds is longer than a timer can hold; it fires after "
                          "24.8 days")
               .arg(seconds, 0, 'f', 0);
    return longestTimerMs;
}

} // namespace

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
    timer->setInterval(timerMilliseconds(seconds));
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
    // A blocked thread that never wakes helps nobody: a day at most.
    const double bounded = std::isfinite(seconds) ? std::clamp(seconds, 0.0, 86400.0) : 0.0;
    QThread::usleep(static_cast<unsigned long>(bounded * 1e6));
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
