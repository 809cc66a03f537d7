#pragma once

#include "base/ThreadWaker.h"

#include <stop_token>

namespace vantro {

/// Turns the first Ctrl-C (or SIGTERM) into a stop request, so that a command can end cleanly; the second one ends the
/// process at once. One instance at a time. Main thread.
class Interruption
{
public:
    Interruption();
    ~Interruption();
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    [[nodiscard]] std::stop_token token() const { return source_.get_token(); }
    [[nodiscard]] bool wasRequested() const { return source_.stop_requested(); }

private:
    std::stop_source source_;
    ThreadWaker waker_;
};

} // namespace vantro
