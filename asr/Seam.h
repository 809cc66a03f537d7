#pragma once

#include "asr/ASRConfig.h"
#include "asr/TdtDecoderV3.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace vantro::asr {

/// Encoder frames of the recording.
struct FrameRange
{
    std::int32_t begin = 0;
    std::int32_t end = 0;
};

/// The part of the overlap of two windows that both decode: around its middle, at most boundarySearchFrames to each
/// side.
FrameRange seamSearchRange(FrameRange overlap, const TdtConfig& config);

/// Where the transcript goes over from one window to the next.
struct Seam
{
    std::size_t kept = 0;    ///< tokens of the earlier window that stay
    std::size_t dropped = 0; ///< tokens at the beginning of the later window that do not count
    std::size_t agreed = 0;  ///< words in a row around the seam that both windows have
};

/// Aligns the words that both windows have heard in @p range by their times and their letters, and goes over between
/// two aligned places, so that no word is left out and none comes twice. Among those it takes one near the middle whose
/// neighbours both windows agree on. @p earlier and @p later: the tokens that each window has in @p range.
Seam chooseSeam(std::span<const DecodedToken> earlier, std::span<const DecodedToken> later, FrameRange range,
                std::span<const std::string> vocabulary);

} // namespace vantro::asr
