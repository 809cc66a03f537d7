#pragma once

#include <QEventLoop>
#include <qcoro/qcorotask.h>

#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace vantro {

/// Runs the event loop until @p task finishes; returns its result or rethrows its exception. For commands and tests;
/// the program itself awaits. Unlike QCoro::waitFor(), this also returns when the task throws.
template <typename Result>
Result runTask(QCoro::Task<Result> task)
{
    struct State
    {
        QEventLoop loop;
        std::optional<std::conditional_t<std::is_void_v<Result>, bool, Result>> result;
        std::exception_ptr failure;
    } state;
    [](QCoro::Task<Result> task, State& state) -> QCoro::Task<> {
        try {
            if constexpr (std::is_void_v<Result>) {
                co_await task;
                state.result = true;
            } else {
                state.result = co_await task;
            }
        } catch (...) {
            state.failure = std::current_exception();
        }
        state.loop.quit();
    }(std::move(task), state);
    if (!state.result && !state.failure)
        state.loop.exec();
    if (state.failure)
        std::rethrow_exception(state.failure);
    if constexpr (!std::is_void_v<Result>)
        return std::move(*state.result);
}

} // namespace vantro
