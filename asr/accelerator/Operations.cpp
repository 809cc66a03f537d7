#include "asr/accelerator/Operations.h"

#include "asr/kernels/Attention.h"
#include "asr/kernels/Rows.h"

#include <ggml-impl.h>
#include <ggml.h>

#include <cstdint>

namespace vantro::asr {

namespace {

constexpr std::int64_t blockInputs = 32;

bool isView(const ggml_tensor& node)
{
    return node.op == GGML_OP_NONE || node.op == GGML_OP_RESHAPE || node.op == GGML_OP_VIEW ||
           node.op == GGML_OP_PERMUTE || node.op == GGML_OP_TRANSPOSE;
}

bool isPlain(const ggml_tensor& tensor)
{
    return tensor.type == GGML_TYPE_F32 && ggml_is_contiguous(&tensor);
}

bool isProductAccelerated(const ggml_tensor& product, kernels::Level cap)
{
    const ggml_tensor& matrix = *product.src[0];
    const ggml_tensor& columns = *product.src[1];
    const bool isWhole = matrix.ne[0] % blockInputs == 0;
    if (!ggml_is_matrix(&matrix) || !ggml_is_contiguous(&matrix) || !ggml_is_matrix(&columns) ||
        !ggml_is_contiguous(&columns))
        return false;
    if (product.ne[1] < fewRows)
        return matrix.type == GGML_TYPE_F16 && isWhole && columns.type == GGML_TYPE_F32;
    return (isWhole || matrix.type == GGML_TYPE_F16) &&
           (columns.type == GGML_TYPE_F32 || columns.type == GGML_TYPE_F16) && productKernels(matrix, cap) != nullptr;
}

/// A head's rows of float16, or of float32.
bool isHeads(const ggml_tensor& tensor, ggml_type type)
{
    return tensor.type == type && tensor.ne[0] == kernels::headSize && tensor.ne[3] == 1 &&
           tensor.nb[0] == ggml_type_size(type);
}

bool isAttentionAccelerated(const ggml_tensor& attention)
{
    const ggml_tensor& queries = *attention.src[0];
    const ggml_tensor& keys = *attention.src[1];
    const ggml_tensor& values = *attention.src[2];
    const ggml_tensor* mask = attention.src[3];
    const bool isFew = queries.ne[1] < fewRows;
    const bool isMaskKnown = mask == nullptr || (isFew && mask->type == GGML_TYPE_F16 && ggml_is_matrix(mask));
    const bool isPlainSoftMax = attention.src[4] == nullptr && ggml_get_op_params_f32(&attention, 1) == 0.0F &&
                                ggml_get_op_params_f32(&attention, 2) == 0.0F;
    return isPlainSoftMax && isMaskKnown && isHeads(queries, GGML_TYPE_F32) && isHeads(keys, GGML_TYPE_F16) &&
           isHeads(values, GGML_TYPE_F16) && (isFew || keys.ne[1] % kernels::keyStep == 0) &&
           queries.ne[2] == keys.ne[2] && queries.ne[2] == values.ne[2];
}

bool isLookupAccelerated(const ggml_tensor& lookup)
{
    const ggml_tensor& table = *lookup.src[0];
    return (table.type == GGML_TYPE_F16 || table.type == GGML_TYPE_F32) && ggml_is_matrix(&table) &&
           ggml_is_contiguous(&table) && lookup.src[1]->type == GGML_TYPE_I32 && ggml_is_vector(lookup.src[1]) &&
           isPlain(lookup);
}

bool isCombinationAccelerated(const ggml_tensor& combination)
{
    const ggml_tensor& first = *combination.src[0];
    const ggml_tensor& second = *combination.src[1];
    return isPlain(first) && isPlain(second) && isPlain(combination) &&
           (isEqual(second, first) || isRow(second, first) || isColumn(second, first));
}

bool isCopyAccelerated(const ggml_tensor& copy, kernels::Level cap)
{
    const bool isConverted = copy.type == GGML_TYPE_F16 && kernels::rowKernels(cap).toFloat16 != nullptr;
    return isPlain(*copy.src[0]) && ggml_is_contiguous(&copy) && isConverted;
}

bool isUnfoldingAccelerated(const ggml_tensor& operation, kernels::Level cap)
{
    const Unfolding unfolding(operation);
    return kernels::rowKernels(cap).unfold != nullptr && !unfolding.isInTwoDimensions && unfolding.dilation == 1 &&
           unfolding.shape.taps <= kernels::mostTaps && unfolding.shape.stride <= kernels::mostStride &&
           unfolding.shape.padding < unfolding.shape.taps && isPlain(*operation.src[1]) &&
           ggml_is_matrix(operation.src[1]) && operation.type == GGML_TYPE_F16;
}

bool isTranspositionAccelerated(const ggml_tensor& copy)
{
    const ggml_tensor& source = *copy.src[0];
    return source.type == GGML_TYPE_F32 && isPlain(copy) && ggml_is_matrix(&source) && source.nb[1] == sizeof(float);
}

/// Of what is worked on.
std::int64_t rowsOf(const ggml_tensor& operation)
{
    switch (operation.op) {
    case GGML_OP_FLASH_ATTN_EXT:
        return operation.src[0]->ne[1];
    case GGML_OP_CPY:
        return ggml_nrows(operation.src[0]);
    default:
        return ggml_nrows(&operation);
    }
}

} // namespace

Unfolding::Unfolding(const ggml_tensor& operation)
{
    const auto parameter = [&](std::uint32_t index) {
        return static_cast<std::size_t>(ggml_get_op_params_i32(&operation, index));
    };
    const ggml_tensor& source = *operation.src[1];
    shape = {.source = static_cast<const float*>(source.data),
             .frames = static_cast<std::size_t>(source.ne[0]),
             .channels = static_cast<std::size_t>(source.ne[1]),
             .taps = static_cast<std::size_t>(operation.src[0]->ne[0]),
             .stride = parameter(0),
             .padding = parameter(2)};
    dilation = parameter(4);
    isInTwoDimensions = parameter(6) != 0;
}

bool isNothing(const ggml_tensor& node)
{
    return isView(node) || (node.flags & GGML_TENSOR_FLAG_COMPUTE) == 0;
}

const kernels::MatrixKernels* productKernels(const ggml_tensor& matrix, kernels::Level cap)
{
    switch (matrix.type) {
    case GGML_TYPE_F16:
        return kernels::matrixKernels(kernels::MatrixFormat::float16, cap);
    case GGML_TYPE_Q8_0:
        return kernels::matrixKernels(kernels::MatrixFormat::q8, cap);
    case GGML_TYPE_Q5_0:
        return kernels::matrixKernels(kernels::MatrixFormat::q5, cap);
    case GGML_TYPE_Q4_0:
        return kernels::matrixKernels(kernels::MatrixFormat::q4, cap);
    default:
        return nullptr;
    }
}

bool isEqual(const ggml_tensor& operand, const ggml_tensor& first)
{
    return ggml_are_same_shape(&operand, &first);
}

bool isRow(const ggml_tensor& operand, const ggml_tensor& first)
{
    return operand.ne[0] == first.ne[0] && ggml_nrows(&operand) == 1;
}

bool isColumn(const ggml_tensor& operand, const ggml_tensor& first)
{
    return operand.ne[0] == 1 && ggml_nrows(&operand) == ggml_nrows(&first);
}

bool isAccelerated(const ggml_tensor& operation, const Scope& scope)
{
    if (isView(operation))
        return true;
    const bool isFew = rowsOf(operation) < fewRows;
    if (isFew && (!scope.hasFewRows || kernels::rowKernels(scope.cap).multiplyFew == nullptr))
        return false;
    if (operation.op == GGML_OP_MUL_MAT)
        return isProductAccelerated(operation, scope.cap);
    // Without attention, ggml computes parts of each layer, and what lies between the parts had better be there.
    if (kernels::attentionKernels(scope.cap) == nullptr)
        return false;
    switch (operation.op) {
    case GGML_OP_FLASH_ATTN_EXT:
        return isAttentionAccelerated(operation);
    case GGML_OP_ADD:
    case GGML_OP_MUL:
        return isCombinationAccelerated(operation);
    case GGML_OP_NORM:
    case GGML_OP_SCALE:
        return isPlain(*operation.src[0]) && isPlain(operation);
    case GGML_OP_UNARY:
        return ggml_get_unary_op(&operation) == GGML_UNARY_OP_GELU && isPlain(*operation.src[0]) && isPlain(operation);
    case GGML_OP_CPY:
        return isCopyAccelerated(operation, scope.cap);
    case GGML_OP_GET_ROWS:
        return isFew && isLookupAccelerated(operation);
    case GGML_OP_CONT:
        return isTranspositionAccelerated(operation);
    case GGML_OP_IM2COL:
        return isUnfoldingAccelerated(operation, scope.cap);
    default:
        return false;
    }
}

} // namespace vantro::asr
