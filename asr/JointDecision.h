#pragma once

#include "asr/Compute.h"
#include "asr/Encoder.h"
#include "asr/Weights.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vantro::asr {

class ModelFile;

/// The joint network: computes a score per token and per duration from an encoder frame and the prediction network's
/// output (token-and-duration transducer, arXiv:2304.06795). Immutable and thread-safe; each thread needs its own Step.
class JointDecision
{
public:
    explicit JointDecision(const ModelFile& file, kernels::Level cap = kernels::highestLevel);

    /// From encoder frames into the joint network's space.
    [[nodiscard]] const Linear& frameProjection() const { return frameProjection_; }

    /// The scores of one decision; tokens are the pieces and the blank.
    struct Scores
    {
        std::span<const float> tokens;
        std::span<const float> durations;
    };

    /// The graph of one decision, built once and computed per decision.
    class Step
    {
    public:
        Step(const JointDecision& joint, int threads);
        /// @p frame: projected; @p prediction from the decoder state. The result is valid until the next call.
        Scores decide(std::span<const float> frame, std::span<const float> prediction, const std::stop_token& stop);

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
