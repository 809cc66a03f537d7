#pragma once

#include <cstdint>
#include <optional>
#include <vector>

namespace vantro::asr {

/// The search's state between decisions and between stretches of frames.
struct TdtDecoderState
{
    std::vector<float> hiddenState; ///< of the prediction network, [layer][size]; empty at the start of a recording
    std::vector<float> cellState;
    std::optional<std::int32_t> lastToken;
    std::vector<float> predictorOutput; ///< cached for lastToken; input of the joint network
    std::int32_t timeJump = 0;          ///< frames still to skip at the start of the next stretch
};

} // namespace vantro::asr
