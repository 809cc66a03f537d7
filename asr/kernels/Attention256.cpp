// Compiled for AVX2 with FMA and F16C; like KernelsVariant.cpp, it must not share inline functions with other files.
//
// Everything is multiplied as float32; keys and values stay float16 in the cache. Keys: panels of 16, for each of the
// head's values that of each key. 24 queries at a time are multiplied by all keys, 6 by a panel in registers.
#include "asr/kernels/Attention.h"

#include <immintrin.h>

#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t lanes = 8;
constexpr std::size_t tileQueries = 24;
constexpr std::size_t group = 6; ///< queries at a time
constexpr std::size_t panelKeys = 2 * lanes;
constexpr std::size_t blockKeys = 128; ///< whose values, 16 KiB, stay in the first cache

std::size_t packedBytes(std::size_t keys)
{
    return 2 * keys * headSize * sizeof(std::uint16_t);
}

void pack(const HeadRows<const std::uint16_t>& keys, const HeadRows<const std::uint16_t>& values, void* target)
{
    auto* packed = static_cast<std::uint16_t*>(target);
    for (std::size_t panel = 0; panel < keys.count; panel += panelKeys) {
        for (std::size_t i = 0; i < headSize; ++i) {
            for (std::size_t key = 0; key < panelKeys; ++key)
                packed[panel * headSize + i * panelKeys + key] = keys.row(panel + key)[i];
        }
    }
    packed += keys.count * headSize;
    for (std::size_t key = 0; key < values.count; ++key)
        std::memcpy(packed + key * headSize, values.row(key), headSize * sizeof(std::uint16_t));
}

struct Tile
{
    float queries[tileQueries][headSize];
    float results[tileQueries][headSize];
    float sums[tileQueries];
    float* scores; ///< [query][key], in powers of two; then the weights
    std::size_t keys;
};

std::size_t scratchBytes(std::size_t keys)
{
    return tileQueries * keys * sizeof(float);
}

/// Missing queries become zeros.
void takeQueries(const HeadRows<const float>& queries, std::size_t first, float scale, Tile& tile)
{
    std::memset(tile.queries, 0, sizeof tile.queries);
    std::memset(tile.results, 0, sizeof tile.results);
    for (std::size_t query = 0; query < tileQueries && first + query < queries.count; ++query) {
        for (std::size_t i = 0; i < headSize; ++i)
            tile.queries[query][i] = scale * queries.row(first + query)[i];
    }
}

__m256 widened(const std::uint16_t* halves)
{
    return _mm256_cvtph_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(halves)));
}

/// Adds @p count products of 6 rows of factors, @p stride apart, with rows of 16 float16, @p width apart.
void addProducts(const float* factors, std::size_t stride, const std::uint16_t* halves, std::size_t width,
                 std::size_t count, __m256 (&sums)[group][2])
{
    for (std::size_t i = 0; i < count; ++i) {
        const __m256 first = widened(halves + i * width);
        const __m256 second = widened(halves + i * width + lanes);
#pragma GCC unroll 6
        for (std::size_t row = 0; row < group; ++row) {
            const __m256 factor = _mm256_broadcast_ss(factors + row * stride + i);
            sums[row][0] = _mm256_fmadd_ps(factor, first, sums[row][0]);
            sums[row][1] = _mm256_fmadd_ps(factor, second, sums[row][1]);
        }
    }
}

void scorePanel(const std::uint16_t* panel, std::size_t key, Tile& tile)
{
    for (std::size_t first = 0; first < tileQueries; first += group) {
        __m256 sums[group][2];
#pragma GCC unroll 6
        for (std::size_t row = 0; row < group; ++row)
            sums[row][0] = sums[row][1] = _mm256_setzero_ps();
        addProducts(tile.queries[first], headSize, panel, panelKeys, headSize, sums);
#pragma GCC unroll 6
        for (std::size_t row = 0; row < group; ++row) {
            float* scores = tile.scores + (first + row) * tile.keys + key;
            _mm256_storeu_ps(scores, sums[row][0]);
            _mm256_storeu_ps(scores + lanes, sums[row][1]);
        }
    }
}

/// 2^x within 3e-6 for x up to 0, at least 2^-126: the Taylor series.
__m256 powerOfTwo(__m256 x)
{
    x = _mm256_max_ps(x, _mm256_set1_ps(-126.0F));
    const __m256 whole = _mm256_round_ps(x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const __m256 rest = _mm256_sub_ps(x, whole);
    __m256 power = _mm256_set1_ps(0.00133336F);
    power = _mm256_fmadd_ps(power, rest, _mm256_set1_ps(0.00961813F));
    power = _mm256_fmadd_ps(power, rest, _mm256_set1_ps(0.05550411F));
    power = _mm256_fmadd_ps(power, rest, _mm256_set1_ps(0.24022651F));
    power = _mm256_fmadd_ps(power, rest, _mm256_set1_ps(0.69314718F));
    power = _mm256_fmadd_ps(power, rest, _mm256_set1_ps(1.0F));
    const __m256i exponent = _mm256_slli_epi32(_mm256_cvtps_epi32(whole), 23);
    return _mm256_castsi256_ps(_mm256_add_epi32(_mm256_castps_si256(power), exponent));
}

float largestOf(const float* scores, std::size_t count)
{
    __m256 largest = _mm256_loadu_ps(scores);
    for (std::size_t key = lanes; key < count; key += lanes)
        largest = _mm256_max_ps(largest, _mm256_loadu_ps(scores + key));
    float values[lanes];
    _mm256_storeu_ps(values, largest);
    float result = values[0];
    for (const float value : values)
        result = value > result ? value : result;
    return result;
}

void weigh(Tile& tile)
{
    for (std::size_t query = 0; query < tileQueries; ++query) {
        float* scores = tile.scores + query * tile.keys;
        const __m256 largest = _mm256_set1_ps(largestOf(scores, tile.keys));
        __m256 sum = _mm256_setzero_ps();
        for (std::size_t key = 0; key < tile.keys; key += lanes) {
            const __m256 weight = powerOfTwo(_mm256_sub_ps(_mm256_loadu_ps(scores + key), largest));
            _mm256_storeu_ps(scores + key, weight);
            sum = _mm256_add_ps(sum, weight);
        }
        float values[lanes];
        _mm256_storeu_ps(values, sum);
        tile.sums[query] = 0;
        for (const float value : values)
            tile.sums[query] += value;
    }
}

/// Adds what a block of values, which begins at @p key, contributes to 6 queries.
void mixBlock(const std::uint16_t* values, std::size_t key, std::size_t count, std::size_t first, Tile& tile)
{
    const float* weights = tile.scores + first * tile.keys + key;
    for (std::size_t i = 0; i < headSize; i += 2 * lanes) {
        __m256 sums[group][2];
#pragma GCC unroll 6
        for (std::size_t row = 0; row < group; ++row) {
            sums[row][0] = _mm256_loadu_ps(tile.results[first + row] + i);
            sums[row][1] = _mm256_loadu_ps(tile.results[first + row] + i + lanes);
        }
        addProducts(weights, tile.keys, values + key * headSize + i, headSize, count, sums);
#pragma GCC unroll 6
        for (std::size_t row = 0; row < group; ++row) {
            _mm256_storeu_ps(tile.results[first + row] + i, sums[row][0]);
            _mm256_storeu_ps(tile.results[first + row] + i + lanes, sums[row][1]);
        }
    }
}

void mixValues(const std::uint16_t* values, Tile& tile)
{
    for (std::size_t key = 0; key < tile.keys; key += blockKeys) {
        const std::size_t count = tile.keys - key < blockKeys ? tile.keys - key : blockKeys;
        for (std::size_t first = 0; first < tileQueries; first += group)
            mixBlock(values, key, count, first, tile);
    }
}

void putResults(const Tile& tile, std::size_t first, const HeadRows<float>& results)
{
    for (std::size_t query = 0; query < tileQueries && first + query < results.count; ++query) {
        for (std::size_t i = 0; i < headSize; ++i)
            results.row(first + query)[i] = tile.results[query][i] / tile.sums[query];
    }
}

void attend(const HeadRows<const float>& queries, const void* packed, std::size_t keys, float scale, void* scratch,
            const HeadRows<float>& results)
{
    constexpr float log2OfE = 1.44269504F;
    const auto* panels = static_cast<const std::uint16_t*>(packed);
    Tile tile;
    tile.scores = static_cast<float*>(scratch);
    tile.keys = keys;
    for (std::size_t query = 0; query < queries.count; query += tileQueries) {
        takeQueries(queries, query, scale * log2OfE, tile);
        for (std::size_t key = 0; key < keys; key += panelKeys)
            scorePanel(panels + key * headSize, key, tile);
        weigh(tile);
        mixValues(panels + keys * headSize, tile);
        putResults(tile, query, results);
    }
}

} // namespace

const AttentionKernels& avx2Attention()
{
    static const AttentionKernels kernels{packedBytes, pack, scratchBytes, attend};
    return kernels;
}

} // namespace vantro::asr::kernels
