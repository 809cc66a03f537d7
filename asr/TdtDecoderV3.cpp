#include "asr/TdtDecoderV3.h"

#include <algorithm>
#include <cmath>

namespace vantro::asr {

TdtDecoderV3::TdtDecoderV3(const AsrModels& models, const TdtConfig& config, const TokenFilter* allowed)
    : config_(config)
    , allowed_(allowed)
    , predict_(models.decoder, 1)
    , decide_(models.joint, 1)
{
}

std::vector<DecodedToken> TdtDecoderV3::decode(const Stretch& stretch, TdtDecoderState& state,
                                               const std::stop_token& stop)
{
    std::vector<DecodedToken> tokens;
    const std::size_t width = stretch.frames.values.size() / stretch.frames.frames;
    if (state.predictorOutput.empty())
        predict_.advance(state, stop);
    std::int32_t frame = stretch.begin + state.timeJump;
    std::int32_t symbolsHere = 0;
    while (frame < stretch.end) {
        const auto scores =
            decide_.decide(std::span(stretch.frames.values).subspan(static_cast<std::size_t>(frame) * width, width),
                           state.predictorOutput, stop);
        const Choice choice = choose(scores);
        if (choice.token == config_.blankId) {
            // A blank of duration 0 would loop forever.
            frame += std::max(choice.duration, 1);
            symbolsHere = 0;
            continue;
        }
        tokens.push_back(
            {choice.token, stretch.offset + frame, choice.duration, probability(choice.score, scores.tokens)});
        state.lastToken = choice.token;
        predict_.advance(state, stop);
        frame += choice.duration;
        symbolsHere = choice.duration == 0 ? symbolsHere + 1 : 0;
        if (symbolsHere == config_.maxSymbolsPerStep) {
            ++frame;
            symbolsHere = 0;
        }
    }
    state.timeJump = std::max(frame - stretch.end, 0);
    return tokens;
}

TdtDecoderV3::Choice TdtDecoderV3::choose(const JointDecision::Scores& scores) const
{
    auto best = static_cast<std::size_t>(config_.blankId);
    for (std::size_t token = 0; token < scores.tokens.size(); ++token) {
        if (scores.tokens[token] > scores.tokens[best] && (allowed_ == nullptr || allowed_->allows(token)))
            best = token;
    }
    const auto duration =
        static_cast<std::size_t>(std::ranges::max_element(scores.durations) - scores.durations.begin());
    return {static_cast<std::int32_t>(best), config_.durationBins[duration], scores.tokens[best]};
}

float TdtDecoderV3::probability(float score, std::span<const float> scores)
{
    double sum = 0;
    for (const float other : scores)
        sum += std::exp(static_cast<double>(other - score));
    return static_cast<float>(1 / sum);
}

} // namespace vantro::asr
