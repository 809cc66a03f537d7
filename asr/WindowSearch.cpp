#include "asr/WindowSearch.h"

#include <utility>

namespace vantro::asr {

namespace {

std::int32_t frameOf(std::int64_t sample)
{
    return static_cast<std::int32_t>(sample / ChunkProcessor::frameSamples);
}

void append(std::vector<DecodedToken>& tokens, std::span<const DecodedToken> found)
{
    tokens.insert(tokens.end(), found.begin(), found.end());
}

} // namespace

WindowSearch::WindowSearch(const AsrModels& models, const TdtConfig& config, const TokenFilter* allowed, LogSink logger)
    : models_(models)
    , config_(config)
    , decoder_(models, config, allowed)
    , logger_(std::move(logger))
{
}

void WindowSearch::add(Transcript& transcript, const Window& window, EncoderFrames frames, const std::stop_token& stop)
{
    const FrameRange shared = transcript.overlap;
    std::int32_t begin = frameOf(window.start);
    transcript.frames = std::move(frames);
    transcript.offset = frameOf(window.begin);
    if (std::exchange(transcript.isBegun, true)) {
        transcript.state = TdtDecoderState();
        decode(transcript, {begin, shared.begin}, stop); // only for the state: the earlier window has these tokens
        append(transcript.tokens, join(transcript.inOverlap, decode(transcript, shared, stop), shared));
        begin = shared.end;
    }
    transcript.inOverlap.clear();
    transcript.overlap = {begin, begin};
    if (!window.nextStart)
        return;
    transcript.overlap = seamSearchRange({frameOf(*window.nextStart), frameOf(window.end)}, config_);
    append(transcript.tokens, decode(transcript, {begin, transcript.overlap.begin}, stop));
    transcript.inOverlap = decode(transcript, transcript.overlap, stop);
}

void WindowSearch::close(Transcript& transcript, const std::stop_token& stop)
{
    append(transcript.tokens, transcript.inOverlap);
    const auto end = static_cast<std::int32_t>(transcript.frames.frames) + transcript.offset;
    append(transcript.tokens, decode(transcript, {transcript.overlap.end, end}, stop));
}

/// Continues in the last window. @p range: frames of the recording.
std::vector<DecodedToken> WindowSearch::decode(Transcript& transcript, FrameRange range, const std::stop_token& stop)
{
    const std::int32_t offset = transcript.offset;
    return decoder_.decode({transcript.frames, range.begin - offset, range.end - offset, offset}, transcript.state,
                           stop);
}

/// Joins the tokens of a range that two windows have decoded.
std::vector<DecodedToken> WindowSearch::join(std::span<const DecodedToken> earlier, std::span<const DecodedToken> later,
                                             FrameRange range) const
{
    const Seam seam = chooseSeam(earlier, later, range, models_.vocabulary);
    if (logger_ && seam.agreed > 0)
        logger_("Found exact suffix-prefix overlap of length " + std::to_string(seam.agreed));
    std::vector<DecodedToken> joined(earlier.begin(), earlier.begin() + static_cast<std::ptrdiff_t>(seam.kept));
    joined.insert(joined.end(), later.begin() + static_cast<std::ptrdiff_t>(seam.dropped), later.end());
    return joined;
}

} // namespace vantro::asr
