#pragma once

#include <cstddef>

/// The inner loops that ggml has no fast operation for. They are compiled once per instruction-set level; active()
/// gives the best set that this processor runs. Every function does the share of one thread of several.
namespace vantro::asr::kernels {

struct Share
{
    std::size_t thread = 0;
    std::size_t threads = 1;
};

/// [row][column][channel]: rows are in time, columns are frequency bands.
struct Map
{
    float* values = nullptr;
    std::size_t rows = 0;
    std::size_t columns = 0;
};

/// A 3x3 convolution of stride 2 with a zero border, per channel. taps: [time * 3 + band][channel].
struct Convolution
{
    const float* taps = nullptr;
    const float* bias = nullptr;
    std::size_t channels = 0;
};

/// A convolution in time, per channel, of @p size taps [tap][channel] centred on the frame; its bias is one per
/// channel.
struct TimeConvolution
{
    const float* taps = nullptr;
    const float* bias = nullptr;
    std::size_t channels = 0;
    std::size_t size = 0;
};

struct Kernels
{
    /// A first convolution from one channel to many with a ReLU, and a second one per channel behind it.
    void (*subsampleTwice)(const Map& source, const Convolution& first, const Convolution& second, const Map& result,
                           Share share);
    void (*subsample)(const Map& source, const Convolution& convolution, const Map& result, Share share);
    /// The middle of a convolution module. @p source: [frame][2 * channels], values and then their gates. Each frame of
    /// @p result [frame][channels] is swish(convolution(value * sigmoid(gate))).
    void (*gatedConvolution)(const float* source, std::size_t frames, const TimeConvolution& convolution, float* result,
                             Share share);
};

const Kernels& active();

} // namespace vantro::asr::kernels
