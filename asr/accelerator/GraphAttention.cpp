// A graph's soft-max attention.
#include "asr/accelerator/GraphExecution.h"
#include "asr/accelerator/Operations.h"
#include "asr/accelerator/Tensors.h"
#include "asr/kernels/Attention.h"

#include <ggml-impl.h>
#include <ggml.h>

#include <algorithm>
#include <cstdint>

namespace vantro::asr {

namespace {

/// Rows of one head.
template <typename Element>
kernels::HeadRows<Element> headOf(const ggml_tensor& tensor, std::size_t head)
{
    auto* first = static_cast<std::byte*>(tensor.data) + head * tensor.nb[2];
    return {reinterpret_cast<Element*>(first), tensor.nb[1] / sizeof(Element), sizeOf(tensor.ne[1])};
}

} // namespace

void GraphExecution::attendFew(const ggml_tensor& attention)
{
    const ggml_tensor& queries = *attention.src[0];
    const ggml_tensor* mask = attention.src[3];
    const std::size_t heads = sizeOf(queries.ne[2]);
    const std::size_t keyCount = sizeOf(attention.src[1]->ne[1]);
    auto* weights = reinterpret_cast<float*>(workspace_.scratch.reserve(crew_.threads() * keyCount * sizeof(float)));
    const auto attendHead = [&](std::size_t head, std::size_t thread) {
        const auto asked = headOf<const float>(queries, head);
        const auto keys = headOf<const std::uint16_t>(*attention.src[1], head);
        const auto values = headOf<const std::uint16_t>(*attention.src[2], head);
        for (std::size_t query = 0; query < asked.count; ++query) {
            const auto* masked =
                mask != nullptr ? static_cast<const std::byte*>(mask->data) + query * mask->nb[1] : nullptr;
            rows_.attend({.values = asked.row(query),
                          .keys = keys.first,
                          .keyStride = keys.stride,
                          .headValues = values.first,
                          .valueStride = values.stride,
                          .count = keyCount,
                          .mask = reinterpret_cast<const std::uint16_t*>(masked),
                          .scale = ggml_get_op_params_f32(&attention, 0),
                          .weights = weights + thread * keyCount,
                          .result = floats(attention) + (query * heads + head) * kernels::headSize});
        }
    };
    // As in multiplyFew().
    constexpr std::size_t worthSharing = 16'384;
    const bool isShared = heads * keyCount * sizeOf(queries.ne[1]) >= worthSharing;
    share(isShared ? heads : 1, [&](std::size_t piece, std::size_t thread) {
        for (std::size_t head = piece; head < (isShared ? piece + 1 : heads); ++head)
            attendHead(head, thread);
    });
}

void GraphExecution::attend(const ggml_tensor& attention)
{
    if (attention.src[0]->ne[1] < fewRows) {
        attendFew(attention);
        return;
    }
    const kernels::AttentionKernels& attentions = *kernels::attentionKernels(scope_.cap);
    const ggml_tensor& queries = *attention.src[0];
    const ggml_tensor& keys = *attention.src[1];
    const std::size_t heads = sizeOf(queries.ne[2]);
    const std::size_t keyCount = sizeOf(keys.ne[1]);
    const std::size_t headBytes = attentions.packedBytes(keyCount);
    std::byte* packed = workspace_.heads.reserve(heads * headBytes);
    share(heads, [&](std::size_t head, std::size_t) {
        attentions.pack(headOf<const std::uint16_t>(keys, head), headOf<const std::uint16_t>(*attention.src[2], head),
                        packed + head * headBytes);
    });
    constexpr std::size_t pieceQueries = 72;
    const std::size_t count = sizeOf(queries.ne[1]);
    const std::size_t pieces = (count + pieceQueries - 1) / pieceQueries;
    const std::size_t scratchBytes = attentions.scratchBytes(keyCount);
    std::byte* scratch = workspace_.scratch.reserve(crew_.threads() * scratchBytes);
    share(heads * pieces, [&](std::size_t piece, std::size_t thread) {
        const std::size_t head = piece / pieces;
        const std::size_t first = piece % pieces * pieceQueries;
        kernels::HeadRows<const float> asked = headOf<const float>(queries, head);
        asked = {asked.row(first), asked.stride, std::min(pieceQueries, count - first)};
        // The result has the heads of a query side by side.
        float* result = floats(attention) + (first * heads + head) * kernels::headSize;
        attentions.attend(asked, packed + head * headBytes, keyCount, ggml_get_op_params_f32(&attention, 0),
                          scratch + thread * scratchBytes, {result, heads * kernels::headSize, asked.count});
    });
}

} // namespace vantro::asr
