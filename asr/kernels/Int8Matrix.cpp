// Compiled for AVX-512 with VNNI; like KernelsVariant.cpp, it must not share inline functions with other files.
#include "asr/kernels/Int8Panels.h"
#include "asr/kernels/Levels.h"

#include <immintrin.h>

#include <cstring>

namespace vantro::asr::kernels {

using namespace int8;

namespace {

constexpr std::size_t lanes = 16;
constexpr std::int32_t weightOffset = 128;
constexpr std::size_t scalesOffset = panelOutputs * blockInputs;

std::size_t matrixBytes(std::size_t inputs, std::size_t outputs)
{
    return panels(outputs, panelOutputs) * inputs / blockInputs * matrixBlockBytes;
}

/// Packs one output's 32 inputs, interleaved with the panel's other outputs.
void packBlock(const unsigned char* stored, unsigned char* packed, std::size_t place)
{
    std::memcpy(packed + scalesOffset + place * sizeof(std::uint16_t), stored, sizeof(std::uint16_t));
    unsigned char shifted[blockInputs];
    for (std::size_t i = 0; i < blockInputs; ++i)
        shifted[i] = static_cast<unsigned char>(stored[sizeof(std::uint16_t) + i] + weightOffset);
    for (std::size_t group = 0; group < groups; ++group)
        std::memcpy(packed + (group * panelOutputs + place) * 4, shifted + 4 * group, 4);
}

__m128i fourGroups(const unsigned char* stored)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(stored + sizeof(std::uint16_t)));
}

/// Packs 4 groups of 16 outputs like packBlock(), writing whole cache lines.
void packGroups(const Rows& rows, unsigned char* packed)
{
    __m512i r[4]; // in lane l of r[i]: row 4 * l + i
#pragma GCC unroll 4
    for (std::size_t i = 0; i < 4; ++i) {
        r[i] = _mm512_castsi128_si512(fourGroups(rows.at(i)));
        r[i] = _mm512_inserti32x4(r[i], fourGroups(rows.at(4 + i)), 1);
        r[i] = _mm512_inserti32x4(r[i], fourGroups(rows.at(8 + i)), 2);
        r[i] = _mm512_inserti32x4(r[i], fourGroups(rows.at(12 + i)), 3);
        r[i] = _mm512_xor_si512(r[i], _mm512_set1_epi8(static_cast<char>(weightOffset))); // adds the offset modulo 256
    }
    const __m512i low01 = _mm512_unpacklo_epi32(r[0], r[1]);
    const __m512i high01 = _mm512_unpackhi_epi32(r[0], r[1]);
    const __m512i low23 = _mm512_unpacklo_epi32(r[2], r[3]);
    const __m512i high23 = _mm512_unpackhi_epi32(r[2], r[3]);
    _mm512_storeu_si512(packed, _mm512_unpacklo_epi64(low01, low23));
    _mm512_storeu_si512(packed + panelOutputs * 4, _mm512_unpackhi_epi64(low01, low23));
    _mm512_storeu_si512(packed + 2 * panelOutputs * 4, _mm512_unpacklo_epi64(high01, high23));
    _mm512_storeu_si512(packed + 3 * panelOutputs * 4, _mm512_unpackhi_epi64(high01, high23));
}

void packWholeBlock(const Rows& rows, unsigned char* packed)
{
    constexpr std::size_t half = groups / 2;
    for (std::size_t output = 0; output < panelOutputs; output += lanes) {
        const Rows sixteen{rows.at(output), rows.rowBytes, lanes};
        packGroups(sixteen, packed + output * 4);
        packGroups({sixteen.first + half * 4, rows.rowBytes, lanes}, packed + (half * panelOutputs + output) * 4);
    }
    for (std::size_t output = 0; output < panelOutputs; ++output)
        std::memcpy(packed + scalesOffset + output * sizeof(std::uint16_t), rows.at(output), sizeof(std::uint16_t));
}

} // namespace

Rows int8::panelRows(const void* matrix, std::size_t blocks, std::size_t outputs, std::size_t output,
                     std::size_t blockBytes)
{
    const std::size_t rowBytes = blocks * blockBytes;
    const std::size_t left = outputs - output;
    return {static_cast<const unsigned char*>(matrix) + output * rowBytes, rowBytes,
            left < panelOutputs ? left : panelOutputs, blockBytes};
}

void int8::packPanel(const Rows& rows, std::size_t blocks, unsigned char* panel)
{
    if (rows.count < panelOutputs)
        std::memset(panel, 0, blocks * matrixBlockBytes);
    for (std::size_t block = 0; block < blocks; ++block) {
        unsigned char* packed = panel + block * matrixBlockBytes;
        if (rows.count == panelOutputs) {
            packWholeBlock(rows.from(block), packed);
            continue;
        }
        for (std::size_t place = 0; place < rows.count; ++place)
            packBlock(rows.from(block).at(place), packed, place);
    }
}

namespace {

void packMatrix(const void* source, std::size_t inputs, std::size_t outputs, void* target)
{
    const std::size_t blocks = inputs / blockInputs;
    for (std::size_t output = 0; output < outputs; output += panelOutputs)
        packPanel(panelRows(source, blocks, outputs, output), blocks,
                  static_cast<unsigned char*>(target) + output * blocks * storedBlockBytes);
}

} // namespace

std::size_t int8::activationBytes(std::size_t inputs, std::size_t columns)
{
    return panels(columns, panelColumns) * inputs / blockInputs * sizeof(ActivationBlock);
}

namespace {

/// Quantises 32 values to bytes with one scale, rounding to nearest.
void quantise(const float* values, ActivationBlock& block, std::size_t column)
{
    const __m512 low = _mm512_loadu_ps(values);
    const __m512 high = _mm512_loadu_ps(values + lanes);
    const float largest = _mm512_reduce_max_ps(_mm512_max_ps(_mm512_abs_ps(low), _mm512_abs_ps(high)));
    const float scale = largest / 127.0F;
    const __m512 inverse = _mm512_set1_ps(scale > 0 ? 1.0F / scale : 0.0F);
    const __m512i lowInt = _mm512_cvtps_epi32(_mm512_mul_ps(low, inverse));
    const __m512i highInt = _mm512_cvtps_epi32(_mm512_mul_ps(high, inverse));
    alignas(lanes) std::int8_t bytes[blockInputs];
    _mm_store_si128(reinterpret_cast<__m128i*>(bytes), _mm512_cvtsepi32_epi8(lowInt));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(bytes + lanes), _mm512_cvtsepi32_epi8(highInt));
    for (std::size_t group = 0; group < groups; ++group)
        std::memcpy(block.values[group][column], bytes + 4 * group, 4);
    block.scales[column] = scale;
    block.corrections[column] = -weightOffset * _mm512_reduce_add_epi32(_mm512_add_epi32(lowInt, highInt));
}

} // namespace

void int8::packActivations(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share)
{
    const std::size_t count = panels(columns, panelColumns);
    const std::size_t blocks = inputs / blockInputs;
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        auto* panel = static_cast<ActivationBlock*>(target) + p * blocks;
        const std::size_t first = p * panelColumns;
        const std::size_t used = columns - first < panelColumns ? columns - first : panelColumns;
        for (std::size_t block = 0; block < blocks; ++block) {
            for (std::size_t c = 0; c < used; ++c)
                quantise(source + (first + c) * inputs + block * blockInputs, panel[block], c);
        }
    }
}

namespace {

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

/// Adds one block's products to @p sums.
template <std::size_t Columns>
inline void addBlock(const unsigned char* matrix, const ActivationBlock& activations, __m512 (&sums)[Columns][2])
{
    __m512i dots[Columns][2];
#pragma GCC unroll 6
    for (std::size_t c = 0; c < Columns; ++c)
        dots[c][0] = dots[c][1] = _mm512_set1_epi32(activations.corrections[c]);
#pragma GCC unroll 8
    for (std::size_t group = 0; group < groups; ++group) {
        const __m512i first = _mm512_loadu_si512(matrix + group * panelOutputs * 4);
        const __m512i second = _mm512_loadu_si512(matrix + group * panelOutputs * 4 + lanes * 4);
#pragma GCC unroll 6
        for (std::size_t c = 0; c < Columns; ++c) {
            std::int32_t bytes = 0;
            std::memcpy(&bytes, activations.values[group][c], sizeof bytes);
            const __m512i values = _mm512_set1_epi32(bytes);
            dots[c][0] = _mm512_dpbusd_epi32(dots[c][0], first, values);
            dots[c][1] = _mm512_dpbusd_epi32(dots[c][1], second, values);
        }
    }
    const auto* scales = reinterpret_cast<const __m256i*>(matrix + scalesOffset);
    const __m512 firstScale = _mm512_cvtph_ps(_mm256_loadu_si256(scales));
    const __m512 secondScale = _mm512_cvtph_ps(_mm256_loadu_si256(scales + 1));
#pragma GCC unroll 6
    for (std::size_t c = 0; c < Columns; ++c) {
        const __m512 scale = _mm512_set1_ps(activations.scales[c]);
        sums[c][0] = _mm512_fmadd_ps(_mm512_mul_ps(_mm512_cvtepi32_ps(dots[c][0]), firstScale), scale, sums[c][0]);
        sums[c][1] = _mm512_fmadd_ps(_mm512_mul_ps(_mm512_cvtepi32_ps(dots[c][1]), secondScale), scale, sums[c][1]);
    }
}

/// Multiplies the first @p Columns columns of a panel by a panel of the matrix.
template <std::size_t Columns>
void multiplyPanels(const Product& product, const unsigned char* matrix, std::size_t output,
                    const ActivationBlock* activations, std::size_t column)
{
    __m512 sums[Columns][2];
    for (std::size_t c = 0; c < Columns; ++c) {
        const float* begun = product.isContinued ? product.result + (column + c) * product.outputs : nullptr;
        sums[c][0] = begunSum(begun, output, product.outputs);
        sums[c][1] = begunSum(begun, output + lanes, product.outputs);
    }
    for (std::size_t block = 0; block < product.blocks; ++block)
        addBlock<Columns>(matrix + block * matrixBlockBytes, activations[block], sums);
    for (std::size_t c = 0; c < Columns; ++c) {
        float* target = product.result + (column + c) * product.outputs;
        store(sums[c][0], product.bias, target, output, product.outputs);
        store(sums[c][1], product.bias, target, output + lanes, product.outputs);
    }
}

using PanelFunction = void (*)(const Product&, const unsigned char*, std::size_t, const ActivationBlock*, std::size_t);

constexpr PanelFunction panelFunctions[panelColumns] = {multiplyPanels<1>, multiplyPanels<2>, multiplyPanels<3>,
                                                        multiplyPanels<4>, multiplyPanels<5>, multiplyPanels<6>};

} // namespace

void int8::multiplyColumns(const Product& product, const unsigned char* weights, std::size_t output,
                           const Activations& activations, std::size_t skipped)
{
    for (std::size_t column = 0; column < activations.columns; column += panelColumns) {
        const std::size_t left = activations.columns - column;
        panelFunctions[(left < panelColumns ? left : panelColumns) - 1](
            product, weights, output, activations.values + column / panelColumns * activations.blocks + skipped,
            column);
    }
}

namespace {

void multiply(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations, std::size_t columns,
              const float* bias, float* result, Share share)
{
    const Product product{inputs / blockInputs, outputs, bias, result};
    const std::size_t count = panels(outputs, panelOutputs);
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p)
        multiplyColumns(product, static_cast<const unsigned char*>(matrix) + p * product.blocks * matrixBlockBytes,
                        p * panelOutputs, {static_cast<const ActivationBlock*>(activations), product.blocks, columns},
                        0);
}

} // namespace

const MatrixKernels& int8Matrices()
{
    static const MatrixKernels kernels{matrixBytes, packMatrix, activationBytes, packActivations, multiply};
    return kernels;
}

} // namespace vantro::asr::kernels
