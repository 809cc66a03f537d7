#pragma once

#include <QFuture>
#include <QPromise>
#include <QThread>
#include <QThreadPool>
#include <qcoro/qcorofuture.h>
#include <qcoro/qcorotask.h>

#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

namespace vantro {

/// One worker thread that runs what it is given one after another: the "serial owner" behind each engine.
/// run() may be called from any thread; its future is awaited on the caller's. What the work throws is thrown again,
/// with its type, where the future is awaited. Work that was accepted is always run: the destructor waits for it.
class SerialExecutor
{
public:
    explicit SerialExecutor(const QString& threadName);
    ~SerialExecutor();
    SerialExecutor(const SerialExecutor&) = delete;
    SerialExecutor& operator=(const SerialExecutor&) = delete;

    template <typename Work>
    [[nodiscard]] QFuture<std::invoke_result_t<Work>> run(Work work)
    {
        using Result = std::invoke_result_t<Work>;
        auto promise = std::make_shared<QPromise<Result>>();
        promise->start();
        QFuture<Result> future = promise->future();
        pool_.start([promise = std::move(promise), work = std::move(work)]() mutable {
            try {
                if constexpr (std::is_void_v<Result>)
                    work();
                else
                    promise->addResult(work());
            } catch (...) {
                promise->setException(std::current_exception());
            }
            promise->finish();
        });
        return future;
    }

private:
    QThreadPool pool_;
};

} // namespace vantro
