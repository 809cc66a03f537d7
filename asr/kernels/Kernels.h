#pragma once

#include <cstddef>

/// Inner loops for which ggml has no fast operation, compiled once per instruction-set level. Every function does one
/// thread's share of the work.
namespace vantro::asr::kernels {

/// Instruction sets that something is compiled for, the preferred ones last. None implies another.
enum class Level {
    baseline,
    avx2,       ///< with FMA and F16C
    avxVnni,    ///< the same and 8-bit dot products
    avx512,     ///< F, BW, DQ and VL
    avx512Vnni, ///< the same and 8-bit dot products
    avx512Bf16, ///< AVX-512 and dot products of bfloat16
    dotProduct, ///< arm64's, of bytes
    i8mm,       ///< arm64's matrix products of bytes
};
inline constexpr Level levels[] = {Level::baseline,   Level::avx2,       Level::avxVnni,    Level::avx512,
                                   Level::avx512Vnni, Level::avx512Bf16, Level::dotProduct, Level::i8mm};
inline constexpr Level highestLevel = Level::i8mm;

/// Whether this processor has it.
bool isSupported(Level level);

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

/// The best set for this processor up to @p cap.
const Kernels& best(Level cap = highestLevel);

} // namespace vantro::asr::kernels
