#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

namespace vantro::asr {

/// How the token-and-duration search runs. blankId and durationBins are replaced by the loaded model's own.
struct TdtConfig
{
    bool includeTokenDuration = true;
    std::int32_t maxSymbolsPerStep = 10;
    std::vector<std::int32_t> durationBins = {0, 1, 2, 3, 4}; ///< encoder frames
    std::int32_t blankId = 8192;
    std::int32_t boundarySearchFrames = 20; ///< to each side of an overlap's middle
    // No rule ends a chunk early (docs/decisions/parakeet-decoding.md says why); these two are read by nobody.
    std::int32_t maxTokensPerChunk = 150;
    std::int32_t consecutiveBlankLimit = 5;
};

struct ASRConfig
{
    std::int32_t sampleRate = 16'000;
    TdtConfig tdtConfig;
    std::int32_t encoderHiddenSize = 1024;
    std::int32_t parallelChunkConcurrency = 4;
    bool streamingEnabled = true;
    std::int32_t streamingThreshold = 480'000; ///< samples
    bool melChunkContext = true;
    bool dualDecodeArbitration = false;
};

} // namespace vantro::asr
