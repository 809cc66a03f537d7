// Compiled for AVX-512 with BF16: like KernelsVariant.cpp it shares no inline function with other files.
//
// Layout of a matrix: panels of 32 outputs; in a panel, for each pair of inputs, the pair of each output. Activations:
// panels of 12 columns, arranged alike. One vdpbf16ps adds two products to each of 16 float32 sums.
#include "asr/kernels/Levels.h"
#include "asr/kernels/Matrix.h"

#include <immintrin.h>

#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t panelOutputs = 32;
constexpr std::size_t panelColumns = 12;
constexpr std::size_t lanes = 16;

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

void packMatrix(const void* source, std::size_t inputs, std::size_t outputs, void* target)
{
    const auto* rows = static_cast<const std::uint16_t*>(source); // float16
    std::memset(target, 0, matrixBytes(inputs, outputs));
    for (std::size_t output = 0; output < outputs; ++output) {
        auto* panel = static_cast<std::uint32_t*>(target) + output / panelOutputs * panelOutputs * inputs / 2;
        for (std::size_t input = 0; input < inputs; input += 2 * lanes) {
            const auto* halves = reinterpret_cast<const __m256i*>(rows + output * inputs + input);
            scatter(_mm512_cvtph_ps(_mm256_loadu_si256(halves)), _mm512_cvtph_ps(_mm256_loadu_si256(halves + 1)),
                    panel + input / 2 * panelOutputs + output % panelOutputs, panelOutputs);
        }
    }
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

void store(__m512 sum, const float* bias, float* target, std::size_t output, std::size_t outputs)
{
    const std::size_t left = output < outputs ? outputs - output : 0;
    const auto mask = static_cast<__mmask16>(left >= lanes ? 0xFFFF : (1U << left) - 1);
    if (bias != nullptr)
        sum = _mm512_add_ps(sum, _mm512_maskz_loadu_ps(mask, bias + output));
    _mm512_mask_storeu_ps(target + output, mask, sum);
}

struct Product
{
    std::size_t inputs;
    std::size_t outputs;
    const float* bias;
    float* result;
};

/// @p Columns columns of a panel times one panel of the matrix.
template <std::size_t Columns>
void multiplyPanels(const Product& product, const std::uint16_t* matrix, std::size_t output,
                    const std::uint16_t* activations, std::size_t column)
{
    __m512 sums[Columns][2];
    for (auto& sum : sums)
        sum[0] = sum[1] = _mm512_setzero_ps();
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

void multiply(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations, std::size_t columns,
              const float* bias, float* result, Share share)
{
    const Product product{inputs, outputs, bias, result};
    const std::size_t count = panels(outputs, panelOutputs);
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        const auto* weights = static_cast<const std::uint16_t*>(matrix) + p * panelOutputs * inputs;
        for (std::size_t column = 0; column < columns; column += panelColumns) {
            const auto* values = static_cast<const std::uint16_t*>(activations) + column * inputs;
            const std::size_t used = columns - column < panelColumns ? columns - column : panelColumns;
            panelFunctions[used - 1](product, weights, p * panelOutputs, values, column);
        }
    }
}

} // namespace

const MatrixKernels& bfloat16Matrices()
{
    static const MatrixKernels kernels{matrixBytes, packMatrix, activationBytes, packActivations, multiply};
    return kernels;
}

} // namespace vantro::asr::kernels
