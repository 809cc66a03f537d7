#pragma once

#include "base/ThreadWaker.h"

#include <QCoreApplication>

#include <array>
#include <csignal>

namespace vantro {

/// Ends the event loop when the session or a user ends the process, so that destructors release what is held. One at a
/// time. Main thread.
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
    static inline ThreadWaker* waker = nullptr; ///< a signal's handler knows nothing else

    ThreadWaker waker_{[] {
        QCoreApplication::quit();
    }};
};

} // namespace vantro
