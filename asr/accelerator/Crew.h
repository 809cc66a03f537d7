#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <thread>
#include <vector>

namespace vantro::asr {

/// Threads that share pieces of work: whoever is free takes the next piece, so that a thread whose processor is busy
/// with another program holds the others up by one piece at most. Used by one thread at a time.
class Crew
{
public:
    Crew() = default;
    ~Crew();
    Crew(const Crew&) = delete;
    Crew& operator=(const Crew&) = delete;

    /// Including the caller. Threads are started when they are first needed and sleep in between; those that cannot be
    /// started are done without.
    void setThreads(std::size_t threads);
    [[nodiscard]] std::size_t threads() const { return threads_; }
    /// Runs @p work(piece, thread) for every piece, and returns when all are done. Between its pieces the caller asks
    /// @p isStopped; true leaves the rest undone. Neither may throw.
    using Work = std::function<void(std::size_t piece, std::size_t thread)>;
    bool share(std::size_t pieces, const Work& work, const std::function<bool()>& isStopped);

private:
    struct Job
    {
        const Work* work = nullptr;
        std::size_t pieces = 0;
        std::size_t threads = 0;
    };

    void help(std::size_t thread);
    void takePieces(std::size_t thread);
    /// Waits for a round that is open and not @p former.
    [[nodiscard]] unsigned nextRound(unsigned former) const;

    std::size_t threads_ = 1;
    Job job_; ///< written while no round is open and nobody is inside
    std::atomic<std::size_t> next_ = 0;
    std::atomic<unsigned> round_ = 0;  ///< odd while open
    std::atomic<unsigned> inside_ = 0; ///< helpers that may look at the job
    std::atomic<bool> isEnding_ = false;
    std::vector<std::jthread> helpers_; ///< last: its destructor waits for threads that use the other members
};

} // namespace vantro::asr
