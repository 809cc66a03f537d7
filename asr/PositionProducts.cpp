#include "asr/PositionProducts.h"

#include "asr/ASRError.h"
#include "asr/EncoderLayer.h"

#include <algorithm>
#include <cmath>

namespace vantro::asr {

namespace {

constexpr std::size_t nodesPerProduct = 4;

/// The sinusoids of a distance in frames (Transformer-XL, arXiv:1901.02860).
void appendPosition(std::int64_t distance, std::int64_t stateSize, std::vector<float>& values)
{
    for (std::int64_t i = 0; i < stateSize; i += 2) {
        const double rate = std::pow(10'000.0, -static_cast<double>(i) / static_cast<double>(stateSize));
        values.push_back(static_cast<float>(std::sin(static_cast<double>(distance) * rate)));
        values.push_back(static_cast<float>(std::cos(static_cast<double>(distance) * rate)));
    }
}

} // namespace

PositionProducts::PositionProducts(std::size_t layers, std::int64_t stateSize, std::int64_t maximumFrames)
    : stateSize_(stateSize)
    , maximumFrames_(maximumFrames)
{
    for (std::size_t i = 0; i < layers; ++i)
        products_.push_back(
            std::make_unique_for_overwrite<float[]>(static_cast<std::size_t>((2 * maximumFrames - 1) * stateSize)));
}

float* PositionProducts::row(std::size_t layer, std::int64_t distance) const
{
    return products_[layer].get() + (maximumFrames_ - 1 - distance) * stateSize_;
}

const float* PositionProducts::of(std::size_t layer, std::int64_t frames) const
{
    return row(layer, frames - 1);
}

void PositionProducts::require(std::int64_t frames, std::span<const EncoderLayer> layers, GraphRunner& runner,
                               const std::stop_token& stop)
{
    const std::lock_guard guard(lock_);
    if (frames <= knownFrames_)
        return;
    if (frames > maximumFrames_)
        throw ASRError(ASRError::Kind::invalidAudioData, "the window is too long");
    std::vector<std::int64_t> distances;
    std::vector<float> values;
    for (std::int64_t distance = frames - 1; distance > -frames; --distance) {
        if (std::abs(distance) < knownFrames_)
            continue;
        distances.push_back(distance);
        appendPosition(distance, stateSize_, values);
    }
    Graph graph(nodesPerProduct * (layers.size() + 1));
    ggml_tensor* input = graph.input(stateSize_, std::ssize(distances));
    Activations positions(graph.context(), input);
    std::vector<ggml_tensor*> results;
    for (const EncoderLayer& layer : layers) {
        results.push_back(layer.positionProduct(positions));
        graph.endPart(results.back());
    }
    runner.allocate(graph);
    setTensor(input, values);
    for (std::size_t layer = 0; layer < layers.size(); ++layer) {
        runner.compute(graph.part(layer), stop);
        const std::vector<float> products = tensorValues(results[layer]);
        for (std::size_t i = 0; i < distances.size(); ++i)
            std::copy_n(products.begin() + static_cast<std::ptrdiff_t>(i) * stateSize_, stateSize_,
                        row(layer, distances[i]));
    }
    knownFrames_ = frames;
}

} // namespace vantro::asr
