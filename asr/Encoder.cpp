#include "asr/Encoder.h"

#include "asr/ModelFile.h"

namespace vantro::asr {

namespace {

constexpr std::size_t tensorsPerLayer = 40;
constexpr std::size_t nodesPerLayer = 120;
constexpr std::size_t nodesAround = 100;

std::size_t layerCount(const ModelFile& file)
{
    return static_cast<std::size_t>(file.hyperparameters().layerCount);
}

} // namespace

Encoder::Encoder(ModelFile& file, kernels::Level cap)
    : weights_(nodesAround + layerCount(file) * tensorsPerLayer, Weights::Place::file, cap)
    , subsampling_(file, weights_)
    , stateSize_(file.hyperparameters().stateSize)
{
    for (std::int32_t layer = 0; layer < file.hyperparameters().layerCount; ++layer)
        layers_.emplace_back(file, weights_, layer);
    weights_.load(file);
}

Encoding::Encoding(const Encoder& encoder, const Preprocessor::Features& features, GraphRunner& runner)
    : graph_(nodesAround + encoder.layers_.size() * nodesPerLayer)
    , runner_(runner)
{
    encoder.weights_.check();
    const auto melFrames = static_cast<std::int64_t>(features.frames);
    const auto bands = static_cast<std::int64_t>(features.values.size() / features.frames);
    const std::int64_t frames = Subsampling::encoderFrames(melFrames);
    ggml_tensor* mel = graph_.input(bands, melFrames);
    ggml_tensor* positions = graph_.input(encoder.stateSize_, 2 * frames - 1);
    Activations place(graph_.context(), positions);
    result_ = encoder.subsampling_.build(graph_.context(), mel);
    graph_.endPart(result_);
    for (const EncoderLayer& layer : encoder.layers_) {
        result_ = layer.build(graph_.context(), result_, place);
        graph_.endPart(result_);
    }
    graph_.output(result_);
    runner.allocate(graph_);
    setTensor(mel, features.values);
    setTensor(positions, relativePositions(frames, encoder.stateSize_));
}

void Encoding::computeLayer(const std::stop_token& stop)
{
    runner_.compute(graph_.part(done_), stop);
    ++done_;
}

EncoderFrames Encoding::frames() const
{
    return {static_cast<std::size_t>(result_->ne[1]), tensorValues(result_)};
}

} // namespace vantro::asr
