#include "asr/ModelLayout.h"

#include "asr/ASRError.h"

#include <bit>

namespace vantro::asr {

namespace {

void require(bool condition, const char* what)
{
    if (!condition)
        throw ASRError(ASRError::Kind::modelLoadFailed, std::string("the header's ") + what + " is out of range");
}

bool inRange(std::int32_t value, std::int32_t low, std::int32_t high)
{
    return value >= low && value <= high;
}

class LayoutBuilder
{
public:
    void matrix(const std::string& name, std::int64_t in, std::int64_t out) { add(name, {in, out, 1, 1}, 2, true); }
    void vector(const std::string& name, std::int64_t size) { add(name, {size, 1, 1, 1}, 1, false); }
    void norm(const std::string& name, std::int64_t size)
    {
        vector(name + ".weight", size);
        vector(name + ".bias", size);
    }
    void linear(const std::string& name, std::int64_t in, std::int64_t out, bool hasBias)
    {
        matrix(name + ".weight", in, out);
        if (hasBias)
            vector(name + ".bias", out);
    }
    void add(const std::string& name, TensorShape shape, int dimensions, bool isMatrix)
    {
        tensors.push_back({name, shape, dimensions, isMatrix});
    }

    std::vector<TensorLayout> tensors;
};

void addSubsampling(LayoutBuilder& layout, const EncoderParameters& p)
{
    const std::string prefix = "encoder.pre_encode.conv.";
    const std::int64_t channels = p.subsamplingChannels;
    for (const int index : {0, 2, 3, 5, 6}) {
        const bool isPointwise = index == 3 || index == 6;
        const std::string name = prefix + std::to_string(index);
        layout.add(name + ".weight",
                   isPointwise ? TensorShape{1, 1, channels, channels} : TensorShape{3, 3, 1, channels}, 4, false);
        layout.add(name + ".bias", {1, 1, channels, 1}, 4, false);
    }
    layout.matrix("encoder.pre_encode.out.weight", channels * p.subsampledBands(), p.stateSize);
    layout.vector("encoder.pre_encode.out.bias", p.stateSize);
}

void addFeedForward(LayoutBuilder& layout, const std::string& prefix, const char* name, const EncoderParameters& p,
                    std::int64_t inner)
{
    layout.norm(prefix + "norm_" + name, p.stateSize);
    layout.linear(prefix + name + ".linear1", p.stateSize, inner, p.hasBiases);
    layout.linear(prefix + name + ".linear2", inner, p.stateSize, p.hasBiases);
}

void addConvolution(LayoutBuilder& layout, const std::string& prefix, const EncoderParameters& p)
{
    const std::int64_t width = p.stateSize;
    layout.norm(prefix + "norm_conv", width);
    layout.linear(prefix + "conv.pointwise_conv1", width, 2 * width, p.hasBiases);
    layout.add(prefix + "conv.depthwise_conv.weight", {p.convolutionKernel, width, 1, 1}, 2, false);
    if (p.hasBiases)
        layout.vector(prefix + "conv.depthwise_conv.bias", width);
    layout.norm(prefix + "conv.batch_norm", width);
    layout.vector(prefix + "conv.batch_norm.running_mean", width);
    layout.vector(prefix + "conv.batch_norm.running_var", width);
    layout.linear(prefix + "conv.pointwise_conv2", width, width, p.hasBiases);
}

void addLayer(LayoutBuilder& layout, std::int32_t layer, const EncoderParameters& p, std::int64_t feedForwardSize)
{
    const std::string prefix = layerPrefix(layer);
    const std::int64_t width = p.stateSize;
    addFeedForward(layout, prefix, "feed_forward1", p, feedForwardSize);
    layout.norm(prefix + "norm_self_att", width);
    for (const char* bias : {"self_attn.pos_bias_u", "self_attn.pos_bias_v"})
        layout.add(prefix + bias, {p.headSize(), p.headCount, 1, 1}, 2, false);
    for (const std::string matrix : {"q", "k", "v", "out", "pos"})
        layout.linear(prefix + "self_attn.linear_" + matrix, width, width, p.hasBiases && matrix != "pos");
    addConvolution(layout, prefix, p);
    addFeedForward(layout, prefix, "feed_forward2", p, feedForwardSize);
    layout.norm(prefix + "norm_out", width);
}

void addEncoder(LayoutBuilder& layout, const EncoderParameters& p, std::int64_t feedForwardSize)
{
    addSubsampling(layout, p);
    for (std::int32_t layer = 0; layer < p.layerCount; ++layer)
        addLayer(layout, layer, p, feedForwardSize);
}

void addTransducer(LayoutBuilder& layout, const Hyperparameters& p, std::int64_t jointSize)
{
    const std::int64_t size = p.predictionSize;
    layout.matrix("decoder.prediction.embed.weight", size, p.vocabularySize + 1);
    for (std::int32_t layer = 0; layer < p.predictionLayers; ++layer) {
        const std::string suffix = std::to_string(layer);
        layout.matrix("decoder.prediction.dec_rnn.lstm.weight_ih_l" + suffix, size, 4 * size);
        layout.matrix("decoder.prediction.dec_rnn.lstm.weight_hh_l" + suffix, size, 4 * size);
        layout.vector("decoder.prediction.dec_rnn.lstm.bias_h_l" + suffix, 4 * size);
    }
    layout.matrix("joint.pred.weight", size, jointSize);
    layout.vector("joint.pred.bias", jointSize);
    layout.matrix("joint.enc.weight", p.stateSize, jointSize);
    layout.vector("joint.enc.bias", jointSize);
    layout.matrix("joint.joint_net.2.weight", jointSize, p.jointOutputs());
    layout.vector("joint.joint_net.2.bias", p.jointOutputs());
}

} // namespace

const char* const feedForwardSizeTensor = "encoder.layers.0.feed_forward1.linear1.weight";
const char* const jointSizeTensor = "joint.enc.bias";

void EncoderParameters::validate() const
{
    require(inRange(vocabularySize, 1, 1 << 20), "vocabulary size");
    require(inRange(stateSize, 1, 1 << 14), "encoder width");
    require(inRange(headCount, 1, 256) && stateSize % headCount == 0, "number of heads");
    require(stateSize % 2 == 0, "encoder width"); // half sines, half cosines
    require(inRange(layerCount, 1, 256), "number of layers");
    require(inRange(melBands, 8, 1024), "number of mel bands");
    require(inRange(fftSize, 16, 1 << 14) && std::has_single_bit(static_cast<std::uint32_t>(fftSize)), "FFT size");
    require(subsamplingFactor == 8, "subsampling factor");
    require(inRange(subsamplingChannels, 1, 4096), "number of subsampling channels");
    require(inRange(convolutionKernel, 1, 255) && convolutionKernel % 2 == 1, "convolution kernel");
    require(batchEpsilon >= 0 && batchEpsilon <= 0.1F, "epsilon");
}

void Hyperparameters::validate() const
{
    EncoderParameters::validate();
    require(inRange(audioContext, 8, 1 << 24), "audio context");
    require(inRange(fileType % 1000, 0, 64), "file type");
    require(inRange(predictionSize, 1, 1 << 14), "prediction size");
    require(inRange(predictionLayers, 1, 16), "number of prediction layers");
    require(inRange(durationCount, 1, 64), "number of durations");
    require(inRange(maxSymbolsPerStep, 1, 1000), "symbol limit");
}

std::int32_t EncoderParameters::subsampledBands() const
{
    std::int32_t bands = melBands;
    for (int halving = 0; halving < 3; ++halving)
        bands = (bands + 1) / 2;
    return bands;
}

std::vector<TensorLayout> modelLayout(const Hyperparameters& parameters, std::int64_t feedForwardSize,
                                      std::int64_t jointSize)
{
    LayoutBuilder layout;
    addEncoder(layout, parameters, feedForwardSize);
    addTransducer(layout, parameters, jointSize);
    return std::move(layout.tensors);
}

std::vector<TensorLayout> ctcLayout(const EncoderParameters& parameters, std::int64_t feedForwardSize,
                                    std::int64_t windowSize)
{
    LayoutBuilder layout;
    layout.add("preprocessor.fb", {parameters.frequencyBins(), parameters.melBands, 1, 1}, 2, false);
    layout.vector("preprocessor.window", windowSize);
    addEncoder(layout, parameters, feedForwardSize);
    layout.linear("ctc_decoder", parameters.stateSize, parameters.vocabularySize + 1, true);
    return std::move(layout.tensors);
}

std::string layerPrefix(std::int32_t layer)
{
    return "encoder.layers." + std::to_string(layer) + ".";
}

} // namespace vantro::asr
