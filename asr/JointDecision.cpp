#include "asr/JointDecision.h"

#include "asr/ModelFile.h"

namespace vantro::asr {

namespace {

constexpr std::size_t maximumTensors = 16;

} // namespace

JointDecision::JointDecision(const ModelFile& file, kernels::Level cap)
    : weights_(maximumTensors, Weights::Place::memory, cap)
    , frameProjection_(weights_.linear(file, "joint.enc.weight", "joint.enc.bias"))
    , output_(weights_.linear(file, "joint.joint_net.2.weight", "joint.joint_net.2.bias"))
    , size_(file.jointSize())
    , tokenCount_(static_cast<std::size_t>(file.hyperparameters().vocabularySize) + 1)
{
    weights_.load(file);
}

JointDecision::Step::Step(const JointDecision& joint, int threads)
    : tokenCount_(joint.tokenCount_)
    , graph_(maximumTensors)
    , runner_(threads)
    , frame_(graph_.input(joint.size_))
    , prediction_(graph_.input(joint.size_))
{
    ggml_context* context = graph_.context();
    scores_ = joint.output_.apply(context, ggml_relu(context, ggml_add(context, frame_, prediction_)));
    graph_.output(scores_);
    runner_.allocate(graph_);
    values_.resize(static_cast<std::size_t>(ggml_nelements(scores_)));
}

JointDecision::Scores JointDecision::Step::decide(std::span<const float> frame, std::span<const float> prediction,
                                                  const std::stop_token& stop)
{
    setTensor(frame_, frame);
    setTensor(prediction_, prediction);
    runner_.compute(graph_.get(), stop);
    getTensor(scores_, values_);
    return {std::span(values_).first(tokenCount_), std::span(values_).subspan(tokenCount_)};
}

} // namespace vantro::asr
