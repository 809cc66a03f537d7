#pragma once

#include "asr/ASRConfig.h"
#include "asr/TdtDecoderV3.h"

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

/// Where inside the overlap of two windows the change from one to the other is looked for: around its middle, where
/// both have heard what comes before and behind, at most boundarySearchFrames to each side.
FrameRange seamSearchRange(FrameRange overlap, const TdtConfig& config);

struct Seam
{
    std::int32_t frame = 0; ///< from here on the later window's frames count
    std::size_t kept = 0;   ///< tokens that stay; the others are decoded again
};

/// The widest stretch without a token in front of a word's start, among the @p tokens that the earlier window has in
/// @p range; the middle of the range when there is no such stretch.
Seam chooseSeam(std::span<const DecodedToken> tokens, FrameRange range, std::span<const std::string> vocabulary);

} // namespace vantro::asr
