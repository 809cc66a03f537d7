#pragma once

#include "asr/CtcTokenizer.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vantro::asr {

/// A word or name that the user wants to be written so.
struct CustomVocabularyTerm
{
    std::string text;                      ///< UTF-8, written into transcripts as it is
    std::optional<float> weight;           ///< multiplies the bias; 1 if not set
    std::vector<std::string> aliases;      ///< other ways to spell how it sounds
    std::vector<std::int32_t> ctcTokenIds; ///< of the text; empty if none of it can be spelled
    std::optional<float> minSimilarity;    ///< instead of the context's
    std::string textLowercased;
};

/// The terms and when one of them is written. Scores are natural logarithms.
struct CustomVocabularyContext
{
    std::vector<CustomVocabularyTerm> terms;
    float alpha = 4;           ///< a term whose sounds score this much below the best ones has a similarity of 0
    float minCtcScore = -1.5F; ///< mean score of a term's sounds; below, it is not written whatever the words look like
    float minSimilarity = 0.7F;
    float minCombinedConfidence = 0.85F; ///< 1 - (1 - p) (1 - similarity); p: of the term against the words, with bias
    std::size_t minTermLength = 3;       ///< letters; shorter terms sound like too much
};

/// Tokenises @p terms; those of which no way to say them has a token, and those of more than 1000 bytes, are left out.
CustomVocabularyContext tokenised(std::vector<CustomVocabularyTerm> terms, const CtcTokenizer& tokenizer);

} // namespace vantro::asr
