#pragma once

// Blocks of 32 weights as stored in a model file, as integers with one scale. Only for Matrix256.cpp: what is inline
// here may use the instructions that it is compiled for.

#include "asr/kernels/StoredProduct.h"

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t lanes = 8;

/// 32 values and what they are rounded by.
struct Rounding
{
    __m256 values[blockInputs / lanes];
    float scale = 0;
    float inverse = 0;

    /// @p reach: the largest absolute value becomes it.
    [[gnu::always_inline]] explicit Rounding(const __m256 (&source)[blockInputs / lanes], float reach)
    {
        const __m256 sign = _mm256_set1_ps(-0.0F);
        __m256 largest = _mm256_setzero_ps();
        for (std::size_t i = 0; i < blockInputs / lanes; ++i) {
            values[i] = source[i];
            largest = _mm256_max_ps(largest, _mm256_andnot_ps(sign, source[i]));
        }
        __m128 quarter = _mm_max_ps(_mm256_castps256_ps128(largest), _mm256_extractf128_ps(largest, 1));
        quarter = _mm_max_ps(quarter, _mm_movehl_ps(quarter, quarter));
        const float peak = _mm_cvtss_f32(_mm_max_ss(quarter, _mm_movehdup_ps(quarter)));
        scale = peak / reach;
        inverse = peak > 0 ? reach / peak : 0.0F;
    }
    [[nodiscard]] __m256i rounded(std::size_t index) const
    {
        return _mm256_cvtps_epi32(_mm256_mul_ps(values[index], _mm256_set1_ps(inverse)));
    }
};

#ifdef __AVXVNNI__
/// Added to bytes, which are unsigned in one operand of their dot product.
constexpr std::int32_t byteOffset = 128;

void widen(__m256i bytes, __m256i (&shifted)[1])
{
    shifted[0] = _mm256_xor_si256(bytes, _mm256_set1_epi8(static_cast<char>(byteOffset))); // adds it modulo 256
}
#else
/// 32 bytes as words.
void widen(__m256i bytes, __m256i (&words)[2])
{
    words[0] = _mm256_cvtepi8_epi16(_mm256_castsi256_si128(bytes));
    words[1] = _mm256_cvtepi8_epi16(_mm256_extracti128_si256(bytes, 1));
}
#endif

/// Blocks that begin with their scale, in float16. @p Values: reads 32 bytes of them.
template <typename Values>
struct Scaled
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + Values::bytes;

    template <std::size_t Parts>
    static float unpack(const unsigned char* block, __m256i (&values)[Parts])
    {
        std::uint16_t half = 0;
        std::memcpy(&half, block, sizeof half);
        widen(Values::read(block + sizeof half), values);
        return _cvtsh_ss(half);
    }
};

/// Of a q8_0 block.
struct StoredBytes
{
    static constexpr std::size_t bytes = blockInputs;

    static __m256i read(const unsigned char* stored)
    {
        return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(stored));
    }
};

/// Unpacks 32 nibbles (0 to 15) from 16 bytes: first all low ones, then all high ones.
__m256i nibbles(const unsigned char* stored)
{
    const __m128i pairs = _mm_loadu_si128(reinterpret_cast<const __m128i*>(stored));
    return _mm256_and_si256(_mm256_set_m128i(_mm_srli_epi16(pairs, 4), pairs), _mm256_set1_epi8(0x0F));
}

/// Of a q4_0 block: 32 numbers of 4 bits with an offset of -8.
struct StoredNibbles
{
    static constexpr std::size_t bytes = blockInputs / 2;

    static __m256i read(const unsigned char* stored) { return _mm256_sub_epi8(nibbles(stored), _mm256_set1_epi8(8)); }
};

/// 0xFF where the bit is set.
__m256i bytesOfBits(std::uint32_t bits)
{
    const __m256i byteOfBit = _mm256_setr_epi64x(0, 0x0101010101010101, 0x0202020202020202, 0x0303030303030303);
    const __m256i bitOfByte = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
    const __m256i spread = _mm256_shuffle_epi8(_mm256_set1_epi32(static_cast<int>(bits)), byteOfBit);
    return _mm256_cmpeq_epi8(_mm256_and_si256(spread, bitOfByte), bitOfByte);
}

/// Of a q5_0 block: the fifth bits of 32 numbers, and their lower four bits, with an offset of -16.
struct StoredFiveBits
{
    static constexpr std::size_t bytes = sizeof(std::uint32_t) + blockInputs / 2;

    static __m256i read(const unsigned char* stored)
    {
        std::uint32_t fifth = 0;
        std::memcpy(&fifth, stored, sizeof fifth);
        // Where the fifth bit is set, it and the offset cancel out.
        const __m256i missing = _mm256_andnot_si256(bytesOfBits(fifth), _mm256_set1_epi8(16));
        return _mm256_sub_epi8(nibbles(stored + sizeof fifth), missing);
    }
};

/// 32 float16, rounded to integers with one scale.
struct StoredHalves
{
    static constexpr std::size_t bytes = blockInputs * sizeof(std::uint16_t);
    static constexpr float largest = 8191;

    static float unpack(const unsigned char* block, __m256i (&values)[2])
    {
        __m256 wide[blockInputs / lanes];
#pragma GCC unroll 4
        for (std::size_t i = 0; i < blockInputs / lanes; ++i)
            wide[i] = _mm256_cvtph_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(block) + i));
        const Rounding rounding(wide, largest);
        // Packing interleaves their halves.
        values[0] = _mm256_permute4x64_epi64(_mm256_packs_epi32(rounding.rounded(0), rounding.rounded(1)), 0xD8);
        values[1] = _mm256_permute4x64_epi64(_mm256_packs_epi32(rounding.rounded(2), rounding.rounded(3)), 0xD8);
        return rounding.scale;
    }
};

} // namespace

} // namespace vantro::asr::kernels
