#include "asr/EncoderLayer.h"

#include "asr/ModelSource.h"
#include "asr/Weights.h"
#include "asr/kernels/Kernels.h"

#include <cmath>
#include <string>

namespace vantro::asr {

namespace {

constexpr float normEpsilon = 1e-5F;

LayerNorm readNorm(const ModelSource& file, Weights& weights, const std::string& name)
{
    return {weights.tensor(file, name + ".weight"), weights.tensor(file, name + ".bias")};
}

Linear readLinear(const ModelSource& file, Weights& weights, const std::string& name)
{
    return weights.linear(file, name + ".weight", file.encoderParameters().hasBiases ? name + ".bias" : std::string());
}

/// Folds the batch normalisation after the convolution, a scale and shift per channel, into the taps.
std::unique_ptr<EncoderLayer::Depthwise> readDepthwise(const ModelSource& file, const Weights& weights,
                                                       const std::string& prefix)
{
    const std::vector<float> stored = file.readFloats(prefix + "depthwise_conv.weight"); // [channel][tap]
    const std::vector<float> gamma = file.readFloats(prefix + "batch_norm.weight");
    const std::vector<float> mean = file.readFloats(prefix + "batch_norm.running_mean");
    const std::vector<float> variance = file.readFloats(prefix + "batch_norm.running_var");
    auto result = std::make_unique<EncoderLayer::Depthwise>();
    result->kernels = &kernels::best(weights.cap());
    result->bias = file.readFloats(prefix + "batch_norm.bias");
    result->taps.resize(stored.size());
    const EncoderParameters& parameters = file.encoderParameters();
    const std::size_t channels = gamma.size();
    const std::vector<float> shift =
        parameters.hasBiases ? file.readFloats(prefix + "depthwise_conv.bias") : std::vector<float>(channels);
    result->size = stored.size() / channels;
    for (std::size_t channel = 0; channel < channels; ++channel) {
        const float scale = gamma[channel] / std::sqrt(variance[channel] + parameters.batchEpsilon);
        result->bias[channel] += (shift[channel] - mean[channel]) * scale;
        for (std::size_t tap = 0; tap < result->size; ++tap)
            result->taps[tap * channels + channel] = stored[channel * result->size + tap] * scale;
    }
    return result;
}

void runGatedConvolution(ggml_tensor* result, int thread, int threads, void* userData)
{
    const auto& depthwise = *static_cast<const EncoderLayer::Depthwise*>(userData);
    depthwise.kernels->gatedConvolution(
        static_cast<const float*>(result->src[0]->data), static_cast<std::size_t>(result->ne[1]),
        {depthwise.taps.data(), depthwise.bias.data(), depthwise.bias.size(), depthwise.size},
        static_cast<float*>(result->data), {static_cast<std::size_t>(thread), static_cast<std::size_t>(threads)});
}

/// Views [state size, frames] as [head size, frames, heads].
ggml_tensor* byHead(ggml_context* context, ggml_tensor* tensor, std::int64_t heads)
{
    ggml_tensor* split = ggml_reshape_3d(context, tensor, tensor->ne[0] / heads, heads, tensor->ne[1]);
    return ggml_permute(context, split, 0, 2, 1, 3);
}

/// Row i of @p scores has one column per distance, from frames - 1 down, so frame 0 is in column frames - 1 - i. A view
/// with rows one element shorter aligns the frames in columns.
ggml_tensor* aligned(ggml_context* context, ggml_tensor* scores, std::int64_t frames)
{
    const std::size_t element = ggml_element_size(scores);
    return ggml_view_3d(context, scores, frames, frames, scores->ne[2], scores->nb[1] - element, scores->nb[2],
                        static_cast<std::size_t>(frames - 1) * element);
}

} // namespace

ggml_tensor* LayerNorm::apply(ggml_context* context, ggml_tensor* input) const
{
    ggml_tensor* scaled = ggml_mul_inplace(context, ggml_norm(context, input, normEpsilon), weight);
    return ggml_add_inplace(context, scaled, bias);
}

EncoderLayer::FeedForward EncoderLayer::readFeedForward(const ModelSource& file, Weights& weights,
                                                        const std::string& prefix, const std::string& name)
{
    return {readNorm(file, weights, prefix + "norm_" + name), readLinear(file, weights, prefix + name + ".linear1"),
            readLinear(file, weights, prefix + name + ".linear2")};
}

EncoderLayer::EncoderLayer(const ModelSource& file, Weights& weights, std::int32_t layer)
    : heads_(file.encoderParameters().headCount)
{
    const std::string prefix = layerPrefix(layer);
    const auto linear = [&](const char* name) {
        return readLinear(file, weights, prefix + name);
    };
    feedForward1_ = readFeedForward(file, weights, prefix, "feed_forward1");
    normAttention_ = readNorm(file, weights, prefix + "norm_self_att");
    query_ = linear("self_attn.linear_q");
    key_ = linear("self_attn.linear_k");
    value_ = linear("self_attn.linear_v");
    attentionOut_ = linear("self_attn.linear_out");
    position_ = weights.linear(file, prefix + "self_attn.linear_pos.weight");
    contentBias_ = weights.tensor(file, prefix + "self_attn.pos_bias_u");
    positionBias_ = weights.tensor(file, prefix + "self_attn.pos_bias_v");
    normConvolution_ = readNorm(file, weights, prefix + "norm_conv");
    pointwise1_ = linear("conv.pointwise_conv1");
    depthwise_ = readDepthwise(file, weights, prefix + "conv.");
    pointwise2_ = linear("conv.pointwise_conv2");
    feedForward2_ = readFeedForward(file, weights, prefix, "feed_forward2");
    normOut_ = readNorm(file, weights, prefix + "norm_out");
}

ggml_tensor* EncoderLayer::build(ggml_context* context, ggml_tensor* x, ggml_tensor* positions) const
{
    x = feedForward(context, feedForward1_, x);
    x = ggml_add(context, x, attention(context, normAttention_.apply(context, x), positions));
    x = ggml_add(context, x, convolution(context, normConvolution_.apply(context, x)));
    x = feedForward(context, feedForward2_, x);
    return normOut_.apply(context, x);
}

ggml_tensor* EncoderLayer::feedForward(ggml_context* context, const FeedForward& module, ggml_tensor* x)
{
    ggml_tensor* inner = module.expand.apply(context, module.norm.apply(context, x));
    ggml_tensor* outer = module.reduce.apply(context, ggml_silu_inplace(context, inner));
    return ggml_add(context, x, ggml_scale_inplace(context, outer, 0.5F));
}

ggml_tensor* EncoderLayer::attention(ggml_context* context, ggml_tensor* x, ggml_tensor* positions) const
{
    const std::int64_t frames = x->ne[1];
    const std::int64_t headSize = x->ne[0] / heads_;
    Activations heard(context, x);
    ggml_tensor* query = ggml_reshape_3d(context, query_.apply(heard), headSize, heads_, frames);
    const auto biased = [&](ggml_tensor* bias) {
        return ggml_cont(context, ggml_permute(context, ggml_add(context, query, bias), 0, 2, 1, 3));
    };
    ggml_tensor* key = byHead(context, key_.apply(heard), heads_);
    ggml_tensor* value = value_.apply(heard);
    ggml_tensor* place = byHead(context, positions, heads_);

    ggml_tensor* content = ggml_mul_mat(context, key, biased(contentBias_));
    ggml_tensor* distance = ggml_mul_mat(context, place, biased(positionBias_));
    ggml_tensor* scores = ggml_add_inplace(context, content, aligned(context, distance, frames));
    ggml_tensor* shares =
        ggml_soft_max_ext(context, scores, nullptr, 1.0F / std::sqrt(static_cast<float>(headSize)), 0.0F);

    ggml_tensor* valueByHead = ggml_reshape_3d(context, value, headSize, heads_, frames);
    ggml_tensor* columns = ggml_cont(context, ggml_permute(context, valueByHead, 1, 2, 0, 3));
    ggml_tensor* mixed = ggml_mul_mat(context, columns, shares);
    ggml_tensor* joined = ggml_cont(context, ggml_permute(context, mixed, 0, 2, 1, 3));
    return attentionOut_.apply(context, ggml_reshape_2d(context, joined, x->ne[0], frames));
}

ggml_tensor* EncoderLayer::convolution(ggml_context* context, ggml_tensor* x) const
{
    ggml_tensor* gated = pointwise1_.apply(context, x);
    ggml_tensor* convolved = ggml_custom_4d(context, GGML_TYPE_F32, x->ne[0], x->ne[1], 1, 1, &gated, 1,
                                            runGatedConvolution, GGML_N_TASKS_MAX, depthwise_.get());
    return pointwise2_.apply(context, convolved);
}

} // namespace vantro::asr
