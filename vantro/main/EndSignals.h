#pragma once

#include "base/ThreadWaker.h"

#include <QCoreApplication>

#include <array>
#include <csignal>

namespace vantro {

/// Ends the event loop on SIGINT, SIGTERM and SIGHUP, so that destructors run. One instance at a time. Main thread.
class EndSignals
{
public:
    EndSignals()
    {
        waker = &waker_;
        for (const int signal : signals)
            std::signal(signal, [](int) { waker->wake(); });
    }
    ~EndSignals()
    {
        for (const int signal : signals)
            std::signal(signal, SIG_DFL);
    }
    EndSignals(const EndSignals&) = delete;
    EndSignals& operator=(const EndSignals&) = delete;

private:
    static constexpr std::array signals{SIGINT, SIGTERM, SIGHUP};
    static inline ThreadWaker* waker = nullptr; ///< for the signal handlers, which take no context

    ThreadWaker waker_{[] {
        QCoreApplication::quit();
    }};
};

} // namespace vantro
