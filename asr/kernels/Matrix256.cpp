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
#include "asr/kernels/StoredProduct.h"

#include <immintrin.h>

#include <cstdint>
#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t stepBytes = 4;

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

void addScaled(__m256i dots, __m256 matrixScale, __m256 scale, float* sums)
{
    const __m256 scaled = _mm256_mul_ps(_mm256_cvtepi32_ps(dots), matrixScale);
    _mm256_store_ps(sums, _mm256_fmadd_ps(scaled, scale, _mm256_load_ps(sums)));
}

template <typename Integers>
struct Format
{
    using Element = typename Integers::Element;
    static constexpr std::size_t outputsPerPanel = 2 * lanes;
    static constexpr std::size_t panelColumns = 6;
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
                                           float (&sums)[Columns][outputsPerPanel])
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
            addScaled(dots[c][0], firstScale, scale, sums[c]);
            addScaled(dots[c][1], secondScale, scale, sums[c] + lanes);
        }
    }
};

} // namespace

#ifdef __AVXVNNI__
const StoredMatrices& avxVnniMatrices()
#else
const StoredMatrices& avx2Matrices()
#endif
{
    static constexpr StoredMatrices matrices = {{kernelsOf<Format<Smallest>, Scaled<StoredBytes>>,
                                                 kernelsOf<Format<Smallest>, Scaled<StoredFiveBits>>,
                                                 kernelsOf<Format<Smallest>, Scaled<StoredNibbles>>},
                                                kernelsOf<Format<Words>, StoredHalves>};
    return matrices;
}

} // namespace vantro::asr::kernels
