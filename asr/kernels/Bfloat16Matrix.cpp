// Compiled for AVX-512 with BF16; like KernelsVariant.cpp, it must not share inline functions with other files.
//
// Matrix layout: panels of 32 outputs; within a panel, for each pair of inputs, the pair of each output. Activations:
// panels of 12 columns, laid out alike. One vdpbf16ps adds two products to each of 16 float32 sums.
#include "asr/kernels/Bfloat16Panels.h"
#include "asr/kernels/Levels.h"
#include "asr/kernels/Matrix.h"

#include <immintrin.h>

#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t panelColumns = 12;
constexpr std::size_t storedInputs = 256; ///< per block, which takes 16 KiB

std::size_t panels(std::size_t count, std::size_t size)
{
    return (count + size - 1) / size;
}

std::size_t matrixBytes(std::size_t inputs, std::size_t outputs)
{
    return panels(outputs, panelOutputs) * panelOutputs * inputs * sizeof(std::uint16_t);
}

/// Writes 16 pairs of inputs, @p stride pairs apart.
void scatter(__m512 low, __m512 high, std::uint32_t* target, std::size_t stride)
{
    std::uint32_t pairs[lanes];
    const __m512bh rounded = _mm512_cvtne2ps_pbh(high, low);
    std::memcpy(pairs, &rounded, sizeof pairs);
    for (std::size_t i = 0; i < lanes; ++i)
        target[i * stride] = pairs[i];
}

/// The rows of the panel that starts at @p output.
Rows panelRows(const void* matrix, std::size_t inputs, std::size_t outputs, std::size_t output)
{
    const std::size_t rowBytes = inputs * sizeof(std::uint16_t);
    const std::size_t left = outputs - output;
    return {static_cast<const unsigned char*>(matrix) + output * rowBytes, rowBytes,
            left < panelOutputs ? left : panelOutputs};
}

void packMatrix(const void* source, std::size_t inputs, std::size_t outputs, void* target)
{
    for (std::size_t output = 0; output < outputs; output += panelOutputs)
        packPanel(panelRows(source, inputs, outputs, output), inputs,
                  static_cast<std::uint32_t*>(target) + output * inputs / 2);
}

std::size_t activationBytes(std::size_t inputs, std::size_t columns)
{
    return panels(columns, panelColumns) * panelColumns * inputs * sizeof(std::uint16_t);
}

void packActivations(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share)
{
    const std::size_t count = panels(columns, panelColumns);
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        auto* panel = static_cast<std::uint32_t*>(target) + p * panelColumns * inputs / 2;
        for (std::size_t c = 0; c < panelColumns; ++c) {
            const std::size_t column = p * panelColumns + c;
            const float* values = source + (column < columns ? column : 0) * inputs;
            for (std::size_t input = 0; input < inputs; input += 2 * lanes)
                scatter(_mm512_loadu_ps(values + input), _mm512_loadu_ps(values + input + lanes),
                        panel + input / 2 * panelColumns + c, panelColumns);
        }
    }
}

__mmask16 maskFor(std::size_t output, std::size_t outputs)
{
    const std::size_t left = output < outputs ? outputs - output : 0;
    return static_cast<__mmask16>(left >= lanes ? 0xFFFF : (1U << left) - 1);
}

/// The initial sum of a partial product; zero if @p result is null.
__m512 begunSum(const float* result, std::size_t output, std::size_t outputs)
{
    return result != nullptr ? _mm512_maskz_loadu_ps(maskFor(output, outputs), result + output) : _mm512_setzero_ps();
}

void store(__m512 sum, const float* bias, float* target, std::size_t output, std::size_t outputs)
{
    const __mmask16 mask = maskFor(output, outputs);
    if (bias != nullptr)
        sum = _mm512_add_ps(sum, _mm512_maskz_loadu_ps(mask, bias + output));
    _mm512_mask_storeu_ps(target + output, mask, sum);
}

/// Columns packed by packActivations().
struct Activations
{
    const std::uint16_t* values;
    std::size_t inputs;
    std::size_t columns;
};

struct Product
{
    std::size_t inputs;
    std::size_t outputs;
    const float* bias;
    float* result;
    bool isContinued = false; ///< adds to the sums in result
};

/// Multiplies @p Columns columns of a panel by a panel of the matrix, over product.inputs inputs.
template <std::size_t Columns>
void multiplyPanels(const Product& product, const std::uint16_t* matrix, std::size_t output,
                    const std::uint16_t* activations, std::size_t column)
{
    __m512 sums[Columns][2];
    for (std::size_t c = 0; c < Columns; ++c) {
        const float* begun = product.isContinued ? product.result + (column + c) * product.outputs : nullptr;
        sums[c][0] = begunSum(begun, output, product.outputs);
        sums[c][1] = begunSum(begun, output + lanes, product.outputs);
    }
    for (std::size_t pair = 0; pair < product.inputs / 2; ++pair) {
        const auto first = (__m512bh)_mm512_loadu_si512(matrix + pair * 2 * panelOutputs);
        const auto second = (__m512bh)_mm512_loadu_si512(matrix + pair * 2 * panelOutputs + 2 * lanes);
#pragma GCC unroll 12
        for (std::size_t c = 0; c < Columns; ++c) {
            std::int32_t bits = 0;
            std::memcpy(&bits, activations + (pair * panelColumns + c) * 2, sizeof bits);
            const auto value = (__m512bh)_mm512_set1_epi32(bits);
            sums[c][0] = _mm512_dpbf16_ps(sums[c][0], first, value);
            sums[c][1] = _mm512_dpbf16_ps(sums[c][1], second, value);
        }
    }
    for (std::size_t c = 0; c < Columns; ++c) {
        float* target = product.result + (column + c) * product.outputs;
        store(sums[c][0], product.bias, target, output, product.outputs);
        store(sums[c][1], product.bias, target, output + lanes, product.outputs);
    }
}

using PanelFunction = void (*)(const Product&, const std::uint16_t*, std::size_t, const std::uint16_t*, std::size_t);

constexpr PanelFunction panelFunctions[panelColumns] = {multiplyPanels<1>,  multiplyPanels<2>,  multiplyPanels<3>,
                                                        multiplyPanels<4>,  multiplyPanels<5>,  multiplyPanels<6>,
                                                        multiplyPanels<7>,  multiplyPanels<8>,  multiplyPanels<9>,
                                                        multiplyPanels<10>, multiplyPanels<11>, multiplyPanels<12>};

/// Multiplies all columns by a panel of the matrix whose inputs start at @p skipped.
void multiplyColumns(const Product& product, const std::uint16_t* weights, std::size_t output,
                     const Activations& activations, std::size_t skipped)
{
    for (std::size_t column = 0; column < activations.columns; column += panelColumns) {
        const std::size_t left = activations.columns - column;
        panelFunctions[(left < panelColumns ? left : panelColumns) - 1](
            product, weights, output, activations.values + column * activations.inputs + skipped * panelColumns,
            column);
    }
}

void multiply(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations, std::size_t columns,
              const float* bias, float* result, Share share)
{
    const Product product{inputs, outputs, bias, result};
    const std::size_t count = panels(outputs, panelOutputs);
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p)
        multiplyColumns(product, static_cast<const std::uint16_t*>(matrix) + p * panelOutputs * inputs,
                        p * panelOutputs, {static_cast<const std::uint16_t*>(activations), inputs, columns}, 0);
}

/// Prefetches the next block while this one is multiplied.
void prefetch(const Rows& rows, std::size_t inputs)
{
    constexpr std::size_t line = 64;
    if (inputs > storedInputs)
        inputs = storedInputs;
    for (std::size_t i = 0; i < rows.count; ++i) {
        for (std::size_t byte = 0; byte < inputs * sizeof(std::uint16_t); byte += line)
            _mm_prefetch(rows.first + i * rows.rowBytes + byte, _MM_HINT_T1);
    }
}

/// Multiplies by the matrix as stored in the file: packs one block of a panel at a time into the cache and uses it for
/// all columns.
void multiplyStored(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations,
                    std::size_t columns, const float* bias, float* result, Share share)
{
    alignas(64) std::uint32_t block[storedInputs / 2 * panelOutputs];
    const Activations values{static_cast<const std::uint16_t*>(activations), inputs, columns};
    const std::size_t count = panels(outputs, panelOutputs);
    const std::size_t end = count * (share.thread + 1) / share.threads;
    for (std::size_t p = count * share.thread / share.threads; p < end; ++p) {
        const Rows rows = panelRows(matrix, inputs, outputs, p * panelOutputs);
        for (std::size_t first = 0; first < inputs; first += storedInputs) {
            const std::size_t used = inputs - first < storedInputs ? inputs - first : storedInputs;
            packPanel(rows.from(first), used, block);
            if (first + used < inputs)
                prefetch(rows.from(first + used), inputs - first - used);
            else if (p + 1 < end)
                prefetch(panelRows(matrix, inputs, outputs, (p + 1) * panelOutputs), inputs);
            multiplyColumns({used, outputs, first + used == inputs ? bias : nullptr, result, first > 0},
                            reinterpret_cast<const std::uint16_t*>(block), p * panelOutputs, values, first);
        }
    }
}

std::size_t storedBytes(std::size_t inputs, std::size_t outputs)
{
    return inputs * outputs * sizeof(std::uint16_t);
}

} // namespace

const MatrixKernels& float16Matrices()
{
    static const MatrixKernels kernels{storedBytes, nullptr, activationBytes, packActivations, multiplyStored};
    return kernels;
}

const MatrixKernels& bfloat16Matrices()
{
    static const MatrixKernels kernels{matrixBytes, packMatrix, activationBytes, packActivations, multiply};
    return kernels;
}

} // namespace vantro::asr::kernels
