#pragma once

#include "asr/ChunkProcessor.h"
#include "asr/CtcLogProbabilities.h"
#include "asr/CtcModel.h"
#include "asr/WindowPool.h"

#include <cstdint>
#include <future>
#include <memory>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace vantro::asr {

/// How a CTC model listens to recordings: in which windows, and how its scores become probabilities. Immutable; any
/// thread.
struct CtcKeywordSpotter
{
    std::shared_ptr<const CtcModel> model;
    std::int32_t blankId = 0;
    std::int32_t sampleRate = 16'000;
    /// Shorter than the recogniser's windows, so that little is left to do at the end of a recording.
    std::int64_t maxModelSamples = 80'000;
    std::int64_t chunkOverlapSamples = 16'000; ///< of neighbouring windows, which are joined in its middle
    float temperature = 1;                     ///< above 1, the probabilities become more alike
    float blankBias = 0;                       ///< taken from the blank's score

    explicit CtcKeywordSpotter(std::shared_ptr<const CtcModel> model);

    /// Appends frames [@p begin, @p end) of @p scores as probabilities.
    void append(CtcLogProbabilities& result, const EncoderFrames& scores, std::size_t begin, std::size_t end) const;
};

/// Listens to a recording while it is made: each window as soon as its samples are there, in the threads of a pool that
/// has other work as well. One thread calls; only finish() waits.
class CtcSpotting
{
public:
    /// @p pool must outlive it.
    CtcSpotting(std::shared_ptr<const CtcKeywordSpotter> spotter, WindowPool& pool);
    /// Gives up what is in progress.
    ~CtcSpotting();
    CtcSpotting(const CtcSpotting&) = delete;
    CtcSpotting& operator=(const CtcSpotting&) = delete;

    /// @p samples: 16 kHz mono, in pieces of any size.
    void append(std::span<const float> samples);
    /// Listens to the rest as if the recording ended here; append() drops that.
    void speculate();
    /// Of the whole recording; call it once, after the pool has been hurried. Throws ASRError: invalidAudioData
    /// (shorter than 20 ms, or not finite), processingFailed, soon after a stop request, too.
    CtcLogProbabilities finish(const std::stop_token& stop);

private:
    struct Part
    {
        Window window;
        std::future<EncoderFrames> scores;
    };

    [[nodiscard]] Part submit(WindowSamples window, const std::stop_token& stop);
    void dropEnding();

    std::shared_ptr<const CtcKeywordSpotter> spotter_;
    WindowPool& pool_;
    ChunkProcessor chunks_;
    std::stop_source stop_;
    std::vector<Part> parts_;
    std::optional<Part> ending_;
    bool hasEnding_ = false; ///< also if nothing was left for one
    std::stop_source stopEnding_;
};

} // namespace vantro::asr
