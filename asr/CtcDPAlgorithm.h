#pragma once

#include "asr/CtcLogProbabilities.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vantro::asr {

/// A range of frames.
struct CtcFrames
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// How well each sound fits each frame: 0 for the best one, less for the others.
struct SoundScores
{
    static constexpr std::int32_t silence = 0;

    std::size_t frames = 0;
    std::vector<float> values; ///< [sound][frame]

    [[nodiscard]] const float* row(std::int32_t sound) const
    {
        return values.data() + static_cast<std::size_t>(sound) * frames;
    }
};

/// Dynamic programming over the paths that connectionist temporal classification allows for a sequence of tokens: each
/// may last several frames, blanks may lie between them, and must between equal ones. Any thread.
class CtcDPAlgorithm
{
public:
    /// The logarithm of the likelihood of @p tokens, summed over all paths through @p frames.
    [[nodiscard]] static float logLikelihood(const CtcLogProbabilities& logProbs, CtcFrames frames,
                                             std::span<const std::int32_t> tokens, std::int32_t blank);

    struct Occurrence
    {
        float score = 0; ///< of the best path: the sum over its frames
        CtcFrames frames;
    };
    /// Where the sequence @p sounds occurs within @p frames: the best paths, which do not overlap, from the first
    /// sound to the last one, with scores of at least @p worst. In order of time.
    [[nodiscard]] static std::vector<Occurrence> occurrences(const SoundScores& scores, CtcFrames frames,
                                                             std::span<const std::int32_t> sounds, float worst);
};

} // namespace vantro::asr
