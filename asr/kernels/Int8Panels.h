#pragma once

#include "asr/kernels/Kernels.h"
#include "asr/kernels/Matrix.h"

#include <cstddef>
#include <cstdint>

// Shared by the int8 products. Only for files compiled for AVX-512 with VNNI, because inline functions here may use its
// instructions.
//
// Matrix layout: panels of 32 outputs; within a panel, for each block of 32 inputs, 8 groups of 4 inputs of each
// output, then the outputs' scales. One operand of vpdpbusd is unsigned: weights are stored plus 128, and the excess is
// subtracted through the sum of the activations. Activations: panels of 6 columns, laid out alike, with each column's
// scale and correction after its block.
namespace vantro::asr::kernels::int8 {

inline constexpr std::size_t panelColumns = 6;
inline constexpr std::size_t blockInputs = 32;
inline constexpr std::size_t groups = blockInputs / 4;
/// A q8_0 block: a float16 scale and 32 bytes.
inline constexpr std::size_t storedBlockBytes = sizeof(std::uint16_t) + blockInputs;
inline constexpr std::size_t matrixBlockBytes = panelOutputs * storedBlockBytes;

struct ActivationBlock
{
    std::int8_t values[groups][panelColumns][4];
    float scales[panelColumns];
    std::int32_t corrections[panelColumns];
};

/// Rows of blocks in a file, unaligned.
struct Rows
{
    const unsigned char* first = nullptr;
    std::size_t rowBytes = 0;
    std::size_t count = 0;
    std::size_t blockBytes = storedBlockBytes;

    [[nodiscard]] const unsigned char* at(std::size_t row) const { return first + row * rowBytes; }
    [[nodiscard]] Rows from(std::size_t block) const
    {
        return {first + block * blockBytes, rowBytes, count, blockBytes};
    }
};

/// The rows of the panel that starts at @p output.
Rows panelRows(const void* matrix, std::size_t blocks, std::size_t outputs, std::size_t output,
               std::size_t blockBytes = storedBlockBytes);
/// Packs the first @p blocks of up to 32 rows of q8_0.
void packPanel(const Rows& rows, std::size_t blocks, unsigned char* panel);

/// See MatrixKernels.
std::size_t activationBytes(std::size_t inputs, std::size_t columns);
void packActivations(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share);

/// Columns packed by packActivations().
struct Activations
{
    const ActivationBlock* values;
    std::size_t blocks;
    std::size_t columns;
};

struct Product
{
    std::size_t blocks;
    std::size_t outputs;
    const float* bias;
    float* result;
    bool isContinued = false; ///< adds to the sums in result
};

/// Multiplies all columns by a panel of the matrix whose blocks start at @p skipped.
void multiplyColumns(const Product& product, const unsigned char* weights, std::size_t output,
                     const Activations& activations, std::size_t skipped);

/// The number of panels of @p size for @p count items.
inline std::size_t panels(std::size_t count, std::size_t size)
{
    return (count + size - 1) / size;
}

} // namespace vantro::asr::kernels::int8
