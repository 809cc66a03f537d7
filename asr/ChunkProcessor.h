#pragma once

#include <cstdint>
#include <optional>
#include <span>
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

/// A part of the recording that is encoded at once, in samples of the recording.
struct Window
{
    std::int64_t begin = 0; ///< including the context
    std::int64_t end = 0;
    std::int64_t start = 0;                ///< where the chunk itself begins
    std::optional<std::int64_t> nextStart; ///< where the next chunk would begin; nothing if there is none
};

struct WindowSamples
{
    Window window;
    std::vector<float> samples; ///< 16 kHz mono
};

/// Cuts a recording of any length into windows of the model's input while it grows. Windows overlap. Keeps only the
/// samples that windows to come will need. One thread.
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
        std::int64_t windowSamples = maximumWindowSamples;
    };

    /// @p warmup: precede chunks by their context.
    ChunkProcessor(const Options& options, bool warmup);

    [[nodiscard]] ChunkLayout layout(bool warmup, const ChunkStartDecision& decision) const;

    /// @p samples: 16 kHz mono, in pieces of any size.
    void append(std::span<const float> samples);
    /// The next window whose samples are all there and that no further sample changes.
    std::optional<WindowSamples> next();
    /// What next() has left if the recording ends here; nothing if its last window reaches the end.
    [[nodiscard]] std::optional<WindowSamples> rest() const;
    [[nodiscard]] std::int64_t totalSamples() const { return totalSamples_; }

private:
    [[nodiscard]] ChunkLayout currentLayout() const { return layout(warmup_, decision_); }
    [[nodiscard]] WindowSamples cut(std::int64_t end, std::optional<std::int64_t> nextStart) const;

    std::vector<float> sampleSource_;
    std::int64_t droppedSamples_ = 0; ///< of the recording, before sampleSource_
    std::int64_t totalSamples_ = 0;
    double overlapSeconds_;
    std::int64_t melContextSamples_;
    std::int64_t noMelWarmupPrefixFrames_;
    std::int64_t windowSamples_;
    bool warmup_;
    ChunkStartDecision decision_;     ///< for the next window
    std::int64_t coveredSamples_ = 0; ///< up to the end of the last window
};

} // namespace vantro::asr
