#pragma once

#include <coroutine>
#include <utility>

namespace vantro {

/// Holds one coroutine at "co_await gate.opened()" until somebody opens it; the coroutine goes on before open()
/// returns. Main thread.
class Gate
{
public:
    /// Opening it again does nothing.
    void open()
    {
        isOpen_ = true;
        if (const auto waiting = std::exchange(waiting_, nullptr))
            waiting.resume();
    }
    /// An object of its own, since GCC 12 awaits a copy of what is not a temporary.
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
