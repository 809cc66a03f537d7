#pragma once

#include <cstddef>

/// Inner loops for which ggml has no fast operation, compiled once per instruction-set level; active() returns the best
/// set for this processor. Every function does one thread's share of the work.
namespace vantro::asr::kernels {

struct Share
{
    std::size_t thread = 0;
    std::size_t threads = 1;
};

/// [row][column][channel]: rows are time, columns are frequency bands.
struct Map
{
    float* values = nullptr;
    std::size_t rows = 0;
    std::size_t columns = 0;
};

/// A 3x3 convolution per channel, with stride 2 and zero padding. taps: [time * 3 + band][channel].
struct Convolution
{
    const float* taps = nullptr;
    const float* bias = nullptr;
    std::size_t channels = 0;
};

/// A convolution in time per channel, with @p size taps [tap][channel] centred on the frame and one bias per channel.
struct TimeConvolution
{
    const float* taps = nullptr;
    const float* bias = nullptr;
    std::size_t channels = 0;
    std::size_t size = 0;
};

struct Kernels
{
    /// A convolution from one channel to many with ReLU, followed by a depthwise one.
    void (*subsampleTwice)(const Map& source, const Convolution& first, const Convolution& second, const Map& result,
                           Share share);
    void (*subsample)(const Map& source, const Convolution& convolution, const Map& result, Share share);
    /// The middle of a convolution module. @p source: [frame][2 * channels], values followed by their gates. Each frame
    /// of @p result [frame][channels] is swish(convolution(value * sigmoid(gate))).
    void (*gatedConvolution)(const float* source, std::size_t frames, const TimeConvolution& convolution, float* result,
                             Share share);
};

const Kernels& active();

} // namespace vantro::asr::kernels
