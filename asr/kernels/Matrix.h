#pragma once

#include "asr/kernels/Kernels.h"

#include <cstddef>
#include <cstdint>

/// Products of a weight matrix with many columns of activations, for processors whose dot-product instructions ggml
/// does not use to the full. The matrix is rearranged once, when the model is loaded, and the activations before every
/// product, so that the inner loop reads memory in the order in which it computes.
namespace vantro::asr::kernels {

enum class MatrixFormat {
    none,     ///< leave the matrix to ggml
    bfloat16, ///< for float16 files
    float16,  ///< as in the file: rearranged as bfloat16 whenever it is used, in the processor's cache
    int8,     ///< for q8_0 files: blocks of 32 weights with one scale, as in the file
    q8,       ///< as in the file: rearranged as int8 whenever it is used
    q5,       ///< the same for q5_0 files
    q4,       ///< the same for q4_0 files
};

/// Outputs whose rows lie together in a packed matrix.
inline constexpr std::size_t panelOutputs = 32;

/// A format's functions. Matrices are [output][input], activations [column][input], results [column][output]; numbers
/// of inputs are multiples of 32.
struct MatrixKernels
{
    std::size_t (*matrixBytes)(std::size_t inputs, std::size_t outputs);
    /// Null when the matrix is used as it stands in the file. @p source: the matrix as it stands there. A matrix can be
    /// packed in pieces of whole panels: the piece that begins with output n goes to matrixBytes(inputs, n).
    void (*packMatrix)(const void* source, std::size_t inputs, std::size_t outputs, void* target);
    std::size_t (*activationBytes)(std::size_t inputs, std::size_t columns);
    void (*packActivations)(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share);
    /// @p bias may be null.
    void (*multiply)(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations,
                     std::size_t columns, const float* bias, float* result, Share share);
};

/// Null for formats that this processor has no instructions for.
const MatrixKernels* matrixKernels(MatrixFormat format);

} // namespace vantro::asr::kernels
