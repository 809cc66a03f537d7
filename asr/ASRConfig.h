#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vantro::asr {

/// Parameters of the token-and-duration search. blankId and durationBins are replaced by the loaded model's.
struct TdtConfig
{
    bool includeTokenDuration = true;
    std::int32_t maxSymbolsPerStep = 10;
    std::vector<std::int32_t> durationBins = {0, 1, 2, 3, 4}; ///< encoder frames
    std::int32_t blankId = 8192;
    std::int32_t boundarySearchFrames = 20; ///< on each side of an overlap's centre
    // Unused: chunks are never ended early (see docs/decisions/parakeet-decoding.md).
    std::int32_t maxTokensPerChunk = 150;
    std::int32_t consecutiveBlankLimit = 5;
};

struct ASRConfig
{
    std::int32_t sampleRate = 16'000;
    TdtConfig tdtConfig;
    std::int32_t encoderHiddenSize = 1024;
    std::int32_t parallelChunkConcurrency = 4;
    bool melChunkContext = true;
    // Without effect: every recording is a stream (see docs/decisions/parakeet-decoding.md).
    bool streamingEnabled = true;
    std::int32_t streamingThreshold = 480'000; ///< samples
    bool dualDecodeArbitration = false;
};

} // namespace vantro::asr
