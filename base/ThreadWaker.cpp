#include "base/ThreadWaker.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace vantro {

ThreadWaker::ThreadWaker(std::function<void()> handler) : handler_(std::move(handler))
{
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        throw std::system_error(errno, std::generic_category(), "pipe");
    notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] { answer(); });
}

ThreadWaker::~ThreadWaker()
{
    notifier_.reset();
    ::close(pipe_[0]);
    ::close(pipe_[1]);
}

void ThreadWaker::wake() noexcept
{
    if (pending_.exchange(true))
        return;
    // At most one byte is in the pipe, so the write never blocks.
    const char byte = 0;
    while (::write(pipe_[1], &byte, 1) < 0 && errno == EINTR) {
    }
}

void ThreadWaker::answer()
{
    char byte = 0;
    while (::read(pipe_[0], &byte, 1) < 0 && errno == EINTR) {
    }
    pending_.exchange(false);
    handler_();
}

} // namespace vantro
