#pragma once

#include "asr/ASRResult.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace vantro::asr {

/// A word of a transcript and when it was said.
struct TranscriptWord
{
    std::string prefix; ///< punctuation before the word
    std::string core;
    std::string possessive; ///< "'s", if it ends so
    std::string suffix;     ///< punctuation after the word
    Seconds start{};
    Seconds end{};
    std::size_t firstToken = 0; ///< of the transcript
    std::size_t endToken = 0;   ///< after its last one

    [[nodiscard]] std::string text() const { return prefix + core + possessive + suffix; }
};

/// The words of @p text, which are separated by single blanks. Empty if @p timings are of another text.
std::vector<TranscriptWord> transcriptWords(const std::string& text, std::span<const TokenTiming> timings);

/// Words [@p begin, @p end) as text.
std::string joined(std::span<const TranscriptWord> words, std::size_t begin, std::size_t end);

} // namespace vantro::asr
