#pragma once

#include "asr/Compute.h"
#include "asr/Encoder.h"
#include "asr/Weights.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vantro::asr {

/// The joint network: from one encoder frame and the prediction network's output to a score per token and per duration
/// (token-and-duration transducer, arXiv:2304.06795). Immutable and thread-safe; each thread decides with a Step.
class JointDecision
{
public:
    explicit JointDecision(ModelFile& file);

    /// The encoder's frames in the joint network's space, all at once.
    [[nodiscard]] EncoderFrames project(const EncoderFrames& encoded, GraphRunner& runner) const;

    /// The scores of one decision: the pieces and the blank, then the durations.
    struct Scores
    {
        std::span<const float> tokens;
        std::span<const float> durations;
    };

    /// A decision's graph, built once and computed for every decision.
    class Step
    {
    public:
        Step(const JointDecision& joint, int threads, const std::stop_token* stop);
        /// @p frame of project(); @p prediction as cached in the decoder's state. Valid until the next call.
        Scores decide(std::span<const float> frame, std::span<const float> prediction);

    private:
        std::size_t tokenCount_;
        Graph graph_;
        GraphRunner runner_;
        ggml_tensor* frame_ = nullptr;
        ggml_tensor* prediction_ = nullptr;
        ggml_tensor* scores_ = nullptr;
        std::vector<float> values_;
    };

private:
    Weights weights_;
    Linear frameProjection_;
    Linear output_;
    std::int64_t size_ = 0;
    std::size_t tokenCount_ = 0;
};

} // namespace vantro::asr
