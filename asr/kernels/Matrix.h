#pragma once

#include "asr/kernels/Kernels.h"

#include <cstddef>
#include <cstdint>

/// Products of a weight matrix with many columns of activations, for processors whose dot-product instructions ggml
/// does not fully use. The matrix is packed once on loading and the activations before each product, so that the inner
/// loop accesses memory sequentially.
namespace vantro::asr::kernels {

enum class MatrixFormat {
    none,     ///< leave the matrix to ggml
    bfloat16, ///< for float16 files
    float16,  ///< used from the file; packed as bfloat16 in the cache on each use
    int8,     ///< for q8_0 files: blocks of 32 weights with one scale
    q8,       ///< used from q8_0 files; packed as int8 on each use
    q5,       ///< the same for q5_0 files
    q4,       ///< the same for q4_0 files
};

/// Outputs per panel of a packed matrix.
inline constexpr std::size_t panelOutputs = 32;

/// A format's functions. Matrices are [output][input], activations [column][input], results [column][output]; the
/// number of inputs is a multiple of 32.
struct MatrixKernels
{
    std::size_t (*matrixBytes)(std::size_t inputs, std::size_t outputs);
    /// Null if the matrix is used from the file. @p source: the stored matrix. It can be packed in pieces of whole
    /// panels: the piece that starts at output n goes to matrixBytes(inputs, n).
    void (*packMatrix)(const void* source, std::size_t inputs, std::size_t outputs, void* target);
    std::size_t (*activationBytes)(std::size_t inputs, std::size_t columns);
    void (*packActivations)(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share);
    /// @p bias may be null.
    void (*multiply)(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations,
                     std::size_t columns, const float* bias, float* result, Share share);
};

/// The best up to @p cap that this processor has; null if it has none.
const MatrixKernels* matrixKernels(MatrixFormat format, Level cap = highestLevel);

} // namespace vantro::asr::kernels
