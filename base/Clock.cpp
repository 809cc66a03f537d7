#include "base/Clock.h"

#include <QTimer>
#include <qcoro/qcorotimer.h>

#include <utility>

namespace vantro {

Clock::Instant SystemClock::now() const
{
    return std::chrono::steady_clock::now();
}

QDateTime SystemClock::wallClock() const
{
    return QDateTime::currentDateTime();
}

QCoro::Task<> SystemClock::sleepFor(std::chrono::milliseconds duration)
{
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setSingleShot(true);
    timer.start(duration);
    co_await timer;
}

void SystemClock::callAfter(std::chrono::milliseconds delay, QObject* context, std::function<void()> action)
{
    QTimer::singleShot(delay, Qt::PreciseTimer, context, std::move(action));
}

} // namespace vantro
