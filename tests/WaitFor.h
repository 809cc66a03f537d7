#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <functional>

namespace vantro {

/// Runs the event loop until @p condition holds; false when it does not in two minutes.
inline bool waitFor(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(std::chrono::minutes(2));
    while (!deadline.hasExpired()) {
        if (condition())
            return true;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
    return condition();
}

} // namespace vantro
