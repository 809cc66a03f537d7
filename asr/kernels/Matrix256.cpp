// Products with matrices as stored in a model file, in 256-bit registers. Compiled for AVX2 with FMA and F16C, and
// again with AVX-VNNI; like KernelsVariant.cpp, it must not share inline functions with other files.
//
// A block of a panel of 16 outputs is packed into the cache and used for all columns: in steps of as many inputs as
// take four bytes, the step of each output. Activations: panels of 6 columns, laid out alike. Each step is multiplied
// by each column's and added to 12 sums.
#include "asr/kernels/Levels.h"
#include "asr/kernels/Matrix.h"

#include <immintrin.h>

#include <cstdint>
#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t lanes = 8;
constexpr std::size_t outputsPerPanel = 2 * lanes;
constexpr std::size_t panelColumns = 6;
constexpr std::size_t blockInputs = 32; ///< share a scale
constexpr std::size_t stepBytes = 4;

std::size_t panels(std::size_t count, std::size_t size)
{
    return (count + size - 1) / size;
}

/// Element j of row i becomes element i of row j.
void transpose(__m256i (&rows)[lanes])
{
    __m256i pairs[lanes];
    __m256i quads[lanes];
#pragma GCC unroll 4
    for (std::size_t i = 0; i < lanes; i += 2) {
        pairs[i] = _mm256_unpacklo_epi32(rows[i], rows[i + 1]);
        pairs[i + 1] = _mm256_unpackhi_epi32(rows[i], rows[i + 1]);
    }
#pragma GCC unroll 2
    for (std::size_t i = 0; i < lanes; i += 4) {
        quads[i] = _mm256_unpacklo_epi64(pairs[i], pairs[i + 2]);
        quads[i + 1] = _mm256_unpackhi_epi64(pairs[i], pairs[i + 2]);
        quads[i + 2] = _mm256_unpacklo_epi64(pairs[i + 1], pairs[i + 3]);
        quads[i + 3] = _mm256_unpackhi_epi64(pairs[i + 1], pairs[i + 3]);
    }
#pragma GCC unroll 4
    for (std::size_t i = 0; i < 4; ++i) {
        rows[i] = _mm256_permute2x128_si256(quads[i], quads[4 + i], 0x20);
        rows[4 + i] = _mm256_permute2x128_si256(quads[i], quads[4 + i], 0x31);
    }
}

/// Rows in a file, unaligned.
struct Rows
{
    const unsigned char* first = nullptr;
    std::size_t rowBytes = 0;
    std::size_t count = 0;
};

/// The rows of the panel that starts at @p output.
Rows panelRows(const void* matrix, std::size_t rowBytes, std::size_t outputs, std::size_t output)
{
    const std::size_t left = outputs - output;
    return {static_cast<const unsigned char*>(matrix) + output * rowBytes, rowBytes,
            left < outputsPerPanel ? left : outputsPerPanel};
}

/// Packs eight steps of 16 outputs. @p stepsOf: a row's. Missing rows become zeros.
template <typename StepsOf>
void packSteps(const Rows& rows, StepsOf stepsOf, std::uint32_t* target)
{
    for (std::size_t half = 0; half < outputsPerPanel; half += lanes) {
        __m256i steps[lanes];
#pragma GCC unroll 8
        for (std::size_t i = 0; i < lanes; ++i)
            steps[i] =
                half + i < rows.count ? stepsOf(rows.first + (half + i) * rows.rowBytes) : _mm256_setzero_si256();
        transpose(steps);
#pragma GCC unroll 8
        for (std::size_t i = 0; i < lanes; ++i)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(target + i * outputsPerPanel + half), steps[i]);
    }
}

__m256i maskFor(std::size_t output, std::size_t outputs)
{
    const std::size_t left = output < outputs ? outputs - output : 0;
    return _mm256_cmpgt_epi32(_mm256_set1_epi32(static_cast<int>(left < lanes ? left : lanes)),
                              _mm256_setr_epi32(0, 1, 2, 3, 4, 5, 6, 7));
}

struct Product
{
    std::size_t inputs; ///< in this part
    std::size_t outputs;
    const float* bias;
    float* result;
    bool isContinued; ///< adds to the sums in result
};

/// Sums of one tile before a part of its inputs.
template <std::size_t Columns>
void loadSums(const Product& product, std::size_t output, std::size_t column, __m256 (&sums)[Columns][2])
{
    for (std::size_t c = 0; c < Columns; ++c) {
        for (std::size_t half = 0; half < 2; ++half) {
            const std::size_t first = output + half * lanes;
            const float* begun = product.result + (column + c) * product.outputs + first;
            sums[c][half] =
                product.isContinued ? _mm256_maskload_ps(begun, maskFor(first, product.outputs)) : _mm256_setzero_ps();
        }
    }
}

template <std::size_t Columns>
void storeSums(const Product& product, std::size_t output, std::size_t column, __m256 (&sums)[Columns][2])
{
    for (std::size_t c = 0; c < Columns; ++c) {
        for (std::size_t half = 0; half < 2; ++half) {
            const std::size_t first = output + half * lanes;
            const __m256i mask = maskFor(first, product.outputs);
            const __m256 sum = product.bias != nullptr
                                   ? _mm256_add_ps(sums[c][half], _mm256_maskload_ps(product.bias + first, mask))
                                   : sums[c][half];
            _mm256_maskstore_ps(product.result + (column + c) * product.outputs + first, mask, sum);
        }
    }
}

template <typename Format>
std::size_t activationBytes(std::size_t inputs, std::size_t columns)
{
    return panels(columns, panelColumns) * inputs / blockInputs * sizeof(typename Format::ActivationBlock);
}

template <typename Format>
void packActivations(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share)
{
    const std::size_t count = panels(columns, panelColumns);
    const std::size_t blocks = inputs / blockInputs;
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        auto* panel = static_cast<typename Format::ActivationBlock*>(target) + p * blocks;
        const std::size_t first = p * panelColumns;
        const std::size_t used = columns - first < panelColumns ? columns - first : panelColumns;
        for (std::size_t block = 0; block < blocks; ++block) {
            for (std::size_t c = 0; c < used; ++c)
                Format::packColumn(source + (first + c) * inputs + block * blockInputs, panel[block], c);
        }
    }
}

/// Multiplies @p Columns columns by a packed block of the matrix.
template <typename Format, std::size_t Columns>
void multiplyTile(const Product& product, const typename Format::MatrixBlock* matrix, std::size_t output,
                  const typename Format::ActivationBlock* activations, std::size_t column)
{
    __m256 sums[Columns][2];
    loadSums(product, output, column, sums);
    for (std::size_t block = 0; block < product.inputs / blockInputs; ++block)
        Format::template addBlock<Columns>(matrix[block], activations[block], sums);
    storeSums(product, output, column, sums);
}

template <typename Format>
void multiplyColumns(const Product& product, const typename Format::MatrixBlock* matrix, std::size_t output,
                     const typename Format::ActivationBlock* activations, std::size_t blocks, std::size_t columns)
{
    using Tile = void (*)(const Product&, const typename Format::MatrixBlock*, std::size_t,
                          const typename Format::ActivationBlock*, std::size_t);
    constexpr Tile tiles[panelColumns] = {multiplyTile<Format, 1>, multiplyTile<Format, 2>, multiplyTile<Format, 3>,
                                          multiplyTile<Format, 4>, multiplyTile<Format, 5>, multiplyTile<Format, 6>};
    for (std::size_t column = 0; column < columns; column += panelColumns) {
        const std::size_t left = columns - column;
        tiles[(left < panelColumns ? left : panelColumns) - 1](product, matrix, output,
                                                               activations + column / panelColumns * blocks, column);
    }
}

/// Prefetches the next part while this one is multiplied.
void prefetch(const Rows& rows, std::size_t offset, std::size_t bytes)
{
    constexpr std::size_t line = 64;
    for (std::size_t i = 0; i < rows.count; ++i) {
        for (std::size_t byte = 0; byte < bytes; byte += line)
            _mm_prefetch(rows.first + i * rows.rowBytes + offset + byte, _MM_HINT_T1);
    }
}

template <typename Format, typename Stored>
void multiply(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations, std::size_t columns,
              const float* bias, float* result, Share share)
{
    typename Format::MatrixBlock packed[Format::partBlocks];
    const auto* values = static_cast<const typename Format::ActivationBlock*>(activations);
    const std::size_t blocks = inputs / blockInputs;
    const std::size_t rowBytes = blocks * Stored::bytes;
    const std::size_t count = panels(outputs, outputsPerPanel);
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        const std::size_t output = p * outputsPerPanel;
        const Rows rows = panelRows(matrix, rowBytes, outputs, output);
        for (std::size_t first = 0; first < blocks; first += Format::partBlocks) {
            const std::size_t used = blocks - first < Format::partBlocks ? blocks - first : Format::partBlocks;
            for (std::size_t block = 0; block < used; ++block)
                Format::template packBlock<Stored>(
                    {rows.first + (first + block) * Stored::bytes, rows.rowBytes, rows.count}, packed[block]);
            const std::size_t ahead =
                blocks - first - used < Format::partBlocks ? blocks - first - used : Format::partBlocks;
            prefetch(rows, (first + used) * Stored::bytes, ahead * Stored::bytes);
            multiplyColumns<Format>(
                {used * blockInputs, outputs, first + used == blocks ? bias : nullptr, result, first > 0}, packed,
                output, values + first, blocks, columns);
        }
    }
}

/// Multiplies float32 numbers, one a step.
struct FloatFormat
{
    static constexpr std::size_t partBlocks = 8; ///< 16 KiB

    struct MatrixBlock
    {
        float values[blockInputs][outputsPerPanel];
    };
    struct ActivationBlock
    {
        float values[blockInputs][panelColumns];
    };

    template <typename Stored>
    static void packBlock(const Rows& rows, MatrixBlock& packed)
    {
        for (std::size_t input = 0; input < blockInputs; input += lanes)
            packSteps(
                rows, [input](const unsigned char* row) { return _mm256_castps_si256(Stored::values(row, input)); },
                reinterpret_cast<std::uint32_t*>(packed.values[input]));
    }

    static void packColumn(const float* source, ActivationBlock& block, std::size_t column)
    {
        for (std::size_t input = 0; input < blockInputs; ++input)
            block.values[input][column] = source[input];
    }

    template <std::size_t Columns>
    static void addBlock(const MatrixBlock& matrix, const ActivationBlock& activations, __m256 (&sums)[Columns][2])
    {
#pragma GCC unroll 4
        for (std::size_t input = 0; input < blockInputs; ++input) {
            const __m256 first = _mm256_loadu_ps(matrix.values[input]);
            const __m256 second = _mm256_loadu_ps(matrix.values[input] + lanes);
#pragma GCC unroll 6
            for (std::size_t c = 0; c < Columns; ++c) {
                const __m256 value = _mm256_broadcast_ss(&activations.values[input][c]);
                sums[c][0] = _mm256_fmadd_ps(first, value, sums[c][0]);
                sums[c][1] = _mm256_fmadd_ps(second, value, sums[c][1]);
            }
        }
    }
};

/// 32 float16.
struct StoredHalves
{
    static constexpr std::size_t bytes = blockInputs * sizeof(std::uint16_t);

    static __m256 values(const unsigned char* block, std::size_t first)
    {
        return _mm256_cvtph_ps(
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(block + first * sizeof(std::uint16_t))));
    }
};

/// Multiplies integers in blocks with one scale. Activations are rounded to 8 bits.
struct IntegerFormat
{
#ifdef __AVXVNNI__
    using Element = std::int8_t;
    /// One operand of the dot product is unsigned: the matrix has this added, and the excess is subtracted through the
    /// sum of the activations.
    static constexpr std::int32_t offset = 128;
#else
    using Element = std::int16_t;
    static constexpr std::int32_t offset = 0;
#endif
    static constexpr std::size_t stepInputs = stepBytes / sizeof(Element);
    static constexpr std::size_t steps = blockInputs / stepInputs;
    static constexpr std::size_t partBlocks = 16 / sizeof(Element); ///< about 9 KiB

    struct MatrixBlock
    {
        std::uint32_t values[steps][outputsPerPanel];
        float scales[outputsPerPanel];
    };
    struct ActivationBlock
    {
        Element values[steps][panelColumns][stepInputs];
        float scales[panelColumns];
        std::int32_t corrections[panelColumns];
    };

    /// Eight steps from 32 bytes.
    static __m256i widened(__m256i bytes, std::size_t firstStep)
    {
#ifdef __AVXVNNI__
        static_cast<void>(firstStep);
        return _mm256_xor_si256(bytes, _mm256_set1_epi8(static_cast<char>(offset))); // adds the offset modulo 256
#else
        return _mm256_cvtepi8_epi16(firstStep == 0 ? _mm256_castsi256_si128(bytes)
                                                   : _mm256_extracti128_si256(bytes, 1));
#endif
    }

    static __m256i product(__m256i sum, __m256i matrix, __m256i activations)
    {
#ifdef __AVXVNNI__
        return _mm256_dpbusd_avx_epi32(sum, matrix, activations);
#else
        return _mm256_add_epi32(sum, _mm256_madd_epi16(matrix, activations));
#endif
    }

    template <typename Stored>
    static void packBlock(const Rows& rows, MatrixBlock& packed)
    {
        for (std::size_t step = 0; step < steps; step += lanes)
            packSteps(
                rows, [step](const unsigned char* row) { return widened(Stored::values(row), step); },
                packed.values[step]);
        std::uint16_t halves[outputsPerPanel] = {};
        for (std::size_t i = 0; i < rows.count; ++i)
            std::memcpy(&halves[i], rows.first + i * rows.rowBytes, sizeof halves[i]);
        for (std::size_t i = 0; i < outputsPerPanel; i += lanes)
            _mm256_storeu_ps(packed.scales + i,
                             _mm256_cvtph_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(halves + i))));
    }

    /// Rounds 32 values to bytes with one scale.
    static void packColumn(const float* source, ActivationBlock& block, std::size_t column)
    {
        const __m256 sign = _mm256_set1_ps(-0.0F);
        __m256 largest = _mm256_setzero_ps();
        for (std::size_t i = 0; i < blockInputs; i += lanes)
            largest = _mm256_max_ps(largest, _mm256_andnot_ps(sign, _mm256_loadu_ps(source + i)));
        __m128 quarter = _mm_max_ps(_mm256_castps256_ps128(largest), _mm256_extractf128_ps(largest, 1));
        quarter = _mm_max_ps(quarter, _mm_movehl_ps(quarter, quarter));
        const float scale = _mm_cvtss_f32(_mm_max_ss(quarter, _mm_movehdup_ps(quarter))) / 127.0F;
        const __m256 inverse = _mm256_set1_ps(scale > 0 ? 1.0F / scale : 0.0F);
        std::int32_t rounded[blockInputs];
        for (std::size_t i = 0; i < blockInputs; i += lanes)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(rounded + i),
                                _mm256_cvtps_epi32(_mm256_mul_ps(_mm256_loadu_ps(source + i), inverse)));
        std::int32_t sum = 0;
        for (std::size_t i = 0; i < blockInputs; ++i) {
            sum += rounded[i];
            block.values[i / stepInputs][column][i % stepInputs] = static_cast<Element>(rounded[i]);
        }
        block.scales[column] = scale;
        block.corrections[column] = -offset * sum;
    }

    template <std::size_t Columns>
    static void addBlock(const MatrixBlock& matrix, const ActivationBlock& activations, __m256 (&sums)[Columns][2])
    {
        __m256i dots[Columns][2];
#pragma GCC unroll 6
        for (std::size_t c = 0; c < Columns; ++c)
            dots[c][0] = dots[c][1] = _mm256_set1_epi32(activations.corrections[c]);
#pragma GCC unroll 4
        for (std::size_t step = 0; step < steps; ++step) {
            const __m256i first = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(matrix.values[step]));
            const __m256i second = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(matrix.values[step] + lanes));
#pragma GCC unroll 6
            for (std::size_t c = 0; c < Columns; ++c) {
                std::int32_t bits = 0;
                std::memcpy(&bits, activations.values[step][c], sizeof bits);
                const __m256i value = _mm256_set1_epi32(bits);
                dots[c][0] = product(dots[c][0], first, value);
                dots[c][1] = product(dots[c][1], second, value);
            }
        }
        const __m256 firstScale = _mm256_loadu_ps(matrix.scales);
        const __m256 secondScale = _mm256_loadu_ps(matrix.scales + lanes);
#pragma GCC unroll 6
        for (std::size_t c = 0; c < Columns; ++c) {
            const __m256 scale = _mm256_set1_ps(activations.scales[c]);
            sums[c][0] = _mm256_fmadd_ps(_mm256_mul_ps(_mm256_cvtepi32_ps(dots[c][0]), firstScale), scale, sums[c][0]);
            sums[c][1] = _mm256_fmadd_ps(_mm256_mul_ps(_mm256_cvtepi32_ps(dots[c][1]), secondScale), scale, sums[c][1]);
        }
    }
};

/// A q8_0 block: a scale and 32 bytes.
struct StoredBytes
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + blockInputs;

    static __m256i values(const unsigned char* block)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(block + sizeof(std::uint16_t)));
    }
};

/// Unpacks 32 nibbles (0 to 15) from 16 bytes: first all low ones, then all high ones.
__m256i nibbles(const unsigned char* stored)
{
    const __m128i pairs = _mm_loadu_si128(reinterpret_cast<const __m128i*>(stored));
    return _mm256_and_si256(_mm256_set_m128i(_mm_srli_epi16(pairs, 4), pairs), _mm256_set1_epi8(0x0F));
}

/// A q4_0 block: a scale and 32 numbers of 4 bits with an offset of -8.
struct StoredNibbles
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + blockInputs / 2;

    static __m256i values(const unsigned char* block)
    {
        return _mm256_sub_epi8(nibbles(block + sizeof(std::uint16_t)), _mm256_set1_epi8(8));
    }
};

/// 0xFF where the bit is set.
__m256i bytesOfBits(std::uint32_t bits)
{
    const __m256i byteOfBit = _mm256_setr_epi64x(0, 0x0101010101010101, 0x0202020202020202, 0x0303030303030303);
    const __m256i bitOfByte = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
    const __m256i spread = _mm256_shuffle_epi8(_mm256_set1_epi32(static_cast<int>(bits)), byteOfBit);
    return _mm256_cmpeq_epi8(_mm256_and_si256(spread, bitOfByte), bitOfByte);
}

/// A q5_0 block: a scale, the fifth bits of 32 numbers, and their lower four bits, with an offset of -16.
struct StoredFiveBits
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + sizeof(std::uint32_t) + blockInputs / 2;

    static __m256i values(const unsigned char* block)
    {
        std::uint32_t fifth = 0;
        std::memcpy(&fifth, block + sizeof(std::uint16_t), sizeof fifth);
        // Where the fifth bit is set, it and the offset cancel out.
        const __m256i missing = _mm256_andnot_si256(bytesOfBits(fifth), _mm256_set1_epi8(16));
        return _mm256_sub_epi8(nibbles(block + sizeof(std::uint16_t) + sizeof fifth), missing);
    }
};

template <typename Stored>
std::size_t storedBytes(std::size_t inputs, std::size_t outputs)
{
    return inputs / blockInputs * outputs * Stored::bytes;
}

template <typename Format, typename Stored>
constexpr MatrixKernels kernelsOf = {storedBytes<Stored>, nullptr, activationBytes<Format>, packActivations<Format>,
                                     multiply<Format, Stored>};

} // namespace

#ifdef __AVXVNNI__
const StoredMatrices& avxVnniMatrices()
#else
const StoredMatrices& avx2Matrices()
#endif
{
    static constexpr StoredMatrices matrices = {
        kernelsOf<FloatFormat, StoredHalves>, kernelsOf<IntegerFormat, StoredBytes>,
        kernelsOf<IntegerFormat, StoredFiveBits>, kernelsOf<IntegerFormat, StoredNibbles>};
    return matrices;
}

} // namespace vantro::asr::kernels
