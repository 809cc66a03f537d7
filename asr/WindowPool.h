#pragma once

#include "asr/AsrModels.h"

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <vector>

namespace vantro::asr {

using LogSink = std::function<void(const std::string&)>;

/// Encodes windows in the order in which they come. At first one thread does, in the background; after hurry() all
/// cores do, and go on with what the background has begun. The cores are divided among as many encoders as they
/// support; further workers prepare features meanwhile. One thread calls; nothing is computed there.
class WindowPool
{
public:
    struct Options
    {
        std::int32_t workers = 1;                 ///< at most, after hurry()
        bool hasBackground = false;               ///< otherwise nothing is computed before hurry()
        std::function<void()> onBackgroundThread; ///< called there first; may be empty
        LogSink logger;                           ///< may be empty
    };

    /// @p network must outlive the pool.
    WindowPool(const AcousticNetwork& network, Options options);
    /// Waits for windows in progress; those that have not been begun get no result.
    ~WindowPool();
    WindowPool(const WindowPool&) = delete;
    WindowPool& operator=(const WindowPool&) = delete;

    /// Yields the window's projected frames or an ASRError. @p stop gives up this window.
    std::future<EncoderFrames> encode(std::vector<float> samples, std::stop_token stop)
    {
        return encode(network_, std::move(samples), std::move(stop), nullptr);
    }
    /// With another network, which @p owner keeps as long as it is used.
    std::future<EncoderFrames> encode(const AcousticNetwork& network, std::vector<float> samples, std::stop_token stop,
                                      std::shared_ptr<const void> owner);
    /// Throws ASRError::processingFailed if no thread can be started.
    void hurry();

private:
    enum class Lane { background, foreground };

    struct Job
    {
        explicit Job(const AcousticNetwork& network) : network(network) {}

        AcousticNetwork network;
        std::shared_ptr<const void> owner; ///< of the network
        std::vector<float> samples;
        std::stop_token stop;
        std::promise<EncoderFrames> result;
        std::optional<Preprocessor::Features> features;
        std::unique_ptr<GraphRunner> runner;
        std::optional<Encoding> encoding;
    };
    using JobPointer = std::unique_ptr<Job>;
    class EncoderSlot;

    void startWorkers();
    void work(Lane lane);
    [[nodiscard]] JobPointer nextJob(Lane lane);
    void run(JobPointer job, Lane lane);
    [[nodiscard]] std::optional<EncoderFrames> encoded(Job& job, Lane lane);
    void begin(Job& job);
    [[nodiscard]] std::unique_ptr<GraphRunner> idleRunner();
    void prepare();
    void handOver(JobPointer job);
    void close(Job& job);
    [[nodiscard]] bool isHurried();

    AcousticNetwork network_;
    Options options_;
    unsigned threadsPerEncoder_ = 1; ///< in the foreground

    std::mutex lock_; ///< guards everything below
    std::condition_variable changed_;
    std::deque<JobPointer> jobs_;
    std::size_t unfinished_ = 0; ///< jobs, including those in progress
    std::stop_source preparing_; ///< ends the background's preparation when the first window comes
    bool isHurried_ = false;
    bool isAbandoned_ = false;
    unsigned freeEncoders_ = 1;
    std::vector<std::unique_ptr<GraphRunner>> idleRunners_;
    std::vector<std::jthread> workers_; ///< of the foreground; the threads come last: they use the other members
    std::jthread background_;
};

} // namespace vantro::asr
