#pragma once

#include "asr/kernels/Kernels.h"
#include "asr/kernels/Matrix.h"
#include "asr/kernels/Rows.h"

#include <cstddef>
#include <cstdint>

struct ggml_tensor;

/// What the accelerator computes: a transformer's encoder, which is to say operations on many columns at once, and the
/// decoder beside it.
namespace vantro::asr {

/// What is taken from ggml.
struct Scope
{
    kernels::Level cap = kernels::highestLevel;
    bool hasFewRows = false; ///< operations on a few rows, with float16 matrices: a decoder
};

/// Whether GraphExecution computes @p operation.
bool isAccelerated(const ggml_tensor& operation, const Scope& scope);

/// Fewer are multiplied as they are; packing them costs more than it gains.
inline constexpr std::int64_t fewRows = 32;

/// A node that is computed by doing nothing.
bool isNothing(const ggml_tensor& node);

/// For products with @p matrix; null if they are left to ggml.
const kernels::MatrixKernels* productKernels(const ggml_tensor& matrix, kernels::Level cap);

/// What GGML_OP_IM2COL does before a convolution.
struct Unfolding
{
    explicit Unfolding(const ggml_tensor& operation);

    kernels::Unfolding shape;
    std::size_t dilation = 0;
    bool isInTwoDimensions = false;
};

// The second operand of an addition or a multiplication:
bool isRow(const ggml_tensor& operand, const ggml_tensor& first);    ///< one row, for all of the first
bool isColumn(const ggml_tensor& operand, const ggml_tensor& first); ///< one value for each row of the first
bool isEqual(const ggml_tensor& operand, const ggml_tensor& first);  ///< as many values

} // namespace vantro::asr
