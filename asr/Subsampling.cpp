#include "asr/Subsampling.h"

#include "asr/ModelSource.h"
#include "asr/Weights.h"
#include "asr/kernels/Kernels.h"

#include <string>

namespace vantro::asr {

namespace {

constexpr std::size_t tapCount = 9;

std::int64_t halved(std::int64_t extent)
{
    return (extent + 1) / 2; // stride 2, kernel 3, one zero on each side
}

std::string convolution(int index)
{
    return "encoder.pre_encode.conv." + std::to_string(index);
}

Subsampling::Depthwise readDepthwise(const ModelSource& file, const Weights& weights, int index)
{
    const std::vector<float> stored = file.readFloats(convolution(index) + ".weight"); // [channel][tap]
    Subsampling::Depthwise result{std::vector<float>(stored.size()), file.readFloats(convolution(index) + ".bias"),
                                  &kernels::best(weights.cap())};
    const std::size_t channels = result.bias.size();
    for (std::size_t channel = 0; channel < channels; ++channel) {
        for (std::size_t tap = 0; tap < tapCount; ++tap)
            result.taps[tap * channels + channel] = stored[channel * tapCount + tap];
    }
    return result;
}

kernels::Convolution kernelArguments(const Subsampling::Depthwise& convolution)
{
    return {convolution.taps.data(), convolution.bias.data(), convolution.bias.size()};
}

kernels::Map map(const ggml_tensor* tensor)
{
    return {static_cast<float*>(tensor->data), static_cast<std::size_t>(tensor->ne[2]),
            static_cast<std::size_t>(tensor->ne[1])};
}

void runFront(ggml_tensor* result, int thread, int threads, void* userData)
{
    const auto& front = *static_cast<const Subsampling::Front*>(userData);
    const ggml_tensor* mel = result->src[0];
    const kernels::Map source{static_cast<float*>(mel->data), static_cast<std::size_t>(mel->ne[1]),
                              static_cast<std::size_t>(mel->ne[0])};
    front.second.kernels->subsampleTwice(source, kernelArguments(front.first), kernelArguments(front.second),
                                         map(result),
                                         {static_cast<std::size_t>(thread), static_cast<std::size_t>(threads)});
}

void runDepthwise(ggml_tensor* result, int thread, int threads, void* userData)
{
    const auto& convolution = *static_cast<const Subsampling::Depthwise*>(userData);
    convolution.kernels->subsample(map(result->src[0]), kernelArguments(convolution), map(result),
                                   {static_cast<std::size_t>(thread), static_cast<std::size_t>(threads)});
}

/// Applies a matrix to the channels of each point of [channels, bands, frames].
ggml_tensor* pointwise(ggml_context* context, const Linear& linear, ggml_tensor* input)
{
    ggml_tensor* points = ggml_reshape_2d(context, input, input->ne[0], input->ne[1] * input->ne[2]);
    ggml_tensor* product = ggml_relu_inplace(context, linear.apply(context, points));
    return ggml_reshape_3d(context, product, product->ne[0], input->ne[1], input->ne[2]);
}

} // namespace

Subsampling::Subsampling(const ModelSource& file, Weights& weights)
    : channels_(file.encoderParameters().subsamplingChannels)
{
    front_->first = readDepthwise(file, weights, 0);
    front_->second = readDepthwise(file, weights, 2);
    *third_ = readDepthwise(file, weights, 5);
    const auto readPointwise = [&](int index) {
        return Linear{.weight = weights.values(file.readFloats(convolution(index) + ".weight"), channels_, channels_),
                      .bias = weights.values(file.readFloats(convolution(index) + ".bias"), channels_)};
    };
    pointwise1_ = readPointwise(3);
    pointwise2_ = readPointwise(6);
    out_ = weights.linear(file, "encoder.pre_encode.out.weight", "encoder.pre_encode.out.bias");
}

std::int64_t Subsampling::encoderFrames(std::int64_t melFrames)
{
    return halved(halved(halved(melFrames)));
}

ggml_tensor* Subsampling::build(ggml_context* context, ggml_tensor* mel) const
{
    const std::int64_t quarterBands = halved(halved(mel->ne[0]));
    const std::int64_t quarterFrames = halved(halved(mel->ne[1]));
    ggml_tensor* quarter = ggml_custom_4d(context, GGML_TYPE_F32, channels_, quarterBands, quarterFrames, 1, &mel, 1,
                                          runFront, GGML_N_TASKS_MAX, front_.get());
    quarter = pointwise(context, pointwise1_, quarter);
    ggml_tensor* eighth = ggml_custom_4d(context, GGML_TYPE_F32, channels_, halved(quarterBands), halved(quarterFrames),
                                         1, &quarter, 1, runDepthwise, GGML_N_TASKS_MAX, third_.get());
    eighth = pointwise(context, pointwise2_, eighth);
    // The projection's inputs are ordered by channel, then band.
    ggml_tensor* flat = ggml_cont(context, ggml_permute(context, eighth, 1, 0, 2, 3));
    flat = ggml_reshape_2d(context, flat, eighth->ne[0] * eighth->ne[1], eighth->ne[2]);
    return out_.apply(context, flat);
}

} // namespace vantro::asr
