#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantro::asr {

using Seconds = std::chrono::duration<double>;

struct TokenTiming
{
    std::string token; ///< text piece; U+2581 marks the start of a word
    std::int32_t tokenId = 0;
    Seconds startTime{}; ///< from the start of the recording
    Seconds endTime{};
    float confidence = 0; ///< 0..1
};

struct ASRResult
{
    std::string text;     ///< UTF-8
    float confidence = 0; ///< mean over the tokens; 0 if there are none
    Seconds duration{};   ///< of the audio
    Seconds processingTime{};
    std::optional<std::vector<TokenTiming>> tokenTimings;
    // Set when boosting runs inside the recogniser.
    std::optional<std::vector<std::string>> ctcDetectedTerms;
    std::optional<std::vector<std::string>> ctcAppliedTerms;
};

} // namespace vantro::asr
