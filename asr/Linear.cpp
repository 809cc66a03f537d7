#include "asr/Linear.h"

namespace vantro::asr {

namespace {

using kernels::MatrixFormat;

// ggml passes one pointer to a custom operation: the address of the format.
constexpr std::array formats = {MatrixFormat::none, MatrixFormat::bfloat16, MatrixFormat::float16, MatrixFormat::int8,
                                MatrixFormat::q8,   MatrixFormat::q5,       MatrixFormat::q4};

void* userData(MatrixFormat format)
{
    return const_cast<MatrixFormat*>(&formats.at(static_cast<std::size_t>(format)));
}

const kernels::MatrixKernels& kernelsOf(const void* userData)
{
    return *kernels::matrixKernels(*static_cast<const MatrixFormat*>(userData));
}

kernels::Share share(int thread, int threads)
{
    return {static_cast<std::size_t>(thread), static_cast<std::size_t>(threads)};
}

void runPack(ggml_tensor* result, int thread, int threads, void* userData)
{
    const ggml_tensor* source = result->src[0];
    kernelsOf(userData).packActivations(static_cast<const float*>(source->data),
                                        static_cast<std::size_t>(source->ne[0]),
                                        static_cast<std::size_t>(source->ne[1]), result->data, share(thread, threads));
}

/// Sources: packed matrix, packed columns, unpacked columns (for their size), optional bias.
void runMultiply(ggml_tensor* result, int thread, int threads, void* userData)
{
    const ggml_tensor* bias = result->src[3];
    kernelsOf(userData).multiply(result->src[0]->data, static_cast<std::size_t>(result->src[2]->ne[0]),
                                 static_cast<std::size_t>(result->ne[0]), result->src[1]->data,
                                 static_cast<std::size_t>(result->ne[1]),
                                 bias != nullptr ? static_cast<const float*>(bias->data) : nullptr,
                                 static_cast<float*>(result->data), share(thread, threads));
}

} // namespace

ggml_tensor* Activations::packed(MatrixFormat format)
{
    ggml_tensor*& node = packed_.at(static_cast<std::size_t>(format));
    if (node == nullptr) {
        const std::size_t bytes = kernels::matrixKernels(format)->activationBytes(
            static_cast<std::size_t>(values_->ne[0]), static_cast<std::size_t>(values_->ne[1]));
        node = ggml_custom_4d(context_, GGML_TYPE_I8, static_cast<std::int64_t>(bytes), 1, 1, 1, &values_, 1, runPack,
                              GGML_N_TASKS_MAX, userData(format));
    }
    return node;
}

ggml_tensor* Linear::apply(Activations& input) const
{
    ggml_context* context = input.context();
    if (format == MatrixFormat::none) {
        ggml_tensor* product = ggml_mul_mat(context, weight, input.values());
        return bias != nullptr ? ggml_add(context, product, bias) : product;
    }
    ggml_tensor* sources[] = {weight, input.packed(format), input.values(), bias};
    return ggml_custom_4d(context, GGML_TYPE_F32, outputs, input.values()->ne[1], 1, 1, sources,
                          bias != nullptr ? 4 : 3, runMultiply, GGML_N_TASKS_MAX, userData(format));
}

ggml_tensor* Linear::apply(ggml_context* context, ggml_tensor* input) const
{
    Activations activations(context, input);
    return apply(activations);
}

} // namespace vantro::asr
