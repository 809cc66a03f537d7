#include "asr/accelerator/Crew.h"

#include <system_error>

namespace vantro::asr {

namespace {

/// A few microseconds: what the threads of a step differ by. Longer would take time from other programs.
constexpr int spins = 300;

void pause()
{
#if defined(__x86_64__)
    __builtin_ia32_pause();
#elif defined(__aarch64__)
    asm volatile("yield");
#endif
}

bool isOpen(unsigned round)
{
    return round % 2 == 1;
}

} // namespace

Crew::~Crew()
{
    isEnding_ = true;
    round_ += 2;
    round_.notify_all();
}

void Crew::setThreads(std::size_t threads)
{
    try {
        while (helpers_.size() + 1 < threads)
            helpers_.emplace_back([this, thread = helpers_.size() + 1] { help(thread); });
    } catch (const std::system_error&) {
        threads = helpers_.size() + 1;
    }
    threads_ = threads;
}

bool Crew::share(std::size_t pieces, const Work& work, const std::function<bool()>& isStopped)
{
    next_ = 0;
    job_ = {&work, pieces, threads_};
    const bool isShared = threads_ > 1 && pieces > 1;
    if (isShared) {
        ++round_;
        round_.notify_all();
    }
    bool isDone = true;
    for (std::size_t piece = next_++; piece < pieces; piece = next_++) {
        if (isStopped()) {
            next_ = pieces;
            isDone = false;
            break;
        }
        work(piece, 0);
    }
    if (isShared) {
        ++round_;
        for (int spin = 0; spin < spins && inside_ > 0; ++spin)
            pause();
        for (unsigned inside = inside_; inside > 0; inside = inside_)
            inside_.wait(inside);
    }
    return isDone;
}

void Crew::takePieces(std::size_t thread)
{
    if (thread >= job_.threads)
        return;
    for (std::size_t piece = next_++; piece < job_.pieces; piece = next_++)
        (*job_.work)(piece, thread);
}

unsigned Crew::nextRound(unsigned former) const
{
    for (int spin = 0; spin < spins; ++spin) {
        const unsigned round = round_;
        if (round != former && isOpen(round))
            return round;
        pause();
    }
    for (;;) {
        const unsigned round = round_;
        if (isEnding_ || (round != former && isOpen(round)))
            return round;
        round_.wait(round);
    }
}

void Crew::help(std::size_t thread)
{
    for (unsigned round = nextRound(0); !isEnding_; round = nextRound(round)) {
        ++inside_;
        // Whoever opens the next round first closes this one and then waits until nobody is inside.
        if (round_ == round)
            takePieces(thread);
        if (--inside_ == 0)
            inside_.notify_all();
    }
}

} // namespace vantro::asr
