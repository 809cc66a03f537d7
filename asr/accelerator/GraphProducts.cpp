// A graph's products.
#include "asr/accelerator/GraphExecution.h"
#include "asr/accelerator/Operations.h"
#include "asr/accelerator/Tensors.h"
#include "asr/kernels/Matrix.h"

#include <ggml-impl.h>
#include <ggml.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace vantro::asr {

namespace {

/// A number of inputs, rounded up to what share a scale.
std::size_t wholeBlocks(std::int64_t inputs)
{
    constexpr std::size_t block = 32;
    return (sizeOf(inputs) + block - 1) / block * block;
}

/// Whether the operation after @p node is @p op and the only one that needs it.
bool isFollowedBy(const ggml_cgraph& graph, int node, ggml_op op)
{
    const std::array ops{graph.nodes[node]->op, op};
    return ggml_can_fuse(&graph, node, ops.data(), ops.size());
}

} // namespace

GraphExecution::Product GraphExecution::productAt(int node) const
{
    Product found{.product = graph_.nodes[node], .result = graph_.nodes[node]};
    const auto next = [&] {
        return graph_.nodes[node + found.nodes];
    };
    const auto take = [&] {
        found.result = next();
        ++found.nodes;
    };
    const auto isNext = [&](ggml_op op) {
        return isFollowedBy(graph_, node + found.nodes - 1, op);
    };
    if (isNext(GGML_OP_ADD) && isRow(otherOperand(*next(), *found.result), *found.result)) {
        found.bias = &otherOperand(*next(), *found.result);
        take();
    }
    // The rest is done to the outputs of a panel, which may not lie across the end.
    if (found.product->ne[0] % static_cast<std::int64_t>(kernels::panelOutputs) != 0)
        return found;
    if (isNext(GGML_OP_UNARY) && isAccelerated(*next(), scope_)) {
        found.isActivated = true;
        take();
    } else if (isNext(GGML_OP_ADD) && isEqual(otherOperand(*next(), *found.result), *found.result) &&
               isAccelerated(*next(), scope_) && isApart(otherOperand(*next(), *found.result), *next())) {
        found.added = &otherOperand(*next(), *found.result);
        take();
    }
    return found;
}

const float* GraphExecution::widened(const ggml_tensor& columns, std::size_t inputs)
{
    const std::size_t used = sizeOf(columns.ne[0]);
    if (columns.type == GGML_TYPE_F32 && used == inputs)
        return floats(columns);
    const std::size_t count = sizeOf(columns.ne[1]);
    auto* target = reinterpret_cast<float*>(workspace_.floats.reserve(inputs * count * sizeof(float)));
    for (std::size_t column = 0; column < count; ++column) {
        float* values = target + column * inputs;
        if (columns.type == GGML_TYPE_F16)
            ggml_fp16_to_fp32_row(static_cast<const ggml_fp16_t*>(columns.data) + column * used, values, columns.ne[0]);
        else
            std::copy_n(floats(columns) + column * used, used, values);
        std::fill(values + used, values + inputs, 0.0F);
    }
    return target;
}

const void* GraphExecution::filled(const ggml_tensor& matrix, std::size_t inputs)
{
    const std::size_t used = sizeOf(matrix.ne[0]);
    if (used == inputs)
        return matrix.data;
    const auto* source = static_cast<const ggml_fp16_t*>(matrix.data);
    auto* target =
        reinterpret_cast<ggml_fp16_t*>(workspace_.matrix.reserve(inputs * rowCount(matrix) * sizeof(ggml_fp16_t)));
    for (std::size_t row = 0; row < rowCount(matrix); ++row) {
        std::copy_n(source + row * used, used, target + row * inputs);
        std::fill_n(target + row * inputs + used, inputs - used, ggml_fp16_t{});
    }
    return target;
}

void GraphExecution::pack(const ggml_tensor& columns, const kernels::MatrixKernels& matrices)
{
    if (packed_ == &columns && packedFor_ == &matrices)
        return;
    const std::size_t inputs = wholeBlocks(columns.ne[0]);
    const std::size_t count = sizeOf(columns.ne[1]);
    const float* source = widened(columns, inputs);
    std::byte* target = workspace_.columns.reserve(matrices.activationBytes(inputs, count));
    constexpr std::size_t pieceColumns = 48;
    const std::size_t pieces = (count + pieceColumns - 1) / pieceColumns;
    share(pieces, [&](std::size_t piece, std::size_t) {
        matrices.packActivations(source, inputs, count, target, {piece, pieces});
    });
    packed_ = &columns;
    packedFor_ = &matrices;
}

int GraphExecution::multiply(const Product& product)
{
    const ggml_tensor& matrix = *product.product->src[0];
    const ggml_tensor& columns = *product.product->src[1];
    if (columns.ne[1] < fewRows) {
        multiplyFew(product);
        return product.nodes;
    }
    const kernels::MatrixKernels& matrices = *productKernels(matrix, scope_.cap);
    pack(columns, matrices);
    const std::size_t inputs = wholeBlocks(matrix.ne[0]);
    const void* weights = filled(matrix, inputs);
    const std::size_t outputs = sizeOf(matrix.ne[1]);
    const std::size_t count = sizeOf(columns.ne[1]);
    const std::size_t panels = (outputs + kernels::panelOutputs - 1) / kernels::panelOutputs;
    const float* bias = product.bias != nullptr ? floats(*product.bias) : nullptr;
    share(panels, [&](std::size_t panel, std::size_t) {
        matrices.multiply(weights, inputs, outputs, workspace_.columns.data(), count, bias, floats(*product.result),
                          {panel, panels});
        finish(product, panel * kernels::panelOutputs, kernels::panelOutputs);
    });
    return product.nodes;
}

/// What follows the product, for some of its outputs.
void GraphExecution::finish(const Product& product, std::size_t output, std::size_t width)
{
    const std::size_t outputs = sizeOf(product.result->ne[0]);
    const kernels::Tile tile{floats(*product.result) + output, sizeOf(product.result->ne[1]), width, outputs};
    if (product.isActivated)
        rows_.gelu(tile);
    if (product.added != nullptr)
        rows_.add(tile, floats(*product.added) + output);
}

void GraphExecution::multiplyFew(const Product& product)
{
    const ggml_tensor& matrix = *product.product->src[0];
    const ggml_tensor& columns = *product.product->src[1];
    const kernels::FewColumns few{.matrix = static_cast<const std::uint16_t*>(matrix.data),
                                  .inputs = sizeOf(matrix.ne[0]),
                                  .outputs = sizeOf(matrix.ne[1]),
                                  .columns = floats(columns),
                                  .count = sizeOf(columns.ne[1]),
                                  .bias = product.bias != nullptr ? floats(*product.bias) : nullptr,
                                  .result = floats(*product.result)};
    // To read less takes less time than to wake another thread.
    constexpr std::size_t pieceBytes = 1 << 20;
    const std::size_t pieces = std::max<std::size_t>(1, ggml_nbytes(&matrix) / pieceBytes);
    share(pieces, [&](std::size_t piece, std::size_t) {
        const std::size_t first = few.outputs * piece / pieces;
        const std::size_t end = few.outputs * (piece + 1) / pieces;
        rows_.multiplyFew(few, first, end);
        finish(product, first, end - first);
    });
}

} // namespace vantro::asr
