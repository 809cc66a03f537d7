#pragma once

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <functional>
#include <memory>

namespace vantro {

/// Calls a handler from the event loop of the thread that constructed it whenever another thread calls wake(), which is
/// lock-free and does not allocate, so it is safe on the audio thread. Calls made before the handler runs are
/// coalesced. Everything written before wake() is visible to the handler.
class ThreadWaker
{
public:
    explicit ThreadWaker(std::function<void()> handler);
    ~ThreadWaker();
    ThreadWaker(const ThreadWaker&) = delete;
    ThreadWaker& operator=(const ThreadWaker&) = delete;

    /// Any thread, until the destructor begins.
    void wake() noexcept;

private:
    void answer();

    std::function<void()> handler_;
    std::array<int, 2> pipe_{-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
    std::atomic<bool> pending_{false};
};

} // namespace vantro
