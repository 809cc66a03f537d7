#pragma once

#include "asr/ASRResult.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace vantro::asr {

/// The natural logarithm of how likely each class is in each frame of a recording: the model's pieces, then the blank.
struct CtcLogProbabilities
{
    static constexpr Seconds frameDuration{0.08};

    std::size_t frames = 0;
    std::size_t classes = 0;
    std::vector<float> values; ///< [frame][class]

    [[nodiscard]] std::span<const float> frame(std::size_t index) const
    {
        return std::span(values).subspan(index * classes, classes);
    }
};

} // namespace vantro::asr
