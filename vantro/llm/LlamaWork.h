#pragma once

#include "vantro/llm/LlamaError.h"
#include "vantro/llm/Turn.h"

#include <stop_token>

namespace vantro {

/// When a piece of work has to end or to rest; the library asks in the middle of its computations. The engine's thread.
class LlamaWork
{
public:
    /// Ends when @p caller or @p engine is asked to stop, and rests while @p turn is taken. @p turn must outlive it.
    LlamaWork(const Turn& turn, const std::stop_token& caller, const std::stop_token& engine)
        : turn_(turn)
        , onCaller_(caller, RequestStop{stop_})
        , onEngine_(engine, RequestStop{stop_})
    {
    }

    [[nodiscard]] bool isStopped() const { return stop_.stop_requested(); }
    [[nodiscard]] bool mustPause() const { return isStopped() || turn_.isTaken(); }
    /// Throws when it is stopped.
    void waitForTurn() const
    {
        turn_.wait(stop_.get_token());
        if (isStopped())
            throw LlamaError(LlamaError::Kind::stopped, QStringLiteral("stopped"));
    }
    /// As the library calls it, with the work itself: waits for the turn too, but returns false when it is stopped.
    static bool goesOn(float /*progress*/, void* self)
    {
        const auto& work = *static_cast<const LlamaWork*>(self);
        work.turn_.wait(work.stop_.get_token());
        return !work.isStopped();
    }

private:
    struct RequestStop
    {
        std::stop_source stop;
        void operator()() { stop.request_stop(); }
    };

    const Turn& turn_;
    std::stop_source stop_;
    std::stop_callback<RequestStop> onCaller_;
    std::stop_callback<RequestStop> onEngine_;
};

} // namespace vantro
