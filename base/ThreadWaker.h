#pragma once

#include <QSocketNotifier>

#include <array>
#include <atomic>
#include <functional>
#include <memory>

namespace vantro {

/// Calls a handler on the thread that made it, from that thread's event loop, whenever another thread asks for it.
/// wake() takes no lock and allocates nothing, so even the audio thread may call it; calls that come before the handler
/// has run are answered by one run. Whatever the caller wrote before wake() is seen by that run.
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
