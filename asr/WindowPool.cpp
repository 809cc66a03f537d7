#include "asr/WindowPool.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

namespace vantro::asr {

namespace {

/// Beyond this, threads are better used for another window: the operations between products are too small.
constexpr unsigned threadsPerEncoder = 4;

} // namespace

WindowPool::WindowPool(std::span<const float> samples, std::span<const Window> windows, const AsrModels& models,
                       const Options& options)
    : samples_(samples)
    , windows_(windows)
    , models_(models)
    , stop_(options.stop)
    , slots_(windows.size())
{
    const unsigned cores = std::max(std::thread::hardware_concurrency(), 1U);
    const auto workers =
        static_cast<unsigned>(std::clamp<std::size_t>(windows.size(), 1, static_cast<std::size_t>(options.workers)));
    const unsigned encoders = std::clamp(cores / threadsPerEncoder, 1U, workers);
    runners_.reserve(encoders);
    for (unsigned i = 0; i < encoders; ++i) {
        runners_.emplace_back(static_cast<int>(cores / encoders), stop_);
        idleRunners_.push_back(&runners_.back());
    }
    if (options.logger)
        options.logger("ChunkProcessor using worker pool of size " + std::to_string(workers));
    startWorkers(workers);
}

void WindowPool::startWorkers(unsigned count)
{
    try {
        for (unsigned i = 0; i < count; ++i)
            workers_.emplace_back([this] { work(); });
    } catch (const std::system_error&) {
        // No more threads available: one is enough.
        if (workers_.empty())
            throw ASRError(ASRError::Kind::processingFailed, "no thread can be started");
    }
}

WindowPool::~WindowPool()
{
    {
        const std::lock_guard guard(lock_);
        isAbandoned_ = true;
    }
    changed_.notify_all();
}

EncoderFrames WindowPool::take(std::size_t index)
{
    std::unique_lock guard(lock_);
    Slot& slot = slots_[index];
    changed_.wait(guard, [&] { return slot.frames || slot.error; });
    if (slot.error)
        std::rethrow_exception(slot.error);
    return std::exchange(slot.frames, EncoderFrames()).value();
}

void WindowPool::work()
{
    for (;;) {
        std::size_t index = 0;
        {
            const std::lock_guard guard(lock_);
            if (isAbandoned_ || next_ == windows_.size())
                return;
            index = next_++;
        }
        run(index);
    }
}

void WindowPool::run(std::size_t index)
{
    Slot result;
    try {
        result.frames = encode(windows_[index]);
    } catch (const std::bad_alloc&) {
        result.error = std::make_exception_ptr(ASRError(ASRError::Kind::processingFailed, "out of memory"));
    } catch (...) {
        result.error = std::current_exception();
    }
    {
        const std::lock_guard guard(lock_);
        slots_[index] = std::move(result);
    }
    changed_.notify_all();
}

EncoderFrames WindowPool::encode(const Window& window)
{
    const auto features = models_.preprocessor.process(
        samples_.subspan(static_cast<std::size_t>(window.begin), static_cast<std::size_t>(window.end - window.begin)));
    struct Loan
    {
        explicit Loan(WindowPool& owner) : pool(owner), runner(owner.waitForRunner()) {}
        ~Loan() { pool.giveBack(runner); }
        Loan(const Loan&) = delete;
        Loan& operator=(const Loan&) = delete;
        WindowPool& pool;
        GraphRunner* runner;
    };
    const Loan loan(*this);
    return models_.joint.project(models_.encoder.encode(features, *loan.runner), *loan.runner);
}

GraphRunner* WindowPool::waitForRunner()
{
    std::unique_lock guard(lock_);
    changed_.wait(guard, [this] { return !idleRunners_.empty(); });
    GraphRunner* runner = idleRunners_.back();
    idleRunners_.pop_back();
    return runner;
}

void WindowPool::giveBack(GraphRunner* runner)
{
    {
        const std::lock_guard guard(lock_);
        idleRunners_.push_back(runner);
    }
    changed_.notify_all();
}

} // namespace vantro::asr
