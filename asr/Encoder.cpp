#include "asr/Encoder.h"

#include "asr/ASRError.h"
#include "asr/ModelSource.h"

namespace vantro::asr {

namespace {

constexpr std::size_t tensorsPerLayer = 40;
constexpr std::size_t nodesPerLayer = 120;
constexpr std::size_t nodesAround = 100;
/// Of 15 s, the longest window.
constexpr std::int64_t maximumFrames = 188;

std::size_t encoderLayers(const ModelSource& file)
{
    return static_cast<std::size_t>(file.encoderParameters().layerCount);
}

} // namespace

Encoder::Encoder(const ModelSource& file, kernels::Level cap)
    : weights_(nodesAround + encoderLayers(file) * tensorsPerLayer, Weights::Place::file, cap)
    , subsampling_(file, weights_)
    , stateSize_(file.encoderParameters().stateSize)
{
    for (std::int32_t layer = 0; layer < file.encoderParameters().layerCount; ++layer)
        layers_.emplace_back(file, weights_, layer);
    positions_ = std::make_unique<PositionProducts>(layers_.size(), stateSize_, maximumFrames);
    weights_.load(file);
}

void Encoder::prepare(GraphRunner& runner, const std::stop_token& stop) const
{
    try {
        weights_.prefetch(stop);
        positions_->require(maximumFrames, layers_, runner, stop);
    } catch (const ASRError&) {
        // Stopped, or a reason that the encoding will meet, too.
    }
}

Encoding::Encoding(const Encoder& encoder, const Preprocessor::Features& features, GraphRunner& runner,
                   const std::stop_token& stop)
    : graph_(nodesAround + encoder.layers_.size() * nodesPerLayer)
    , runner_(runner)
{
    encoder.weights_.check();
    const auto melFrames = static_cast<std::int64_t>(features.frames);
    const auto bands = static_cast<std::int64_t>(features.values.size() / features.frames);
    const std::int64_t frames = Subsampling::encoderFrames(melFrames);
    encoder.positions_->require(frames, encoder.layers_, runner, stop);
    ggml_tensor* mel = graph_.input(bands, melFrames);
    result_ = encoder.subsampling_.build(graph_.context(), mel);
    graph_.endPart(result_);
    for (std::size_t i = 0; i < encoder.layers_.size(); ++i) {
        ggml_tensor* positions = graph_.constant(encoder.positions_->of(i, frames), encoder.stateSize_, 2 * frames - 1);
        result_ = encoder.layers_[i].build(graph_.context(), result_, positions);
        graph_.endPart(result_);
    }
    graph_.output(result_);
    runner.allocate(graph_);
    setTensor(mel, features.values);
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

EncoderFrames project(const Linear& projection, const EncoderFrames& encoded, GraphRunner& runner,
                      const std::stop_token& stop)
{
    constexpr std::size_t nodes = 8;
    Graph graph(nodes);
    const auto frames = static_cast<std::int64_t>(encoded.frames);
    ggml_tensor* input = graph.input(projection.inputs, frames);
    ggml_tensor* projected = projection.apply(graph.context(), input);
    graph.output(projected);
    runner.allocate(graph);
    setTensor(input, encoded.values);
    runner.compute(graph.get(), stop);
    return {encoded.frames, tensorValues(projected)};
}

} // namespace vantro::asr
