#include "asr/Decoder.h"

#include "asr/ModelFile.h"

#include <algorithm>
#include <span>
#include <string>

namespace vantro::asr {

namespace {

constexpr std::size_t tensorsPerLstm = 3;
constexpr std::size_t nodesPerLstm = 30;
constexpr std::size_t others = 16;

std::size_t lstmCount(const ModelFile& file)
{
    return static_cast<std::size_t>(file.hyperparameters().predictionLayers);
}

/// One quarter of the gates, in the order input, forget, output, candidate.
ggml_tensor* quarter(ggml_context* context, ggml_tensor* gates, std::int64_t size, int index)
{
    return ggml_view_1d(context, gates, size, static_cast<std::size_t>(index * size) * sizeof(float));
}

} // namespace

Decoder::Decoder(const ModelFile& file, kernels::Level cap)
    : weights_(others + lstmCount(file) * tensorsPerLstm, Weights::Place::memory, cap)
    , embedding_(weights_.tensor(file, "decoder.prediction.embed.weight"))
    , startToken_(file.hyperparameters().vocabularySize)
    , size_(file.hyperparameters().predictionSize)
{
    for (std::size_t layer = 0; layer < lstmCount(file); ++layer) {
        const std::string prefix = "decoder.prediction.dec_rnn.lstm.";
        const std::string suffix = "_l" + std::to_string(layer);
        layers_.push_back({weights_.linear(file, prefix + "weight_ih" + suffix, prefix + "bias_h" + suffix),
                           weights_.linear(file, prefix + "weight_hh" + suffix)});
    }
    projection_ = weights_.linear(file, "joint.pred.weight", "joint.pred.bias");
    weights_.load(file);
}

Decoder::Step::Step(const Decoder& decoder, int threads)
    : startToken_(decoder.startToken_)
    , size_(static_cast<std::size_t>(decoder.size_))
    , graph_(others + decoder.layers_.size() * nodesPerLstm)
    , runner_(threads)
{
    ggml_context* context = graph_.context();
    token_ = graph_.integerInput(1);
    ggml_tensor* x = ggml_get_rows(context, decoder.embedding_, token_);
    for (const LstmLayer& lstm : decoder.layers_) {
        Layer layer{graph_.input(decoder.size_), graph_.input(decoder.size_), nullptr, nullptr};
        ggml_tensor* gates =
            ggml_add(context, lstm.input.apply(context, x), lstm.recurrent.apply(context, layer.hidden));
        const auto gate = [&](int index) {
            return ggml_sigmoid(context, quarter(context, gates, decoder.size_, index));
        };
        ggml_tensor* candidate = ggml_tanh(context, quarter(context, gates, decoder.size_, 3));
        layer.newCell =
            ggml_add(context, ggml_mul(context, gate(1), layer.cell), ggml_mul(context, gate(0), candidate));
        layer.newHidden = ggml_mul(context, gate(2), ggml_tanh(context, layer.newCell));
        graph_.output(layer.newCell);
        graph_.output(layer.newHidden);
        layers_.push_back(layer);
        x = layer.newHidden;
    }
    output_ = decoder.projection_.apply(context, x);
    graph_.output(output_);
    runner_.allocate(graph_);
}

void Decoder::Step::advance(TdtDecoderState& state, const std::stop_token& stop)
{
    state.hiddenState.resize(layers_.size() * size_);
    state.cellState.resize(layers_.size() * size_);
    const std::int32_t token = state.lastToken.value_or(startToken_);
    ggml_backend_tensor_set(token_, &token, 0, sizeof token);
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        setTensor(layers_[i].hidden, std::span(state.hiddenState).subspan(i * size_, size_));
        setTensor(layers_[i].cell, std::span(state.cellState).subspan(i * size_, size_));
    }
    runner_.compute(graph_.get(), stop);
    for (std::size_t i = 0; i < layers_.size(); ++i) {
        getTensor(layers_[i].newHidden, std::span(state.hiddenState).subspan(i * size_, size_));
        getTensor(layers_[i].newCell, std::span(state.cellState).subspan(i * size_, size_));
    }
    state.predictorOutput.resize(static_cast<std::size_t>(ggml_nelements(output_)));
    getTensor(output_, state.predictorOutput);
}

} // namespace vantro::asr
