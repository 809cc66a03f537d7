// Products with matrices as stored in a model file, in 256-bit registers. Compiled for AVX2 with FMA and F16C, and
// again with AVX-VNNI; like KernelsVariant.cpp, it must not share inline functions with other files.
//
// Everything is multiplied as integers that share a scale among 32 inputs: pairs of 16 bits take half the instructions
// of float32. So are float16 matrices, with 13 bits of activations and 14 of weights, which is about as fine as
// rounding the activations to float16.
//
// A block of a panel of 16 outputs is packed into the cache and used for all columns: in steps of as many inputs as
// take four bytes, the step of each output. Activations: panels of 6 columns, laid out alike.
#include "asr/kernels/Levels.h"
#include "asr/kernels/Matrix.h"
#include "asr/kernels/StoredBlocks256.h"

#include <immintrin.h>

#include <cstdint>
#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t outputsPerPanel = 2 * lanes;
constexpr std::size_t panelColumns = 6;
constexpr std::size_t stepBytes = 4;

std::size_t panels(std::size_t count, std::size_t size)
{
    return (count + size - 1) / size;
}

/// Element j of row i becomes element i of row j.
void transpose(__m256i* rows)
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

struct Product
{
    std::size_t inputs; ///< in this part
    std::size_t outputs;
    const float* bias;
    float* result;
    bool isContinued; ///< adds to the sums in result
};

/// 16 sums of a column, of which only @p count are there.
struct PartialSums
{
    float values[outputsPerPanel] = {};
    std::size_t count;

    PartialSums(const float* source, std::size_t number) : count(number)
    {
        std::memcpy(values, source, count * sizeof(float));
    }
    void copyTo(float* target) const { std::memcpy(target, values, count * sizeof(float)); }
};

void loadSums(const float* source, __m256 (&sums)[2])
{
    sums[0] = _mm256_loadu_ps(source);
    sums[1] = _mm256_loadu_ps(source + lanes);
}

void storeSums(__m256 (&sums)[2], const float* bias, float* target)
{
    if (bias != nullptr) {
        sums[0] = _mm256_add_ps(sums[0], _mm256_loadu_ps(bias));
        sums[1] = _mm256_add_ps(sums[1], _mm256_loadu_ps(bias + lanes));
    }
    _mm256_storeu_ps(target, sums[0]);
    _mm256_storeu_ps(target + lanes, sums[1]);
}

/// Sums of one tile before a part of its inputs.
template <std::size_t Columns>
void loadTile(const Product& product, std::size_t output, std::size_t column, __m256 (&sums)[Columns][2])
{
    const std::size_t left = product.outputs - output;
    const float* begun = product.result + column * product.outputs + output;
#pragma GCC unroll 6
    for (std::size_t c = 0; c < Columns; ++c, begun += product.outputs) {
        if (!product.isContinued)
            sums[c][0] = sums[c][1] = _mm256_setzero_ps();
        else if (left >= outputsPerPanel)
            loadSums(begun, sums[c]);
        else
            loadSums(PartialSums(begun, left).values, sums[c]);
    }
}

template <std::size_t Columns>
void storeTile(const Product& product, std::size_t output, std::size_t column, __m256 (&sums)[Columns][2])
{
    const std::size_t left = product.outputs - output;
    const float* bias = product.bias != nullptr ? product.bias + output : nullptr;
    float* target = product.result + column * product.outputs + output;
    if (left >= outputsPerPanel) {
#pragma GCC unroll 6
        for (std::size_t c = 0; c < Columns; ++c)
            storeSums(sums[c], bias, target + c * product.outputs);
        return;
    }
    const PartialSums wholeBias(bias, bias != nullptr ? left : 0);
#pragma GCC unroll 6
    for (std::size_t c = 0; c < Columns; ++c) {
        PartialSums whole(target, 0);
        storeSums(sums[c], wholeBias.values, whole.values);
        whole.count = left;
        whole.copyTo(target + c * product.outputs);
    }
}

template <typename Layout>
std::size_t activationBytes(std::size_t inputs, std::size_t columns)
{
    return panels(columns, panelColumns) * inputs / blockInputs * sizeof(typename Layout::ActivationBlock);
}

template <typename Layout>
void packActivations(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share)
{
    const std::size_t count = panels(columns, panelColumns);
    const std::size_t blocks = inputs / blockInputs;
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        auto* panel = static_cast<typename Layout::ActivationBlock*>(target) + p * blocks;
        const std::size_t first = p * panelColumns;
        const std::size_t used = columns - first < panelColumns ? columns - first : panelColumns;
        for (std::size_t block = 0; block < blocks; ++block) {
            for (std::size_t c = 0; c < used; ++c)
                Layout::packColumn(source + (first + c) * inputs + block * blockInputs, panel[block], c);
        }
    }
}

/// Multiplies @p Columns columns by a packed block of the matrix.
template <typename Layout, std::size_t Columns>
void multiplyTile(const Product& product, const typename Layout::MatrixBlock* matrix, std::size_t output,
                  const typename Layout::ActivationBlock* activations, std::size_t column)
{
    __m256 sums[Columns][2];
    loadTile(product, output, column, sums);
    for (std::size_t block = 0; block < product.inputs / blockInputs; ++block)
        Layout::template addBlock<Columns>(matrix[block], activations[block], sums);
    storeTile(product, output, column, sums);
}

/// The same for a number of columns that is known at run time, up to @p Most.
template <typename Layout, std::size_t Most>
void multiplyFewer(const Product& product, const typename Layout::MatrixBlock* matrix, std::size_t output,
                   const typename Layout::ActivationBlock* activations, std::size_t column, std::size_t columns)
{
    if (columns == Most)
        multiplyTile<Layout, Most>(product, matrix, output, activations, column);
    else if constexpr (Most > 1)
        multiplyFewer<Layout, Most - 1>(product, matrix, output, activations, column, columns);
}

template <typename Layout>
void multiplyColumns(const Product& product, const typename Layout::MatrixBlock* matrix, std::size_t output,
                     const typename Layout::ActivationBlock* activations, std::size_t blocks, std::size_t columns)
{
    constexpr std::size_t width = panelColumns;
    for (std::size_t column = 0; column < columns; column += width, activations += blocks) {
        const std::size_t left = columns - column;
        if (left >= width)
            multiplyTile<Layout, width>(product, matrix, output, activations, column);
        else
            multiplyFewer<Layout, width - 1>(product, matrix, output, activations, column, left);
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

template <typename Layout, typename Stored>
void multiply(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations, std::size_t columns,
              const float* bias, float* result, Share share)
{
    alignas(64) typename Layout::MatrixBlock packed[Layout::partBlocks];
    const auto* values = static_cast<const typename Layout::ActivationBlock*>(activations);
    const std::size_t blocks = inputs / blockInputs;
    const std::size_t rowBytes = blocks * Stored::bytes;
    const std::size_t count = panels(outputs, outputsPerPanel);
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        const std::size_t output = p * outputsPerPanel;
        const Rows rows = panelRows(matrix, rowBytes, outputs, output);
        for (std::size_t first = 0; first < blocks; first += Layout::partBlocks) {
            const std::size_t used = blocks - first < Layout::partBlocks ? blocks - first : Layout::partBlocks;
            for (std::size_t block = 0; block < used; ++block)
                Layout::template packBlock<Stored>(
                    {rows.first + (first + block) * Stored::bytes, rows.rowBytes, rows.count}, packed[block]);
            const std::size_t ahead =
                blocks - first - used < Layout::partBlocks ? blocks - first - used : Layout::partBlocks;
            prefetch(rows, (first + used) * Stored::bytes, ahead * Stored::bytes);
            multiplyColumns<Layout>(
                {used * blockInputs, outputs, first + used == blocks ? bias : nullptr, result, first > 0}, packed,
                output, values + first, blocks, columns);
        }
    }
}

/// Integers as elements of the matrix and of the activations. One operand of the dot product of bytes is unsigned: the
/// matrix has an offset added, and the excess is subtracted through the sum of the activations.
struct Words
{
    using Element = std::int16_t;
    static constexpr float largestActivation = 4095; ///< so that 32 products with the largest weights fit into 32 bits
    static constexpr std::int32_t offset = 0;

    static __m256i sum(__m256i sum, __m256i matrix, __m256i activations)
    {
#ifdef __AVXVNNI__
        return _mm256_dpwssd_avx_epi32(sum, matrix, activations);
#else
        // Not the intrinsic: the compiler would gather the products and add them up later, for which there are too few
        // registers.
        asm("vpaddd %1, %0, %0" : "+x"(sum) : "x"(_mm256_madd_epi16(matrix, activations)));
        return sum;
#endif
    }
};

#ifdef __AVXVNNI__
struct Bytes
{
    using Element = std::int8_t;
    static constexpr float largestActivation = 127;
    static constexpr std::int32_t offset = byteOffset;

    static __m256i sum(__m256i sum, __m256i matrix, __m256i activations)
    {
        return _mm256_dpbusd_avx_epi32(sum, matrix, activations);
    }
};
using Smallest = Bytes;
#else
using Smallest = Words;
#endif

template <typename Integers>
struct Format
{
    using Element = typename Integers::Element;
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

    /// Missing rows become zeros.
    template <typename Stored>
    static void packBlock(const Rows& rows, MatrixBlock& packed)
    {
        __m256i values[steps / lanes][outputsPerPanel] = {};
        for (std::size_t row = 0; row < outputsPerPanel; ++row) {
            __m256i unpacked[steps / lanes] = {};
            packed.scales[row] = row < rows.count ? Stored::unpack(rows.first + row * rows.rowBytes, unpacked) : 0.0F;
            for (std::size_t part = 0; part < steps / lanes; ++part)
                values[part][row] = unpacked[part];
        }
        for (std::size_t part = 0; part < steps / lanes; ++part) {
            for (std::size_t half = 0; half < outputsPerPanel; half += lanes) {
                transpose(values[part] + half);
                for (std::size_t i = 0; i < lanes; ++i)
                    _mm256_storeu_si256(reinterpret_cast<__m256i*>(packed.values[part * lanes + i] + half),
                                        values[part][half + i]);
            }
        }
    }

    /// Rounds 32 values to integers with one scale.
    static void packColumn(const float* source, ActivationBlock& block, std::size_t column)
    {
        const Rounding rounding({_mm256_loadu_ps(source), _mm256_loadu_ps(source + lanes),
                                 _mm256_loadu_ps(source + 2 * lanes), _mm256_loadu_ps(source + 3 * lanes)},
                                Integers::largestActivation);
        std::int32_t rounded[blockInputs];
        for (std::size_t i = 0; i < blockInputs / lanes; ++i)
            _mm256_storeu_si256(reinterpret_cast<__m256i*>(rounded) + i, rounding.rounded(i));
        std::int32_t sum = 0;
        for (std::size_t i = 0; i < blockInputs; ++i) {
            sum += rounded[i];
            block.values[i / stepInputs][column][i % stepInputs] = static_cast<Element>(rounded[i]);
        }
        block.scales[column] = rounding.scale;
        block.corrections[column] = -Integers::offset * sum;
    }

    // Not inlined: the compiler would keep the sums in registers and those of the inner loop in memory.
    template <std::size_t Columns>
    [[gnu::noinline]] static void addBlock(const MatrixBlock& matrix, const ActivationBlock& activations,
                                           __m256 (&sums)[Columns][2])
    {
        __m256i dots[Columns][2];
#pragma GCC unroll 6
        for (std::size_t c = 0; c < Columns; ++c)
            dots[c][0] = dots[c][1] = _mm256_set1_epi32(activations.corrections[c]);
        for (std::size_t step = 0; step < steps; ++step) {
            const __m256i first = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(matrix.values[step]));
            const __m256i second = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(matrix.values[step] + lanes));
#pragma GCC unroll 6
            for (std::size_t c = 0; c < Columns; ++c) {
                std::int32_t bits = 0;
                std::memcpy(&bits, activations.values[step][c], sizeof bits);
                const __m256i value = _mm256_set1_epi32(bits);
                dots[c][0] = Integers::sum(dots[c][0], first, value);
                dots[c][1] = Integers::sum(dots[c][1], second, value);
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

template <typename Stored>
std::size_t storedBytes(std::size_t inputs, std::size_t outputs)
{
    return inputs / blockInputs * outputs * Stored::bytes;
}

template <typename Integers, typename Stored>
constexpr MatrixKernels kernelsOf = {storedBytes<Stored>, nullptr, activationBytes<Format<Integers>>,
                                     packActivations<Format<Integers>>, multiply<Format<Integers>, Stored>};

} // namespace

#ifdef __AVXVNNI__
const StoredMatrices& avxVnniMatrices()
#else
const StoredMatrices& avx2Matrices()
#endif
{
    static constexpr StoredMatrices matrices = {
        kernelsOf<Words, StoredHalves>, kernelsOf<Smallest, Scaled<StoredBytes>>,
        kernelsOf<Smallest, Scaled<StoredFiveBits>>, kernelsOf<Smallest, Scaled<StoredNibbles>>};
    return matrices;
}

} // namespace vantro::asr::kernels
