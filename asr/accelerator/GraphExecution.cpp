#include "asr/accelerator/GraphExecution.h"

#include "asr/accelerator/Operations.h"
#include "asr/kernels/Attention.h"
#include "asr/kernels/Matrix.h"

#include <ggml-impl.h>
#include <ggml.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace vantro::asr {

namespace {

std::size_t sizeOf(std::int64_t extent)
{
    return static_cast<std::size_t>(extent);
}

std::size_t rowCount(const ggml_tensor& tensor)
{
    return sizeOf(ggml_nrows(&tensor));
}

float* floats(const ggml_tensor& tensor)
{
    return static_cast<float*>(tensor.data);
}

/// A number of inputs, rounded up to what share a scale.
std::size_t wholeBlocks(std::int64_t inputs)
{
    constexpr std::size_t block = 32;
    return (sizeOf(inputs) + block - 1) / block * block;
}

/// The other operand of an operation whose one operand is @p operand.
const ggml_tensor& otherOperand(const ggml_tensor& operation, const ggml_tensor& operand)
{
    return operation.src[0] == &operand ? *operation.src[1] : *operation.src[0];
}

/// Whether the operation after @p node is @p op and the only one that needs it.
bool isFollowedBy(const ggml_cgraph& graph, int node, ggml_op op)
{
    const std::array ops{graph.nodes[node]->op, op};
    return ggml_can_fuse(&graph, node, ops.data(), ops.size());
}

/// Whether every value of @p result can be written when the same of @p source has been read.
bool isSafe(const ggml_tensor& source, const ggml_tensor& result)
{
    const auto* first = static_cast<const std::byte*>(source.data);
    const auto* second = static_cast<const std::byte*>(result.data);
    return first == second || first + ggml_nbytes(&source) <= second || second + ggml_nbytes(&result) <= first;
}

} // namespace

GraphExecution::GraphExecution(ggml_cgraph& graph, Crew& crew, Workspace& workspace, const Scope& scope)
    : graph_(graph)
    , crew_(crew)
    , workspace_(workspace)
    , scope_(scope)
    , rows_(kernels::rowKernels(scope.cap))
{
}

bool GraphExecution::compute(const std::function<void()>& beforeStep, const std::function<bool()>& isStopped)
{
    isStopped_ = isStopped;
    for (int node = 0; node < graph_.n_nodes && isDone_;) {
        beforeStep();
        node += step(node);
    }
    return isDone_;
}

int GraphExecution::step(int node)
{
    const ggml_tensor& operation = *graph_.nodes[node];
    if (isNothing(operation))
        return 1;
    switch (operation.op) {
    case GGML_OP_MUL_MAT:
        return multiply(productAt(node));
    case GGML_OP_NORM:
        return normalise(node);
    case GGML_OP_FLASH_ATTN_EXT:
        attend(operation);
        return 1;
    case GGML_OP_ADD:
    case GGML_OP_MUL:
        combine(operation);
        return 1;
    case GGML_OP_GET_ROWS:
        lookUp(operation);
        return 1;
    case GGML_OP_CONT:
        transpose(operation);
        return 1;
    case GGML_OP_IM2COL:
        unfold(operation);
        return 1;
    default:
        map(operation);
        return 1;
    }
}

void GraphExecution::share(std::size_t pieces, const Crew::Work& work)
{
    isDone_ = isDone_ && crew_.share(pieces, work, isStopped_);
}

void GraphExecution::shareRows(const ggml_tensor& tensor, const std::function<void(std::size_t, std::size_t)>& work)
{
    constexpr std::size_t pieceValues = 32'768;
    const std::size_t rows = rowCount(tensor);
    const std::size_t pieceRows = std::max<std::size_t>(1, pieceValues / sizeOf(tensor.ne[0]));
    share((rows + pieceRows - 1) / pieceRows,
          [&](std::size_t piece, std::size_t) { work(piece * pieceRows, std::min(rows, (piece + 1) * pieceRows)); });
}

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
               isAccelerated(*next(), scope_)) {
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

int GraphExecution::normalise(int node)
{
    const ggml_tensor* norm = graph_.nodes[node];
    const ggml_tensor& source = *norm->src[0];
    kernels::Normalisation normalisation{.epsilon = ggml_get_op_params_f32(norm, 0)};
    const ggml_tensor* result = norm;
    int nodes = 1;
    if (ggml_can_fuse(&graph_, node, {GGML_OP_NORM, GGML_OP_MUL, GGML_OP_ADD})) {
        const ggml_tensor& scale = otherOperand(*graph_.nodes[node + 1], *norm);
        const ggml_tensor& shift = otherOperand(*graph_.nodes[node + 2], *graph_.nodes[node + 1]);
        if (isRow(scale, *norm) && isRow(shift, *norm) && isSafe(source, *graph_.nodes[node + 2])) {
            normalisation.scale = floats(scale);
            normalisation.shift = floats(shift);
            result = graph_.nodes[node + 2];
            nodes = 3;
        }
    }
    const std::size_t width = sizeOf(source.ne[0]);
    shareRows(source, [&](std::size_t first, std::size_t end) {
        for (std::size_t row = first; row < end; ++row)
            rows_.normalise(floats(source) + row * width, width, normalisation, floats(*result) + row * width);
    });
    return nodes;
}

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

void GraphExecution::lookUp(const ggml_tensor& lookup)
{
    const ggml_tensor& table = *lookup.src[0];
    const auto* indices = static_cast<const std::int32_t*>(lookup.src[1]->data);
    const std::size_t width = sizeOf(table.ne[0]);
    for (std::size_t row = 0; row < rowCount(lookup); ++row) {
        const auto* stored = static_cast<const std::byte*>(table.data) + sizeOf(indices[row]) * table.nb[1];
        float* result = floats(lookup) + row * width;
        if (table.type == GGML_TYPE_F16)
            rows_.toFloat32(reinterpret_cast<const std::uint16_t*>(stored), width, result);
        else
            std::copy_n(reinterpret_cast<const float*>(stored), width, result);
    }
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

void GraphExecution::combine(const ggml_tensor& combination)
{
    const ggml_tensor& first = *combination.src[0];
    const ggml_tensor& second = *combination.src[1];
    const std::size_t width = sizeOf(first.ne[0]);
    // The second operand's step from one row to the next, and from one value to the next.
    const std::size_t rowStep = isRow(second, first) ? 0 : sizeOf(second.ne[0]);
    const std::size_t valueStep = second.ne[0] == first.ne[0] ? 1 : 0;
    shareRows(first, [&](std::size_t begin, std::size_t end) {
        for (std::size_t row = begin; row < end; ++row) {
            const float* left = floats(first) + row * width;
            const float* right = floats(second) + row * rowStep;
            float* result = floats(combination) + row * width;
            if (combination.op == GGML_OP_ADD) {
                for (std::size_t i = 0; i < width; ++i)
                    result[i] = left[i] + right[i * valueStep];
            } else {
                for (std::size_t i = 0; i < width; ++i)
                    result[i] = left[i] * right[i * valueStep];
            }
        }
    });
}

void GraphExecution::map(const ggml_tensor& operation)
{
    const ggml_tensor& source = *operation.src[0];
    const std::size_t width = sizeOf(source.ne[0]);
    shareRows(source, [&](std::size_t begin, std::size_t end) {
        const float* values = floats(source) + begin * width;
        const std::size_t count = (end - begin) * width;
        if (operation.op == GGML_OP_CPY) {
            rows_.toFloat16(values, count, static_cast<std::uint16_t*>(operation.data) + begin * width);
            return;
        }
        float* result = floats(operation) + begin * width;
        if (operation.op == GGML_OP_SCALE) {
            const float factor = ggml_get_op_params_f32(&operation, 0);
            const float shift = ggml_get_op_params_f32(&operation, 1);
            for (std::size_t i = 0; i < count; ++i)
                result[i] = factor * values[i] + shift;
            return;
        }
        if (result != values)
            std::copy(values, values + count, result);
        rows_.gelu({result, 1, count, count});
    });
}

void GraphExecution::transpose(const ggml_tensor& copy)
{
    const float* source = floats(*copy.src[0]);
    const std::size_t stride = copy.src[0]->nb[0] / sizeof(float);
    const std::size_t width = sizeOf(copy.ne[0]);
    shareRows(copy, [&](std::size_t begin, std::size_t end) {
        for (std::size_t i = 0; i < width; ++i) {
            for (std::size_t row = begin; row < end; ++row)
                floats(copy)[row * width + i] = source[i * stride + row];
        }
    });
}

void GraphExecution::unfold(const ggml_tensor& operation)
{
    const Unfolding unfolding(operation);
    shareRows(operation, [&](std::size_t begin, std::size_t end) {
        rows_.unfold(unfolding.shape, begin, end, static_cast<std::uint16_t*>(operation.data));
    });
}

} // namespace vantro::asr
