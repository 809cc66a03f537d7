#pragma once

#include <coroutine>
#include <utility>

namespace vantro {

/// Holds one coroutine until somebody opens it; it goes on before open() returns. Main thread.
class Gate
{
public:
    [[nodiscard]] bool await_ready() const { return isOpen_; }
    void await_suspend(std::coroutine_handle<> waiting) { waiting_ = waiting; }
    void await_resume() const {}

    /// Opening it again does nothing.
    void open()
    {
        isOpen_ = true;
        if (const auto waiting = std::exchange(waiting_, nullptr))
            waiting.resume();
    }

private:
    bool isOpen_ = false;
    std::coroutine_handle<> waiting_;
};

} // namespace vantro
