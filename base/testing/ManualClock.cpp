#include "base/testing/ManualClock.h"

#include <QFuture>
#include <QPromise>
#include <qcoro/qcorofuture.h>

#include <algorithm>
#include <utility>

namespace vantro::doubles {

QCoro::Task<> ManualClock::sleepFor(std::chrono::milliseconds duration)
{
    auto promise = std::make_shared<QPromise<void>>();
    promise->start();
    const QFuture<void> woken = promise->future();
    callAfter(duration, &self_, [promise] { promise->finish(); });
    co_await woken;
}

void ManualClock::callAfter(std::chrono::milliseconds delay, QObject* context, std::function<void()> action)
{
    waiting_.push_back({now_ + delay, context, std::move(action)});
}

void ManualClock::advance(std::chrono::milliseconds duration)
{
    const Instant target = now_ + duration;
    while (!waiting_.empty()) {
        const auto next = std::ranges::min_element(waiting_, {}, &Waiting::due);
        if (next->due > target)
            break;
        Waiting waiting = std::move(*next);
        waiting_.erase(next);
        wallClock_ =
            wallClock_.addMSecs(std::chrono::duration_cast<std::chrono::milliseconds>(waiting.due - now_).count());
        now_ = waiting.due;
        if (waiting.context != nullptr)
            waiting.action();
    }
    wallClock_ = wallClock_.addMSecs(std::chrono::duration_cast<std::chrono::milliseconds>(target - now_).count());
    now_ = target;
}

} // namespace vantro::doubles
