#pragma once

// Panels of float16 as pairs of bfloat16. Only for files compiled for AVX-512 with BF16: what is inline here may use
// its instructions.

#include "asr/kernels/Matrix.h"

#include <immintrin.h>

#include <cstddef>
#include <cstdint>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t lanes = 16;

/// 32 float16 as 16 pairs of bfloat16.
__m512i pairsOf(const unsigned char* halves)
{
    const auto* source = reinterpret_cast<const __m256i*>(halves);
    return (__m512i)_mm512_cvtne2ps_pbh(_mm512_cvtph_ps(_mm256_loadu_si256(source + 1)),
                                        _mm512_cvtph_ps(_mm256_loadu_si256(source)));
}

/// Element j of row i becomes element i of row j.
void transpose(__m512i (&rows)[lanes])
{
    __m512i mixed[lanes];
#pragma GCC unroll 8
    for (std::size_t i = 0; i < lanes; i += 2) {
        mixed[i] = _mm512_unpacklo_epi32(rows[i], rows[i + 1]);
        mixed[i + 1] = _mm512_unpackhi_epi32(rows[i], rows[i + 1]);
    }
#pragma GCC unroll 4
    for (std::size_t i = 0; i < lanes; i += 4) {
        rows[i] = _mm512_unpacklo_epi64(mixed[i], mixed[i + 2]);
        rows[i + 1] = _mm512_unpackhi_epi64(mixed[i], mixed[i + 2]);
        rows[i + 2] = _mm512_unpacklo_epi64(mixed[i + 1], mixed[i + 3]);
        rows[i + 3] = _mm512_unpackhi_epi64(mixed[i + 1], mixed[i + 3]);
    }
    // Each row now has four quarters, from columns i, 4 + i, 8 + i and 12 + i, each with four of the original rows.
    constexpr int even = 0x88;
    constexpr int odd = 0xdd;
#pragma GCC unroll 4
    for (std::size_t i = 0; i < 4; ++i) {
        const __m512i evenLow = _mm512_shuffle_i32x4(rows[i], rows[4 + i], even);
        const __m512i evenHigh = _mm512_shuffle_i32x4(rows[8 + i], rows[12 + i], even);
        const __m512i oddLow = _mm512_shuffle_i32x4(rows[i], rows[4 + i], odd);
        const __m512i oddHigh = _mm512_shuffle_i32x4(rows[8 + i], rows[12 + i], odd);
        rows[i] = _mm512_shuffle_i32x4(evenLow, evenHigh, even);
        rows[4 + i] = _mm512_shuffle_i32x4(oddLow, oddHigh, even);
        rows[8 + i] = _mm512_shuffle_i32x4(evenLow, evenHigh, odd);
        rows[12 + i] = _mm512_shuffle_i32x4(oddLow, oddHigh, odd);
    }
}

/// Rows of float16 in a file, unaligned.
struct Rows
{
    const unsigned char* first = nullptr;
    std::size_t rowBytes = 0;
    std::size_t count = 0;

    [[nodiscard]] Rows from(std::size_t input) const
    {
        return {first + input * sizeof(std::uint16_t), rowBytes, count};
    }
};

/// Packs 16 outputs of a panel, writing whole cache lines. Missing outputs become zeros.
void packOutputs(const Rows& rows, std::size_t inputs, std::uint32_t* panel)
{
    for (std::size_t input = 0; input < inputs; input += 2 * lanes) {
        __m512i block[lanes];
#pragma GCC unroll 16
        for (std::size_t i = 0; i < lanes; ++i)
            block[i] = i < rows.count ? pairsOf(rows.first + i * rows.rowBytes + input * sizeof(std::uint16_t))
                                      : _mm512_setzero_si512();
        transpose(block);
#pragma GCC unroll 16
        for (std::size_t pair = 0; pair < lanes; ++pair)
            _mm512_storeu_si512(panel + (input / 2 + pair) * panelOutputs, block[pair]);
    }
}

/// The first @p inputs of up to 32 rows.
void packPanel(const Rows& rows, std::size_t inputs, std::uint32_t* panel)
{
    const std::size_t low = rows.count < lanes ? rows.count : lanes;
    packOutputs({rows.first, rows.rowBytes, low}, inputs, panel);
    packOutputs({rows.first + low * rows.rowBytes, rows.rowBytes, rows.count - low}, inputs, panel + lanes);
}

} // namespace

} // namespace vantro::asr::kernels
