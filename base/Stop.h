#pragma once

#include <QFuture>
#include <QPromise>
#include <qcoro/qcorofuture.h>
#include <qcoro/qcorotask.h>

#include <memory>
#include <stop_token>
#include <utility>

namespace vantro {

template <typename Result>
QCoro::Task<> finishWith(QFuture<Result> future, std::shared_ptr<QPromise<void>> end)
{
    try {
        co_await future;
    } catch (...) {
        // The caller gets the exception from the future itself.
    }
    end->finish();
}

/// Completes when @p future has finished or failed, or as soon as @p stop is requested. The work behind the future is
/// not cancelled.
template <typename Result>
QCoro::Task<> finishedOrStopped(QFuture<Result> future, std::stop_token stop)
{
    const auto end = std::make_shared<QPromise<void>>();
    end->start();
    const std::stop_callback onStop(std::move(stop), [end] { end->finish(); });
    finishWith(std::move(future), end);
    const QFuture<void> ended = end->future();
    co_await ended;
}

} // namespace vantro
