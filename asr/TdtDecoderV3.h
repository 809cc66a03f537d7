#pragma once

#include "asr/ASRConfig.h"
#include "asr/AsrModels.h"
#include "asr/Language.h"
#include "asr/TdtDecoderState.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vantro::asr {

/// One emitted token. Frames are encoder frames of 80 ms from the start of the recording.
struct DecodedToken
{
    std::int32_t id = 0;
    std::int32_t frame = 0;
    std::int32_t duration = 0;
    float confidence = 0; ///< probability among the pieces and the blank
};

/// Greedy search of a token-and-duration transducer (arXiv:2304.06795). One object per thread.
class TdtDecoderV3
{
public:
    /// @p models must outlive the decoder. A null @p allowed allows every token.
    TdtDecoderV3(const AsrModels& models, const TdtConfig& config, const TokenFilter* allowed);

    /// Part of a matrix of encoder frames projected by JointDecision::frameProjection().
    struct Stretch
    {
        const EncoderFrames& frames;
        std::int32_t begin = 0; ///< rows of @ref frames
        std::int32_t end = 0;
        std::int32_t offset = 0; ///< frame of row 0 in the recording
    };
    /// Decodes one stretch and updates @p state; skips the first state.timeJump frames. Adjacent stretches give the
    /// tokens of both at once. Throws ASRError::processingFailed when stopped.
    std::vector<DecodedToken> decode(const Stretch& stretch, TdtDecoderState& state, const std::stop_token& stop);

private:
    struct Choice
    {
        std::int32_t token;
        std::int32_t duration;
        float score;
    };

    [[nodiscard]] Choice choose(const JointDecision::Scores& scores) const;
    [[nodiscard]] static float probability(float score, std::span<const float> scores);

    TdtConfig config_;
    const TokenFilter* allowed_;
    Decoder::Step predict_;
    JointDecision::Step decide_;
};

} // namespace vantro::asr
