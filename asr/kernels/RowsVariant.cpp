// Compiled once per instruction-set level, named by VANTRO_ASR_LEVEL. Like KernelsVariant.cpp, it must not share inline
// functions with other files.
#include "asr/kernels/FastExp.h"
#include "asr/kernels/Rows.h"

#include <cstring>

#ifdef __F16C__
#include <immintrin.h>
#endif

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t lanes = 16;

void gelu(const Tile& tile)
{
    constexpr float twiceRoot = 1.59576912F; // 2 * sqrt(2 / pi)
    constexpr float cubic = 0.044715F;
    for (std::size_t row = 0; row < tile.rows; ++row) {
        float* values = tile.values + row * tile.stride;
        for (std::size_t i = 0; i < tile.width; ++i) {
            const float x = values[i];
            values[i] = x / (1.0F + fastExp(-twiceRoot * x * (1.0F + cubic * x * x)));
        }
    }
}

void add(const Tile& tile, const float* others)
{
    for (std::size_t row = 0; row < tile.rows; ++row) {
        float* values = tile.values + row * tile.stride;
        const float* added = others + row * tile.stride;
        for (std::size_t i = 0; i < tile.width; ++i)
            values[i] += added[i];
    }
}

/// The sum of @p term of each value, in as many partial sums as registers have lanes.
template <typename Term>
float sumOf(const float* source, std::size_t size, Term term)
{
    float sums[lanes] = {};
    std::size_t i = 0;
    for (; i + lanes <= size; i += lanes) {
        for (std::size_t lane = 0; lane < lanes; ++lane)
            sums[lane] += term(source[i + lane]);
    }
    float sum = 0;
    for (; i < size; ++i)
        sum += term(source[i]);
    for (const float part : sums)
        sum += part;
    return sum;
}

void normalise(const float* source, std::size_t size, const Normalisation& normalisation, float* result)
{
    const auto count = static_cast<float>(size);
    const float mean = sumOf(source, size, [](float value) { return value; }) / count;
    const float variance = sumOf(source, size, [mean](float value) { return (value - mean) * (value - mean); }) / count;
    const float factor = 1.0F / __builtin_sqrtf(variance + normalisation.epsilon);
    if (normalisation.scale == nullptr) {
        for (std::size_t i = 0; i < size; ++i)
            result[i] = (source[i] - mean) * factor;
        return;
    }
    for (std::size_t i = 0; i < size; ++i)
        result[i] = (source[i] - mean) * factor * normalisation.scale[i] + normalisation.shift[i];
}

#if defined(__F16C__) || defined(__ARM_FP16_FORMAT_IEEE)
constexpr std::size_t blockFrames = 64;

#if defined(__F16C__)
void toFloat16(const float* source, std::size_t count, std::uint16_t* target)
{
    std::size_t i = 0;
    for (; i + 8 <= count; i += 8)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(target + i),
                         _mm256_cvtps_ph(_mm256_loadu_ps(source + i), _MM_FROUND_TO_NEAREST_INT));
    for (; i < count; ++i)
        target[i] = _cvtss_sh(source[i], _MM_FROUND_TO_NEAREST_INT);
}
#else
void toFloat16(const float* source, std::size_t count, std::uint16_t* target)
{
    for (std::size_t i = 0; i < count; ++i) {
        const auto half = static_cast<__fp16>(source[i]);
        std::memcpy(target + i, &half, sizeof half);
    }
}
#endif

/// The part of a channel from @p begin on, which may lie outside of it, as float16.
void halvesOf(const float* channel, std::size_t frames, std::ptrdiff_t begin, std::size_t count, std::uint16_t* halves)
{
    const std::size_t before = begin < 0 ? static_cast<std::size_t>(-begin) : 0;
    const std::size_t inside = frames - static_cast<std::size_t>(begin + static_cast<std::ptrdiff_t>(before));
    const std::size_t used = before > count ? 0 : (count - before < inside ? count - before : inside);
    std::memset(halves, 0, count * sizeof *halves);
    toFloat16(channel + begin + static_cast<std::ptrdiff_t>(before), used, halves + before);
}

void unfold(const Unfolding& unfolding, std::size_t first, std::size_t end, std::uint16_t* target)
{
    std::uint16_t halves[blockFrames * mostStride + mostTaps];
    const std::size_t width = unfolding.channels * unfolding.taps;
    for (std::size_t block = first; block < end; block += blockFrames) {
        const std::size_t count = end - block < blockFrames ? end - block : blockFrames;
        const auto begin =
            static_cast<std::ptrdiff_t>(block * unfolding.stride) - static_cast<std::ptrdiff_t>(unfolding.padding);
        for (std::size_t channel = 0; channel < unfolding.channels; ++channel) {
            halvesOf(unfolding.source + channel * unfolding.frames, unfolding.frames, begin,
                     (count - 1) * unfolding.stride + unfolding.taps, halves);
            for (std::size_t frame = 0; frame < count; ++frame) {
                std::uint16_t* taps = target + (block + frame) * width + channel * unfolding.taps;
                for (std::size_t tap = 0; tap < unfolding.taps; ++tap)
                    taps[tap] = halves[frame * unfolding.stride + tap];
            }
        }
    }
}
#else
constexpr decltype(RowKernels::toFloat16) toFloat16 = nullptr;
constexpr decltype(RowKernels::unfold) unfold = nullptr;
#endif

#ifdef __F16C__
#ifdef __AVX512F__
using Vector = __m512;
constexpr std::size_t width = 16;

Vector halvesAt(const std::uint16_t* halves)
{
    return _mm512_cvtph_ps(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(halves)));
}

Vector at(const float* values)
{
    return _mm512_loadu_ps(values);
}

float total(Vector sum)
{
    return _mm512_reduce_add_ps(sum);
}
#else
using Vector = __m256;
constexpr std::size_t width = 8;

Vector halvesAt(const std::uint16_t* halves)
{
    return _mm256_cvtph_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(halves)));
}

Vector at(const float* values)
{
    return _mm256_loadu_ps(values);
}

float total(Vector sum)
{
    __m128 half = _mm_add_ps(_mm256_castps256_ps128(sum), _mm256_extractf128_ps(sum, 1));
    half = _mm_add_ps(half, _mm_movehl_ps(half, half));
    return _mm_cvtss_f32(_mm_add_ss(half, _mm_movehdup_ps(half)));
}
#endif

constexpr std::size_t headVectors = 64 / width;

void toFloat32(const std::uint16_t* source, std::size_t count, float* target)
{
    for (std::size_t i = 0; i < count; ++i)
        target[i] = _cvtsh_ss(source[i]);
}

/// Of a multiple of 32 values. Four sums, or each addition would wait for the one before it.
float dot(const std::uint16_t* halves, const float* values, std::size_t count)
{
    Vector sums[4] = {};
    for (std::size_t i = 0; i < count; i += 2 * width) {
        sums[0] += halvesAt(halves + i) * at(values + i);
        sums[1] += halvesAt(halves + i + width) * at(values + i + width);
        if (i += 2 * width; i >= count)
            break;
        sums[2] += halvesAt(halves + i) * at(values + i);
        sums[3] += halvesAt(halves + i + width) * at(values + i + width);
    }
    return total((sums[0] + sums[1]) + (sums[2] + sums[3]));
}

/// Row by row, since memory is read fastest in one go.
void multiplyFew(const FewColumns& product, std::size_t first, std::size_t end)
{
    for (std::size_t output = first; output < end; ++output) {
        const std::uint16_t* row = product.matrix + output * product.inputs;
        const float bias = product.bias != nullptr ? product.bias[output] : 0.0F;
        for (std::size_t column = 0; column < product.count; ++column)
            product.result[column * product.outputs + output] =
                bias + dot(row, product.columns + column * product.inputs, product.inputs);
    }
}

/// The scores of all keys; returns the largest.
float score(const Query& query)
{
    Vector values[headVectors];
    for (std::size_t i = 0; i < headVectors; ++i)
        values[i] = at(query.values + i * width);
    float largest = -__builtin_inff();
    for (std::size_t key = 0; key < query.count; ++key) {
        Vector sum = {};
        for (std::size_t i = 0; i < headVectors; ++i)
            sum += values[i] * halvesAt(query.keys + key * query.keyStride + i * width);
        float result = query.scale * total(sum);
        if (query.mask != nullptr)
            result += _cvtsh_ss(query.mask[key]);
        query.weights[key] = result;
        largest = result > largest ? result : largest;
    }
    return largest;
}

void attend(const Query& query)
{
    const float largest = score(query);
    for (std::size_t key = 0; key < query.count; ++key)
        query.weights[key] = fastExp(query.weights[key] - largest);
    Vector sums[headVectors] = {};
    float whole = 0;
    for (std::size_t key = 0; key < query.count; ++key) {
        const float weight = query.weights[key];
        whole += weight;
        for (std::size_t i = 0; i < headVectors; ++i)
            sums[i] += weight * halvesAt(query.headValues + key * query.valueStride + i * width);
    }
    for (std::size_t i = 0; i < headVectors; ++i) {
        sums[i] /= whole;
        std::memcpy(query.result + i * width, &sums[i], sizeof sums[i]);
    }
}
#else
constexpr decltype(RowKernels::toFloat32) toFloat32 = nullptr;
constexpr decltype(RowKernels::multiplyFew) multiplyFew = nullptr;
constexpr decltype(RowKernels::attend) attend = nullptr;
#endif

} // namespace

const RowKernels& VANTRO_ASR_LEVEL()
{
    static const RowKernels kernels{gelu, add, normalise, toFloat16, unfold, toFloat32, multiplyFew, attend};
    return kernels;
}

} // namespace vantro::asr::kernels
