#pragma once

#include <coroutine>
#include <utility>

namespace vantro {

/// Suspends one coroutine at "co_await gate.opened()" until open() is called, which resumes it synchronously. Main
/// thread.
class Gate
{
public:
    /// Calling it again is a no-op.
    void open()
    {
        isOpen_ = true;
        if (const auto waiting = std::exchange(waiting_, nullptr))
            waiting.resume();
    }
    /// A separate object, because GCC 12 awaits a copy of anything that is not a temporary.
    [[nodiscard]] auto opened() { return Opened{*this}; }

private:
    struct Opened
    {
        [[nodiscard]] bool await_ready() const { return gate.isOpen_; }
        void await_suspend(std::coroutine_handle<> waiting) { gate.waiting_ = waiting; }
        void await_resume() const {}

        Gate& gate;
    };

    bool isOpen_ = false;
    std::coroutine_handle<> waiting_;
};

} // namespace vantro
