#include "asr/accelerator/GraphExecution.h"

#include "asr/accelerator/Operations.h"
#include "asr/accelerator/Tensors.h"

#include <ggml-impl.h>
#include <ggml.h>

#include <algorithm>
#include <cstdint>

namespace vantro::asr {

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
        if (isRow(scale, *norm) && isRow(shift, *norm) &&
            (source.data == graph_.nodes[node + 2]->data || isApart(source, *graph_.nodes[node + 2]))) {
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
