#pragma once

#include "asr/ASRConfig.h"
#include "asr/Seam.h"
#include "asr/TdtDecoderV3.h"
#include "asr/WindowPool.h"

#include <functional>
#include <span>
#include <string>
#include <vector>

namespace vantro::asr {

/// How a recording longer than the model's input is split. In samples at 16 kHz.
struct ChunkLayout
{
    std::int64_t context = 0; ///< before a chunk's start: encoded but not transcribed
    std::int64_t chunk = 0;
    std::int64_t overlap = 0; ///< with the previous chunk
    std::int64_t stride = 0;
    std::int64_t prefix = 0; ///< warm-up frames before the start if there is no context
};

/// Where a chunk begins and whether warm-up frames precede it.
struct ChunkStartDecision
{
    std::int64_t start = 0;
    bool useWarmupPrefix = false;
};

/// Transcribes a recording of any length in windows of the model's input.
///
/// A worker pool encodes the windows; they are decoded in order, each from a fresh state. Overlaps are decoded in both
/// windows, their words are aligned, and the transcript switches windows between two words (see Seam).
class ChunkProcessor
{
public:
    static constexpr std::int64_t maximumWindowSamples = 240'000;
    static constexpr std::int64_t frameSamples = 1'280;

    struct Options
    {
        double overlapSeconds = 2.0;
        std::int64_t melContextSamples = 0;
        std::int64_t noMelWarmupPrefixFrames = 0;
    };

    /// @p samples: 16 kHz mono; must outlive the processor. @p logger may be empty.
    ChunkProcessor(std::span<const float> samples, const Options& options, LogSink logger);

    [[nodiscard]] ChunkLayout layout(bool warmup, const ChunkStartDecision& decision) const;

    struct Request
    {
        const AsrModels& models;
        const ASRConfig& config;
        const TokenFilter* allowed = nullptr;
        const std::stop_token* stop = nullptr;
        std::function<void(float)> onProgress; ///< 0..1, on the calling thread; may be empty
    };
    /// Returns the tokens in order; frames count from the start of the recording. Throws ASRError.
    [[nodiscard]] std::vector<DecodedToken> process(const Request& request, TdtDecoderState& state) const;

private:
    [[nodiscard]] std::vector<Window> windows(const ASRConfig& config) const;
    [[nodiscard]] std::vector<DecodedToken> join(std::span<const DecodedToken> earlier,
                                                 std::span<const DecodedToken> later, FrameRange range,
                                                 const Request& request) const;

    std::span<const float> sampleSource_;
    std::int64_t totalSamples_;
    LogSink logger_;
    double overlapSeconds_;
    std::int64_t melContextSamples_;
    std::int64_t noMelWarmupPrefixFrames_;
};

} // namespace vantro::asr
