#include "asr/ChunkProcessor.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <utility>

namespace vantro::asr {

namespace {

constexpr std::int64_t sampleRate = 16'000;
constexpr std::int64_t centringSamples = Preprocessor::hopSamples; ///< reserved: the features add one frame

std::int64_t wholeFrames(std::int64_t samples)
{
    return samples / ChunkProcessor::frameSamples * ChunkProcessor::frameSamples;
}

std::int32_t frameOf(std::int64_t sample)
{
    return static_cast<std::int32_t>(sample / ChunkProcessor::frameSamples);
}

} // namespace

ChunkProcessor::ChunkProcessor(std::span<const float> samples, const Options& options, LogSink logger)
    : sampleSource_(samples)
    , totalSamples_(std::ssize(samples))
    , logger_(std::move(logger))
    , overlapSeconds_(options.overlapSeconds)
    , melContextSamples_(options.melContextSamples)
    , noMelWarmupPrefixFrames_(options.noMelWarmupPrefixFrames)
{
}

ChunkLayout ChunkProcessor::layout(bool warmup, const ChunkStartDecision& decision) const
{
    ChunkLayout layout;
    layout.context = warmup ? melContextSamples_ : 0;
    const std::int64_t available = maximumWindowSamples - layout.context - centringSamples;
    layout.chunk = wholeFrames(std::max(available, frameSamples));
    const auto wanted = static_cast<std::int64_t>(overlapSeconds_) * sampleRate;
    layout.overlap = wholeFrames(std::min(layout.chunk / 2, wanted));
    layout.stride = wholeFrames(std::max(layout.chunk - layout.overlap, frameSamples));
    layout.prefix = !warmup && decision.useWarmupPrefix ? noMelWarmupPrefixFrames_ * frameSamples : 0;
    return layout;
}

std::vector<Window> ChunkProcessor::windows(const ASRConfig& config) const
{
    if (totalSamples_ <= maximumWindowSamples)
        return {{0, totalSamples_, 0}};
    std::vector<Window> windows;
    const bool warmup = config.melChunkContext;
    for (ChunkStartDecision decision; decision.start < totalSamples_;) {
        const ChunkLayout cut = layout(warmup, decision);
        // The previous window already reaches the end.
        if (!windows.empty() && windows.back().end == totalSamples_)
            break;
        const std::int64_t begin = std::max<std::int64_t>(decision.start - cut.context - cut.prefix, 0);
        windows.push_back({begin, std::min(decision.start + cut.chunk, totalSamples_), decision.start});
        decision = {decision.start + cut.stride, true};
    }
    return windows;
}

/// Joins the tokens of a range that two windows have decoded.
std::vector<DecodedToken> ChunkProcessor::join(std::span<const DecodedToken> earlier,
                                               std::span<const DecodedToken> later, FrameRange range,
                                               const Request& request) const
{
    const Seam seam = chooseSeam(earlier, later, range, request.models.vocabulary);
    if (logger_ && seam.agreed > 0)
        logger_("Found exact suffix-prefix overlap of length " + std::to_string(seam.agreed));
    std::vector<DecodedToken> joined(earlier.begin(), earlier.begin() + static_cast<std::ptrdiff_t>(seam.kept));
    joined.insert(joined.end(), later.begin() + static_cast<std::ptrdiff_t>(seam.dropped), later.end());
    return joined;
}

std::vector<DecodedToken> ChunkProcessor::process(const Request& request, TdtDecoderState& state) const
{
    const std::vector<Window> cut = windows(request.config);
    WindowPool pool(sampleSource_, cut, request.models,
                    {request.config.parallelChunkConcurrency, request.stop, logger_});
    TdtDecoderV3 decoder(request.models, request.config.tdtConfig, request.allowed, request.stop);
    std::vector<DecodedToken> tokens;
    const auto append = [&tokens](std::span<const DecodedToken> found) {
        tokens.insert(tokens.end(), found.begin(), found.end());
    };
    std::vector<DecodedToken> before; // the earlier window's tokens in the shared range
    FrameRange shared;
    for (std::size_t i = 0; i < cut.size(); ++i) {
        const EncoderFrames frames = pool.take(i);
        const std::int32_t offset = frameOf(cut[i].begin);
        const auto decode = [&](std::int32_t begin, std::int32_t end) {
            return decoder.decode({frames, begin - offset, end - offset, offset}, state);
        };
        std::int32_t begin = frameOf(cut[i].start);
        if (i > 0) {
            state = TdtDecoderState();
            decode(begin, shared.begin);
            append(join(before, decode(shared.begin, shared.end), shared, request));
            begin = shared.end;
        }
        if (i + 1 == cut.size()) {
            append(decode(begin, offset + static_cast<std::int32_t>(frames.frames)));
        } else {
            shared = seamSearchRange({frameOf(cut[i + 1].start), frameOf(cut[i].end)}, request.config.tdtConfig);
            append(decode(begin, shared.begin));
            before = decode(shared.begin, shared.end);
        }
        if (request.onProgress)
            request.onProgress(static_cast<float>(i + 1) / static_cast<float>(cut.size()));
    }
    return tokens;
}

} // namespace vantro::asr
