#pragma once

#include <condition_variable>
#include <memory>
#include <mutex>
#include <stop_token>

namespace vantro {

/// Lets a language model compute only while nobody recognises speech: both want all processors. Any thread.
class Turn
{
public:
    /// Nobody computes from now on until what is returned is gone. Does not wait for a computation to notice.
    [[nodiscard]] std::shared_ptr<void> take();
    [[nodiscard]] bool isTaken() const;
    /// Returns when it is not taken, or when @p stop is requested.
    void wait(const std::stop_token& stop) const;

private:
    struct State
    {
        mutable std::mutex lock;
        std::condition_variable_any isFree;
        int count = 0;
    };

    /// Outlives this object as long as somebody has taken the turn.
    std::shared_ptr<State> state_ = std::make_shared<State>();
};

} // namespace vantro
