#include "asr/Linear.h"

namespace vantro::asr {

namespace {

// ggml passes one pointer to a custom operation.
void* userData(const kernels::MatrixKernels& matrices)
{
    return const_cast<kernels::MatrixKernels*>(&matrices);
}

const kernels::MatrixKernels& kernelsOf(const void* userData)
{
    return *static_cast<const kernels::MatrixKernels*>(userData);
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

ggml_tensor* Activations::packed(const kernels::MatrixKernels& matrices)
{
    for (const auto& [function, node] : packed_) {
        if (function == matrices.packActivations)
            return node;
    }
    const std::size_t bytes =
        matrices.activationBytes(static_cast<std::size_t>(values_->ne[0]), static_cast<std::size_t>(values_->ne[1]));
    ggml_tensor* node = ggml_custom_4d(context_, GGML_TYPE_I8, static_cast<std::int64_t>(bytes), 1, 1, 1, &values_, 1,
                                       runPack, GGML_N_TASKS_MAX, userData(matrices));
    packed_.emplace_back(matrices.packActivations, node);
    return node;
}

ggml_tensor* Linear::apply(Activations& input) const
{
    ggml_context* context = input.context();
    if (kernels == nullptr) {
        ggml_tensor* product = ggml_mul_mat(context, weight, input.values());
        return bias != nullptr ? ggml_add(context, product, bias) : product;
    }
    ggml_tensor* sources[] = {weight, input.packed(*kernels), input.values(), bias};
    return ggml_custom_4d(context, GGML_TYPE_F32, outputs, input.values()->ne[1], 1, 1, sources,
                          bias != nullptr ? 4 : 3, runMultiply, GGML_N_TASKS_MAX, userData(*kernels));
}

ggml_tensor* Linear::apply(ggml_context* context, ggml_tensor* input) const
{
    Activations activations(context, input);
    return apply(activations);
}

} // namespace vantro::asr
