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

Encoder::Encoder(ModelFile& file)
    : weights_(nodesAround + layerCount(file) * tensorsPerLayer, Weights::Place::file)
    , subsampling_(file, weights_)
    , stateSize_(file.hyperparameters().stateSize)
{
    for (std::int32_t layer = 0; layer < file.hyperparameters().layerCount; ++layer)
        layers_.emplace_back(file, weights_, layer);
    weights_.load(file);
}

EncoderFrames Encoder::encode(const Preprocessor::Features& features, GraphRunner& runner) const
{
    weights_.check();
    const auto melFrames = static_cast<std::int64_t>(features.frames);
    const auto bands = static_cast<std::int64_t>(features.values.size() / features.frames);
    const std::int64_t frames = Subsampling::encoderFrames(melFrames);
    Graph graph(nodesAround + layers_.size() * nodesPerLayer);
    ggml_tensor* mel = graph.input(bands, melFrames);
    ggml_tensor* positions = graph.input(stateSize_, 2 * frames - 1);
    Activations place(graph.context(), positions);
    ggml_tensor* x = subsampling_.build(graph.context(), mel);
    for (const EncoderLayer& layer : layers_)
        x = layer.build(graph.context(), x, place);
    graph.output(x);
    runner.allocate(graph);
    setTensor(mel, features.values);
    setTensor(positions, relativePositions(frames, stateSize_));
    runner.compute(graph);
    return {static_cast<std::size_t>(frames), tensorValues(x)};
}

} // namespace vantro::asr
