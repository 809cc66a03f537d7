// Compiled for AVX-512 with BF16; like KernelsVariant.cpp, it must not share inline functions with other files.
//
// Keys: panels of 32, laid out as matrices in Bfloat16Matrix.cpp. Values: for each pair of keys, the pair of each of
// the head's 64 values. 12 queries at a time are multiplied by all keys; their weights, as bfloat16, by all values.
#include "asr/kernels/Attention.h"
#include "asr/kernels/Bfloat16Panels.h"

#include <immintrin.h>

#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t tileQueries = 12;
constexpr std::size_t halfTile = tileQueries / 2;
constexpr std::size_t headPairs = headSize / 2;
constexpr std::size_t vectors = headSize / lanes; ///< per row of a head
constexpr std::size_t panelPairs = keyStep * headPairs;

std::size_t packedBytes(std::size_t keys)
{
    return 2 * keys * headSize * sizeof(std::uint16_t);
}

void packKeys(const HeadRows<const std::uint16_t>& keys, std::uint32_t* target)
{
    for (std::size_t key = 0; key < keys.count; key += keyStep)
        packPanel({reinterpret_cast<const unsigned char*>(keys.row(key)), keys.stride * sizeof(std::uint16_t), keyStep},
                  headSize, target + key * headPairs);
}

/// 16 float16 as bfloat16, each in the lower half of a lane.
__m512i rounded(const std::uint16_t* halves)
{
    const __m512 values = _mm512_cvtph_ps(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(halves)));
    return _mm512_cvtepu16_epi32((__m256i)_mm512_cvtneps_pbh(values));
}

void packValues(const HeadRows<const std::uint16_t>& values, std::uint32_t* target)
{
    for (std::size_t key = 0; key < values.count; key += 2) {
        for (std::size_t i = 0; i < headSize; i += lanes) {
            const __m512i high = _mm512_slli_epi32(rounded(values.row(key + 1) + i), 16);
            _mm512_storeu_si512(target + key / 2 * headSize + i, _mm512_or_si512(rounded(values.row(key) + i), high));
        }
    }
}

void pack(const HeadRows<const std::uint16_t>& keys, const HeadRows<const std::uint16_t>& values, void* target)
{
    auto* pairs = static_cast<std::uint32_t*>(target);
    packKeys(keys, pairs);
    packValues(values, pairs + keys.count * headPairs);
}

/// What is kept for a tile of queries.
struct Tile
{
    std::uint32_t queries[tileQueries][headPairs];
    __m512 largest[tileQueries]; ///< scores so far, by lane
    float sums[tileQueries];
    float* scores;          ///< [query][key], in powers of two
    std::uint32_t* weights; ///< [query][pair of keys], bfloat16
    std::size_t keys;
};

std::size_t scratchBytes(std::size_t keys)
{
    return tileQueries * keys * (sizeof(float) + sizeof(std::uint16_t));
}

/// Missing queries become zeros.
void packQueries(const HeadRows<const float>& queries, std::size_t first, float scale, Tile& tile)
{
    const __m512 factor = _mm512_set1_ps(scale);
    for (std::size_t query = 0; query < tileQueries; ++query) {
        tile.largest[query] = _mm512_set1_ps(-__builtin_inff());
        if (first + query >= queries.count) {
            std::memset(tile.queries[query], 0, sizeof tile.queries[query]);
            continue;
        }
        const float* values = queries.row(first + query);
        for (std::size_t i = 0; i < headSize; i += 2 * lanes) {
            const __m512 low = _mm512_mul_ps(_mm512_loadu_ps(values + i), factor);
            const __m512 high = _mm512_mul_ps(_mm512_loadu_ps(values + i + lanes), factor);
            _mm512_storeu_si512(tile.queries[query] + i / 2, (__m512i)_mm512_cvtne2ps_pbh(high, low));
        }
    }
}

__m512bh broadcast(const std::uint32_t* pair)
{
    std::int32_t bits = 0;
    std::memcpy(&bits, pair, sizeof bits);
    return (__m512bh)_mm512_set1_epi32(bits);
}

/// The scores of a panel of keys.
void scorePanel(const std::uint32_t* panel, std::size_t key, Tile& tile)
{
    __m512 sums[tileQueries][2];
#pragma GCC unroll 12
    for (std::size_t query = 0; query < tileQueries; ++query)
        sums[query][0] = sums[query][1] = _mm512_setzero_ps();
    for (std::size_t pair = 0; pair < headPairs; ++pair) {
        const auto first = (__m512bh)_mm512_loadu_si512(panel + pair * keyStep);
        const auto second = (__m512bh)_mm512_loadu_si512(panel + pair * keyStep + lanes);
#pragma GCC unroll 12
        for (std::size_t query = 0; query < tileQueries; ++query) {
            const __m512bh value = broadcast(&tile.queries[query][pair]);
            sums[query][0] = _mm512_dpbf16_ps(sums[query][0], first, value);
            sums[query][1] = _mm512_dpbf16_ps(sums[query][1], second, value);
        }
    }
#pragma GCC unroll 12
    for (std::size_t query = 0; query < tileQueries; ++query) {
        float* scores = tile.scores + query * tile.keys + key;
        _mm512_storeu_ps(scores, sums[query][0]);
        _mm512_storeu_ps(scores + lanes, sums[query][1]);
        tile.largest[query] = _mm512_max_ps(tile.largest[query], _mm512_max_ps(sums[query][0], sums[query][1]));
    }
}

/// 2^x within 5e-5, finer than bfloat16: the Taylor series.
__m512 powerOfTwo(__m512 x)
{
    const __m512 whole = _mm512_roundscale_ps(x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const __m512 rest = _mm512_sub_ps(x, whole);
    __m512 power = _mm512_set1_ps(0.00961813F);
    power = _mm512_fmadd_ps(power, rest, _mm512_set1_ps(0.05550411F));
    power = _mm512_fmadd_ps(power, rest, _mm512_set1_ps(0.24022651F));
    power = _mm512_fmadd_ps(power, rest, _mm512_set1_ps(0.69314718F));
    power = _mm512_fmadd_ps(power, rest, _mm512_set1_ps(1.0F));
    return _mm512_scalef_ps(power, whole);
}

void weigh(Tile& tile)
{
    for (std::size_t query = 0; query < tileQueries; ++query) {
        const float* scores = tile.scores + query * tile.keys;
        std::uint32_t* weights = tile.weights + query * tile.keys / 2;
        const __m512 largest = _mm512_set1_ps(_mm512_reduce_max_ps(tile.largest[query]));
        __m512 sum = _mm512_setzero_ps();
        for (std::size_t key = 0; key < tile.keys; key += 2 * lanes) {
            const __m512 low = powerOfTwo(_mm512_sub_ps(_mm512_loadu_ps(scores + key), largest));
            const __m512 high = powerOfTwo(_mm512_sub_ps(_mm512_loadu_ps(scores + key + lanes), largest));
            sum = _mm512_add_ps(sum, _mm512_add_ps(low, high));
            _mm512_storeu_si512(weights + key / 2, (__m512i)_mm512_cvtne2ps_pbh(high, low));
        }
        tile.sums[query] = _mm512_reduce_add_ps(sum);
    }
}

/// The results of 6 queries.
void mixValues(const std::uint32_t* values, const Tile& tile, std::size_t first, const HeadRows<float>& results,
               std::size_t result)
{
    __m512 sums[halfTile][vectors];
#pragma GCC unroll 6
    for (std::size_t query = 0; query < halfTile; ++query) {
#pragma GCC unroll 4
        for (std::size_t i = 0; i < vectors; ++i)
            sums[query][i] = _mm512_setzero_ps();
    }
    const std::uint32_t* weights = tile.weights + first * tile.keys / 2;
    for (std::size_t pair = 0; pair < tile.keys / 2; ++pair) {
        __m512bh row[vectors];
#pragma GCC unroll 4
        for (std::size_t i = 0; i < vectors; ++i)
            row[i] = (__m512bh)_mm512_loadu_si512(values + pair * headSize + i * lanes);
#pragma GCC unroll 6
        for (std::size_t query = 0; query < halfTile; ++query) {
            const __m512bh weight = broadcast(weights + query * tile.keys / 2 + pair);
#pragma GCC unroll 4
            for (std::size_t i = 0; i < vectors; ++i)
                sums[query][i] = _mm512_dpbf16_ps(sums[query][i], row[i], weight);
        }
    }
#pragma GCC unroll 6
    for (std::size_t query = 0; query < halfTile; ++query) {
        if (result + query >= results.count)
            continue;
        const __m512 share = _mm512_set1_ps(1.0F / tile.sums[first + query]);
#pragma GCC unroll 4
        for (std::size_t i = 0; i < vectors; ++i)
            _mm512_storeu_ps(results.row(result + query) + i * lanes, _mm512_mul_ps(sums[query][i], share));
    }
}

void attend(const HeadRows<const float>& queries, const void* packed, std::size_t keys, float scale, void* scratch,
            const HeadRows<float>& results)
{
    constexpr float log2OfE = 1.44269504F;
    const auto* panels = static_cast<const std::uint32_t*>(packed);
    const std::uint32_t* values = panels + keys * headPairs;
    Tile tile;
    tile.scores = static_cast<float*>(scratch);
    tile.weights = reinterpret_cast<std::uint32_t*>(tile.scores + tileQueries * keys);
    tile.keys = keys;
    for (std::size_t query = 0; query < queries.count; query += tileQueries) {
        packQueries(queries, query, scale * log2OfE, tile);
        for (std::size_t key = 0; key < keys; key += keyStep)
            scorePanel(panels + key / keyStep * panelPairs, key, tile);
        weigh(tile);
        for (std::size_t half = 0; half < tileQueries; half += halfTile)
            mixValues(values, tile, half, results, query + half);
    }
}

} // namespace

const AttentionKernels& bfloat16Attention()
{
    static const AttentionKernels kernels{packedBytes, pack, scratchBytes, attend};
    return kernels;
}

} // namespace vantro::asr::kernels
