// Products with matrices of bytes as stored in a model file, for arm64. Compiled for the dot product of bytes, and
// again with the matrix products of bytes (i8mm); like KernelsVariant.cpp, it must not share inline functions with
// other files.
#include "asr/kernels/Levels.h"
#include "asr/kernels/StoredProduct.h"

#include <arm_neon.h>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t lanes = 4;
#ifdef __ARM_FEATURE_MATMUL_INT8
constexpr std::size_t stepInputs = 8; ///< of one instruction, for each output
constexpr std::size_t storedColumns = 6;
#else
constexpr std::size_t stepInputs = 4;
constexpr std::size_t storedColumns = 8; ///< the last two are not used
#endif

/// 32 bytes.
struct Bytes
{
    int8x16_t low;
    int8x16_t high;
};

float floatOf(const unsigned char* half)
{
    __fp16 value = 0;
    std::memcpy(&value, half, sizeof value);
    return static_cast<float>(value);
}

void addScaled(int32x4_t dots, float32x4_t matrixScale, float scale, float* sums)
{
    const float32x4_t scaled = vmulq_f32(vcvtq_f32_s32(dots), matrixScale);
    vst1q_f32(sums, vfmaq_n_f32(vld1q_f32(sums), scaled, scale));
}

struct Layout
{
    static constexpr std::size_t outputsPerPanel = 16;
    static constexpr std::size_t panelColumns = 6;
    static constexpr std::size_t steps = blockInputs / stepInputs;
    static constexpr std::size_t partBlocks = 16; ///< 9 KiB

    struct MatrixBlock
    {
        std::int8_t values[steps][outputsPerPanel][stepInputs];
        float scales[outputsPerPanel];
    };
    struct ActivationBlock
    {
        std::int8_t values[steps][storedColumns][stepInputs];
        float scales[panelColumns];
    };

    /// Missing rows become zeros.
    template <typename Stored>
    static void packBlock(const Rows& rows, MatrixBlock& packed)
    {
        if (rows.count < outputsPerPanel)
            std::memset(&packed, 0, sizeof packed);
        for (std::size_t row = 0; row < rows.count; ++row) {
            const unsigned char* stored = rows.first + row * rows.rowBytes;
            const Bytes bytes = Stored::read(stored + sizeof(std::uint16_t));
            std::int8_t values[blockInputs];
            vst1q_s8(values, bytes.low);
            vst1q_s8(values + blockInputs / 2, bytes.high);
            for (std::size_t step = 0; step < steps; ++step)
                std::memcpy(packed.values[step][row], values + step * stepInputs, stepInputs);
            packed.scales[row] = floatOf(stored);
        }
    }

    /// Rounds 32 values to bytes with one scale.
    static void packColumn(const float* source, ActivationBlock& block, std::size_t column)
    {
        float32x4_t largest = vdupq_n_f32(0);
        for (std::size_t i = 0; i < blockInputs; i += lanes)
            largest = vmaxq_f32(largest, vabsq_f32(vld1q_f32(source + i)));
        const float peak = vmaxvq_f32(largest);
        const float inverse = peak > 0 ? 127.0F / peak : 0.0F;
        std::int8_t values[blockInputs];
        for (std::size_t i = 0; i < blockInputs; i += 2 * lanes) {
            const int32x4_t low = vcvtnq_s32_f32(vmulq_n_f32(vld1q_f32(source + i), inverse));
            const int32x4_t high = vcvtnq_s32_f32(vmulq_n_f32(vld1q_f32(source + i + lanes), inverse));
            vst1_s8(values + i, vqmovn_s16(vcombine_s16(vqmovn_s32(low), vqmovn_s32(high))));
        }
        for (std::size_t step = 0; step < steps; ++step)
            std::memcpy(block.values[step][column], values + step * stepInputs, stepInputs);
        block.scales[column] = peak / 127.0F;
    }

#ifdef __ARM_FEATURE_MATMUL_INT8
    /// Two outputs by two columns at a time.
    template <std::size_t Columns>
    static void addBlock(const MatrixBlock& matrix, const ActivationBlock& activations,
                         float (&sums)[Columns][outputsPerPanel])
    {
        constexpr std::size_t outputPairs = outputsPerPanel / 2;
        constexpr std::size_t columnPairs = (Columns + 1) / 2;
        int32x4_t dots[columnPairs][outputPairs] = {};
        for (std::size_t step = 0; step < steps; ++step) {
            int8x16_t columns[columnPairs];
#pragma GCC unroll 3
            for (std::size_t c = 0; c < columnPairs; ++c)
                columns[c] = vld1q_s8(activations.values[step][2 * c]);
#pragma GCC unroll 8
            for (std::size_t o = 0; o < outputPairs; ++o) {
                const int8x16_t outputs = vld1q_s8(matrix.values[step][2 * o]);
#pragma GCC unroll 3
                for (std::size_t c = 0; c < columnPairs; ++c)
                    dots[c][o] = vmmlaq_s32(dots[c][o], outputs, columns[c]);
            }
        }
#pragma GCC unroll 6
        for (std::size_t c = 0; c < Columns; ++c) {
#pragma GCC unroll 4
            for (std::size_t o = 0; o < outputsPerPanel; o += lanes) {
                const int32x4_t first = dots[c / 2][o / 2];
                const int32x4_t second = dots[c / 2][o / 2 + 1];
                addScaled(c % 2 == 0 ? vuzp1q_s32(first, second) : vuzp2q_s32(first, second),
                          vld1q_f32(matrix.scales + o), activations.scales[c], sums[c] + o);
            }
        }
    }
#else
    template <int Lane, std::size_t Columns>
    static void addColumn(const int8x16_t (&outputs)[4], int8x16_t columns, int32x4_t (&dots)[Columns][4])
    {
        constexpr std::size_t column = Lane;
        if constexpr (column < Columns) {
#pragma GCC unroll 4
            for (std::size_t o = 0; o < 4; ++o)
                dots[column][o] = vdotq_laneq_s32(dots[column][o], outputs[o], columns, Lane % 4);
        }
    }

    template <std::size_t Columns>
    static void addBlock(const MatrixBlock& matrix, const ActivationBlock& activations,
                         float (&sums)[Columns][outputsPerPanel])
    {
        int32x4_t dots[Columns][4] = {};
        for (std::size_t step = 0; step < steps; ++step) {
            const int8x16_t outputs[] = {vld1q_s8(matrix.values[step][0]), vld1q_s8(matrix.values[step][4]),
                                         vld1q_s8(matrix.values[step][8]), vld1q_s8(matrix.values[step][12])};
            const int8x16_t first = vld1q_s8(activations.values[step][0]);
            const int8x16_t second = vld1q_s8(activations.values[step][4]);
            addColumn<0>(outputs, first, dots);
            addColumn<1>(outputs, first, dots);
            addColumn<2>(outputs, first, dots);
            addColumn<3>(outputs, first, dots);
            addColumn<4>(outputs, second, dots);
            addColumn<5>(outputs, second, dots);
        }
#pragma GCC unroll 6
        for (std::size_t c = 0; c < Columns; ++c) {
#pragma GCC unroll 4
            for (std::size_t o = 0; o < 4; ++o)
                addScaled(dots[c][o], vld1q_f32(matrix.scales + o * lanes), activations.scales[c], sums[c] + o * lanes);
        }
    }
#endif
};

/// A q8_0 block: a scale and 32 bytes.
struct StoredBytes
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + blockInputs;

    static Bytes read(const unsigned char* stored)
    {
        const auto* values = reinterpret_cast<const std::int8_t*>(stored);
        return {vld1q_s8(values), vld1q_s8(values + blockInputs / 2)};
    }
};

/// A q4_0 block: a scale and 32 numbers of 4 bits with an offset of -8; first all low halves, then all high ones.
struct StoredNibbles
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + blockInputs / 2;

    static Bytes read(const unsigned char* stored)
    {
        const uint8x16_t pairs = vld1q_u8(stored);
        const int8x16_t offset = vdupq_n_s8(8);
        return {vsubq_s8(vreinterpretq_s8_u8(vandq_u8(pairs, vdupq_n_u8(0x0F))), offset),
                vsubq_s8(vreinterpretq_s8_u8(vshrq_n_u8(pairs, 4)), offset)};
    }
};

/// A q5_0 block: a scale, the fifth bits of 32 numbers, and their lower four bits, with an offset of -16.
struct StoredFiveBits
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + sizeof(std::uint32_t) + blockInputs / 2;

    /// 16 where the bit of two bytes is missing: the offset, which the fifth bit cancels out.
    static int8x16_t missing(const unsigned char* bits)
    {
        const uint8x16_t bitOfByte = vreinterpretq_u8_u64(vdupq_n_u64(0x8040201008040201));
        const uint8x16_t spread = vcombine_u8(vdup_n_u8(bits[0]), vdup_n_u8(bits[1]));
        return vreinterpretq_s8_u8(vbicq_u8(vdupq_n_u8(16), vtstq_u8(spread, bitOfByte)));
    }
    static Bytes read(const unsigned char* stored)
    {
        const uint8x16_t pairs = vld1q_u8(stored + sizeof(std::uint32_t));
        return {vsubq_s8(vreinterpretq_s8_u8(vandq_u8(pairs, vdupq_n_u8(0x0F))), missing(stored)),
                vsubq_s8(vreinterpretq_s8_u8(vshrq_n_u8(pairs, 4)), missing(stored + 2))};
    }
};

} // namespace

#ifdef __ARM_FEATURE_MATMUL_INT8
const StoredIntegerMatrices& matrixProductMatrices()
#else
const StoredIntegerMatrices& dotProductMatrices()
#endif
{
    static constexpr StoredIntegerMatrices matrices = {
        kernelsOf<Layout, StoredBytes>, kernelsOf<Layout, StoredFiveBits>, kernelsOf<Layout, StoredNibbles>};
    return matrices;
}

} // namespace vantro::asr::kernels
