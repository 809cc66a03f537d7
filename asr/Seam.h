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

/// The part of an overlap that both windows decode: its centre, at most boundarySearchFrames to each side.
FrameRange seamSearchRange(FrameRange overlap, const TdtConfig& config);

/// Where the transcript switches from one window to the next.
struct Seam
{
    std::size_t kept = 0;    ///< tokens of the earlier window to keep
    std::size_t dropped = 0; ///< leading tokens of the later window to drop
    std::size_t agreed = 0;  ///< consecutive words around the seam that both windows have
};

/// Aligns the words of both windows in @p range by time and spelling, and switches between two aligned positions, so
/// that no word is lost or repeated. Prefers a position near the centre whose neighbours agree. @p earlier and @p
/// later: each window's tokens in @p range.
Seam chooseSeam(std::span<const DecodedToken> earlier, std::span<const DecodedToken> later, FrameRange range,
                std::span<const std::string> vocabulary);

} // namespace vantro::asr
