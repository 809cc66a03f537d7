#pragma once

#include "asr/CtcDPAlgorithm.h"
#include "asr/CtcTokenizer.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vantro::asr {

/// What a CTC model's pieces sound like, whichever way they are written: capitals, the beginnings of words and
/// punctuation cannot be heard. Immutable; any thread.
class CtcSounds
{
public:
    explicit CtcSounds(const CtcTokenizer& tokenizer);

    /// Of the best piece with each sound.
    [[nodiscard]] SoundScores scores(const CtcLogProbabilities& logProbs) const;
    /// The sounds of @p text, which is not silent if it has any letter that the model knows.
    [[nodiscard]] std::vector<std::int32_t> of(std::string_view text) const;

private:
    const CtcTokenizer& tokenizer_;
    std::vector<std::int32_t> soundOf_; ///< each piece's, and the blank's
    std::size_t count_ = 0;
};

} // namespace vantro::asr
