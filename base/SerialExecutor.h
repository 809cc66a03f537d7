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

/// A worker thread that runs tasks in order. run() may be called from any thread; exceptions thrown by the task
/// propagate through its future. Accepted tasks always run: the destructor waits for them.
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
            prepareThread();
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
    static void prepareThread();

    QThreadPool pool_;
};

} // namespace vantro
