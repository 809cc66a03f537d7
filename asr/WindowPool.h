#pragma once

#include "asr/AsrModels.h"

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

namespace vantro::asr {

using LogSink = std::function<void(const std::string&)>;

/// A part of the recording that is encoded at once, in samples.
struct Window
{
    std::int64_t begin = 0; ///< including the context
    std::int64_t end = 0;
    std::int64_t start = 0; ///< where the chunk itself begins
};

/// Workers that encode windows in order, ahead of take(). The cores are divided among as many encoders as they support;
/// the other workers prepare features meanwhile.
class WindowPool
{
public:
    struct Options
    {
        std::int32_t workers = 1;
        const std::stop_token* stop = nullptr; ///< may be null
        LogSink logger;                        ///< may be empty
    };

    /// All references must outlive the pool.
    WindowPool(std::span<const float> samples, std::span<const Window> windows, const AsrModels& models,
               const Options& options);
    /// Waits for windows in progress.
    ~WindowPool();
    WindowPool(const WindowPool&) = delete;
    WindowPool& operator=(const WindowPool&) = delete;

    /// Blocks until window @p index is encoded and returns its projected frames, once per window. Rethrows errors.
    EncoderFrames take(std::size_t index);

private:
    struct Slot
    {
        std::optional<EncoderFrames> frames;
        std::exception_ptr error;
    };

    void startWorkers(unsigned count);
    void work();
    void run(std::size_t index);
    [[nodiscard]] EncoderFrames encode(const Window& window);
    [[nodiscard]] GraphRunner* waitForRunner();
    void giveBack(GraphRunner* runner);

    std::span<const float> samples_;
    std::span<const Window> windows_;
    const AsrModels& models_;
    const std::stop_token* stop_;

    std::mutex lock_; ///< guards everything below
    std::condition_variable changed_;
    std::vector<Slot> slots_;
    std::size_t next_ = 0;
    bool isAbandoned_ = false;
    std::vector<GraphRunner> runners_;
    std::vector<GraphRunner*> idleRunners_;
    std::vector<std::jthread> workers_; ///< last: uses the other members
};

} // namespace vantro::asr
