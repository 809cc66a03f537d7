#include "asr/WindowPool.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

namespace vantro::asr {

namespace {

/// Beyond this, threads are better used for another window: the operations between products are too small.
constexpr unsigned threadsPerWindow = 4;

} // namespace

/// The right to encode, as long as it lives.
class WindowPool::EncoderSlot
{
public:
    explicit EncoderSlot(WindowPool& pool) : pool_(pool)
    {
        std::unique_lock guard(pool_.lock_);
        pool_.changed_.wait(guard, [this] { return pool_.freeEncoders_ > 0; });
        --pool_.freeEncoders_;
    }
    ~EncoderSlot()
    {
        {
            const std::lock_guard guard(pool_.lock_);
            ++pool_.freeEncoders_;
        }
        pool_.changed_.notify_all();
    }
    EncoderSlot(const EncoderSlot&) = delete;
    EncoderSlot& operator=(const EncoderSlot&) = delete;

private:
    WindowPool& pool_;
};

WindowPool::WindowPool(const AcousticNetwork& network, Options options)
    : network_(network)
    , options_(std::move(options))
{
    if (!options_.hasBackground)
        return;
    try {
        background_ = std::jthread([this] {
            if (options_.onBackgroundThread)
                options_.onBackgroundThread();
            prepare();
            work(Lane::background);
        });
    } catch (const std::system_error&) {
        // No more threads available: everything is left to the foreground.
    }
}

WindowPool::~WindowPool()
{
    {
        const std::lock_guard guard(lock_);
        isAbandoned_ = true;
        jobs_.clear();
    }
    preparing_.request_stop();
    changed_.notify_all();
}

std::future<EncoderFrames> WindowPool::encode(const AcousticNetwork& network, std::vector<float> samples,
                                              std::stop_token stop, std::shared_ptr<const void> owner)
{
    auto job = std::make_unique<Job>(network);
    job->owner = std::move(owner);
    job->samples = std::move(samples);
    job->stop = std::move(stop);
    std::future<EncoderFrames> result = job->result.get_future();
    {
        const std::lock_guard guard(lock_);
        jobs_.push_back(std::move(job));
        ++unfinished_;
    }
    if (isHurried())
        startWorkers();
    changed_.notify_all();
    return result;
}

void WindowPool::hurry()
{
    if (isHurried())
        return;
    const unsigned cores = std::max(std::thread::hardware_concurrency(), 1U);
    {
        const std::lock_guard guard(lock_);
        const auto workers =
            static_cast<unsigned>(std::clamp<std::size_t>(unfinished_, 1, static_cast<std::size_t>(options_.workers)));
        const unsigned encoders = std::clamp(cores / threadsPerWindow, 1U, workers);
        threadsPerEncoder_ = cores / encoders;
        freeEncoders_ += encoders - 1;
        isHurried_ = true;
        if (options_.logger)
            options_.logger("ChunkProcessor using worker pool of size " + std::to_string(workers));
    }
    preparing_.request_stop();
    startWorkers();
    changed_.notify_all();
}

/// As many as there are windows.
void WindowPool::startWorkers()
{
    const std::size_t wanted = [this] {
        const std::lock_guard guard(lock_);
        return std::clamp<std::size_t>(unfinished_, 1, static_cast<std::size_t>(options_.workers));
    }();
    try {
        while (workers_.size() < wanted)
            workers_.emplace_back([this] { work(Lane::foreground); });
    } catch (const std::system_error&) {
        // No more threads available: one is enough.
        if (workers_.empty())
            throw ASRError(ASRError::Kind::processingFailed, "no thread can be started");
    }
}

bool WindowPool::isHurried()
{
    const std::lock_guard guard(lock_);
    return isHurried_;
}

void WindowPool::work(Lane lane)
{
    while (JobPointer job = nextJob(lane))
        run(std::move(job), lane);
}

/// Waits for a job; nothing when the lane has ended.
WindowPool::JobPointer WindowPool::nextJob(Lane lane)
{
    std::unique_lock guard(lock_);
    const auto hasEnded = [&] {
        return isAbandoned_ || (lane == Lane::background && isHurried_);
    };
    changed_.wait(guard, [&] { return hasEnded() || !jobs_.empty(); });
    if (hasEnded())
        return nullptr;
    JobPointer job = std::move(jobs_.front());
    jobs_.pop_front();
    return job;
}

void WindowPool::run(JobPointer job, Lane lane)
{
    try {
        std::optional<EncoderFrames> frames = encoded(*job, lane);
        if (!frames) {
            handOver(std::move(job));
            return;
        }
        job->result.set_value(std::move(*frames));
    } catch (const std::bad_alloc&) {
        job->result.set_exception(std::make_exception_ptr(ASRError(ASRError::Kind::processingFailed, "out of memory")));
    } catch (...) {
        job->result.set_exception(std::current_exception());
    }
    close(*job);
}

/// Nothing if the foreground is to go on with it.
std::optional<EncoderFrames> WindowPool::encoded(Job& job, Lane lane)
{
    if (!job.features && !job.stop.stop_requested())
        job.features = job.network.preprocessor.process(job.samples);
    const EncoderSlot slot(*this);
    if (job.runner == nullptr)
        job.runner = idleRunner();
    job.runner->setThreads(lane == Lane::foreground ? static_cast<int>(threadsPerEncoder_) : 1);
    if (!job.encoding)
        begin(job);
    while (!job.encoding->isDone()) {
        if (lane == Lane::background && isHurried())
            return std::nullopt;
        job.encoding->computeLayer(job.stop);
    }
    return project(job.network.projection, job.encoding->frames(), *job.runner, job.stop);
}

void WindowPool::begin(Job& job)
{
    if (job.stop.stop_requested())
        throw ASRError(ASRError::Kind::processingFailed, "stopped");
    job.encoding.emplace(job.network.encoder, *job.features, *job.runner, job.stop);
}

std::unique_ptr<GraphRunner> WindowPool::idleRunner()
{
    const std::lock_guard guard(lock_);
    if (idleRunners_.empty())
        return std::make_unique<GraphRunner>(1);
    std::unique_ptr<GraphRunner> runner = std::move(idleRunners_.back());
    idleRunners_.pop_back();
    return runner;
}

/// Uses the time before the first window.
void WindowPool::prepare()
{
    try {
        GraphRunner runner(1);
        network_.encoder.prepare(runner, preparing_.get_token());
    } catch (const std::exception&) {
        // The first window will meet the reason, too.
    }
}

void WindowPool::handOver(JobPointer job)
{
    {
        const std::lock_guard guard(lock_);
        if (!isAbandoned_)
            jobs_.push_front(std::move(job));
    }
    changed_.notify_all();
}

void WindowPool::close(Job& job)
{
    const std::lock_guard guard(lock_);
    --unfinished_;
    if (job.runner != nullptr && job.runner->isUsable())
        idleRunners_.push_back(std::move(job.runner));
}

} // namespace vantro::asr
