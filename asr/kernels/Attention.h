#pragma once

#include "asr/kernels/Kernels.h"

#include <cstddef>
#include <cstdint>

/// Soft-max attention with heads of 64 values. ggml multiplies queries with keys and weights with values as float32.
namespace vantro::asr::kernels {

inline constexpr std::size_t headSize = 64;
/// The number of keys is a multiple of it.
inline constexpr std::size_t keyStep = 32;

/// Rows of 64 values of one head, @p stride elements apart.
template <typename Element>
struct HeadRows
{
    Element* first = nullptr;
    std::size_t stride = 0;
    std::size_t count = 0;

    // Always inlined, as no function may be shared between files that are compiled for different processors.
    [[nodiscard, gnu::always_inline]] Element* row(std::size_t index) const { return first + index * stride; }
};

/// Keys and values are float16 and packed once for all queries of their head.
struct AttentionKernels
{
    std::size_t (*packedBytes)(std::size_t keys);
    void (*pack)(const HeadRows<const std::uint16_t>& keys, const HeadRows<const std::uint16_t>& values, void* target);
    std::size_t (*scratchBytes)(std::size_t keys);
    /// Each query's mean of the values, weighted by the soft-max of @p scale * query * key. @p packed and @p scratch
    /// are aligned to 64 bytes; as many results as queries.
    void (*attend)(const HeadRows<const float>& queries, const void* packed, std::size_t keys, float scale,
                   void* scratch, const HeadRows<float>& results);
};

/// The best up to @p cap that this processor has; null if it has none.
const AttentionKernels* attentionKernels(Level cap = highestLevel);

const AttentionKernels& avx2Attention();     ///< requires AVX2 with FMA and F16C
const AttentionKernels& bfloat16Attention(); ///< requires AVX-512 with BF16

} // namespace vantro::asr::kernels
