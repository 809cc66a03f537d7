#include "asr/ChunkProcessor.h"

#include "asr/Preprocessor.h"

#include <algorithm>

namespace vantro::asr {

namespace {

constexpr std::int64_t sampleRate = 16'000;
constexpr std::int64_t centringSamples = Preprocessor::hopSamples; ///< reserved: the features add one frame

std::int64_t wholeFrames(std::int64_t samples)
{
    return samples / ChunkProcessor::frameSamples * ChunkProcessor::frameSamples;
}

} // namespace

ChunkProcessor::ChunkProcessor(const Options& options, bool warmup)
    : overlapSeconds_(options.overlapSeconds)
    , melContextSamples_(options.melContextSamples)
    , noMelWarmupPrefixFrames_(options.noMelWarmupPrefixFrames)
    , windowSamples_(options.windowSamples)
    , warmup_(warmup)
{
}

ChunkLayout ChunkProcessor::layout(bool warmup, const ChunkStartDecision& decision) const
{
    ChunkLayout layout;
    layout.context = warmup ? melContextSamples_ : 0;
    const std::int64_t available = windowSamples_ - layout.context - centringSamples;
    layout.chunk = wholeFrames(std::max(available, frameSamples));
    const auto wanted = static_cast<std::int64_t>(overlapSeconds_) * sampleRate;
    layout.overlap = wholeFrames(std::min(layout.chunk / 2, wanted));
    layout.stride = wholeFrames(std::max(layout.chunk - layout.overlap, frameSamples));
    layout.prefix = !warmup && decision.useWarmupPrefix ? noMelWarmupPrefixFrames_ * frameSamples : 0;
    return layout;
}

void ChunkProcessor::append(std::span<const float> samples)
{
    sampleSource_.insert(sampleSource_.end(), samples.begin(), samples.end());
    totalSamples_ += std::ssize(samples);
}

WindowSamples ChunkProcessor::cut(std::int64_t end, std::optional<std::int64_t> nextStart) const
{
    const ChunkLayout layout = currentLayout();
    const std::int64_t begin = std::max<std::int64_t>(decision_.start - layout.context - layout.prefix, 0);
    const auto source =
        std::span(sampleSource_)
            .subspan(static_cast<std::size_t>(begin - droppedSamples_), static_cast<std::size_t>(end - begin));
    return {{begin, end, decision_.start, nextStart}, {source.begin(), source.end()}};
}

std::optional<WindowSamples> ChunkProcessor::next()
{
    const ChunkLayout current = currentLayout();
    const std::int64_t end = decision_.start + current.chunk;
    // A recording that one window can hold is not cut.
    if (totalSamples_ <= windowSamples_ || totalSamples_ < end)
        return std::nullopt;
    const std::int64_t nextStart = decision_.start + current.stride;
    WindowSamples window = cut(end, nextStart);
    decision_ = {nextStart, true};
    coveredSamples_ = end;
    const ChunkLayout following = currentLayout();
    const std::int64_t needed = std::max(nextStart - following.context - following.prefix, droppedSamples_);
    sampleSource_.erase(sampleSource_.begin(), sampleSource_.begin() + (needed - droppedSamples_));
    droppedSamples_ = needed;
    return window;
}

std::optional<WindowSamples> ChunkProcessor::rest() const
{
    if (coveredSamples_ == totalSamples_ && totalSamples_ > 0)
        return std::nullopt;
    return cut(totalSamples_, std::nullopt);
}

} // namespace vantro::asr
