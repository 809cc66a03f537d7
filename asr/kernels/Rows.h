#pragma once

#include "asr/kernels/Kernels.h"

#include <cstddef>
#include <cstdint>

/// What stands between a transformer's products, on rows of float32, compiled once per instruction-set level.
namespace vantro::asr::kernels {

/// Part of a matrix: rows of @p width values, @p stride apart.
struct Tile
{
    float* values = nullptr;
    std::size_t rows = 0;
    std::size_t width = 0;
    std::size_t stride = 0;
};

/// Of a layer normalisation, whose scale and shift may be null.
struct Normalisation
{
    const float* scale = nullptr;
    const float* shift = nullptr;
    float epsilon = 0;
};

/// What a convolution in time multiplies at each of its frames: [channel][tap] of the source, which is [channel][frame]
/// with zeros around it.
struct Unfolding
{
    const float* source = nullptr;
    std::size_t frames = 0;
    std::size_t channels = 0;
    std::size_t taps = 0; ///< at most mostTaps
    std::size_t stride = 0;
    std::size_t padding = 0; ///< zeros before the first frame
};
inline constexpr std::size_t mostTaps = 8;
inline constexpr std::size_t mostStride = 4;

/// Rows of float16 that are multiplied with a few columns, as they stand in a file.
struct FewColumns
{
    const std::uint16_t* matrix = nullptr; ///< [output][input]
    std::size_t inputs = 0;                ///< a multiple of 32
    std::size_t outputs = 0;
    const float* columns = nullptr; ///< [column][input]
    std::size_t count = 0;
    const float* bias = nullptr; ///< may be null
    float* result = nullptr;     ///< [column][output]
};

/// One query of soft-max attention with a head of 64 values.
struct Query
{
    const float* values = nullptr;
    const std::uint16_t* keys = nullptr; ///< float16, like what follows
    std::size_t keyStride = 0;
    const std::uint16_t* headValues = nullptr;
    std::size_t valueStride = 0;
    std::size_t count = 0;               ///< of keys
    const std::uint16_t* mask = nullptr; ///< added to the scores; may be null
    float scale = 0;
    float* weights = nullptr; ///< room for as many as keys
    float* result = nullptr;
};

struct RowKernels
{
    /// Gaussian error linear units, with the tanh approximation.
    void (*gelu)(const Tile& tile);
    /// @p others: as large, with the same stride.
    void (*add)(const Tile& tile, const float* others);
    void (*normalise)(const float* source, std::size_t size, const Normalisation& normalisation, float* result);
    // Null below AVX2:
    void (*toFloat16)(const float* source, std::size_t count, std::uint16_t* target);
    /// The results @p first to @p end.
    void (*unfold)(const Unfolding& unfolding, std::size_t first, std::size_t end, std::uint16_t* target);
    void (*toFloat32)(const std::uint16_t* source, std::size_t count, float* target);
    // Null but on x86:
    /// The outputs @p first to @p end.
    void (*multiplyFew)(const FewColumns& product, std::size_t first, std::size_t end);
    void (*attend)(const Query& query);
};

/// The best up to @p cap that this processor has.
const RowKernels& rowKernels(Level cap = highestLevel);

const RowKernels& baselineRows();
const RowKernels& avx2Rows();
const RowKernels& avx512Rows();

} // namespace vantro::asr::kernels
