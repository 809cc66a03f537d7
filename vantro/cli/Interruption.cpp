#include "vantro/cli/Interruption.h"

#include <atomic>
#include <csignal>

namespace vantro {

namespace {

std::atomic<ThreadWaker*> wakerOfHandler{nullptr};

void handleSignal(int)
{
    // wake() only writes a byte to a pipe, so it is async-signal-safe.
    if (auto* waker = wakerOfHandler.load())
        waker->wake();
}

} // namespace

Interruption::Interruption() : waker_([this] { source_.request_stop(); })
{
    wakerOfHandler = &waker_;
    struct sigaction action = {};
    action.sa_handler = handleSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
    for (const int signal : {SIGINT, SIGTERM})
        ::sigaction(signal, &action, nullptr);
}

Interruption::~Interruption()
{
    for (const int signal : {SIGINT, SIGTERM})
        std::signal(signal, SIG_DFL);
    wakerOfHandler = nullptr;
}

} // namespace vantro
