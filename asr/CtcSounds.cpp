#include "asr/CtcSounds.h"

#include "asr/Spelling.h"

#include <algorithm>
#include <limits>
#include <map>

namespace vantro::asr {

CtcSounds::CtcSounds(const CtcTokenizer& tokenizer) : tokenizer_(tokenizer)
{
    std::map<std::u32string, std::int32_t> sounds;
    sounds.emplace(std::u32string(), SoundScores::silence);
    for (const std::string& piece : tokenizer.pieces())
        soundOf_.push_back(
            sounds.try_emplace(lettersOf(piece), static_cast<std::int32_t>(sounds.size())).first->second);
    soundOf_.push_back(SoundScores::silence); // the blank
    // What stands for anything does not sound like its name.
    soundOf_[static_cast<std::size_t>(tokenizer.unknownPiece())] = SoundScores::silence;
    count_ = sounds.size();
}

SoundScores CtcSounds::scores(const CtcLogProbabilities& logProbs) const
{
    SoundScores result{logProbs.frames,
                       std::vector<float>(count_ * logProbs.frames, std::numeric_limits<float>::lowest())};
    for (std::size_t frame = 0; frame < logProbs.frames; ++frame) {
        const auto values = logProbs.frame(frame);
        const float best = *std::ranges::max_element(values);
        for (std::size_t i = 0; i < values.size(); ++i) {
            float& score = result.values[static_cast<std::size_t>(soundOf_[i]) * result.frames + frame];
            score = std::max(score, values[i] - best);
        }
    }
    return result;
}

std::vector<std::int32_t> CtcSounds::of(std::string_view text) const
{
    std::vector<std::int32_t> sounds;
    for (const std::int32_t id : tokenizer_.encode(text)) {
        if (soundOf_[static_cast<std::size_t>(id)] != SoundScores::silence)
            sounds.push_back(soundOf_[static_cast<std::size_t>(id)]);
    }
    return sounds;
}

} // namespace vantro::asr
