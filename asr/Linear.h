#pragma once

#include <ggml.h>

namespace vantro::asr {

/// y = W x + b. A tensor of [inputs, columns] becomes [outputs, columns].
struct Linear
{
    ggml_tensor* weight = nullptr;
    ggml_tensor* bias = nullptr; ///< may be null

    ggml_tensor* apply(ggml_context* context, ggml_tensor* input) const
    {
        ggml_tensor* product = ggml_mul_mat(context, weight, input);
        return bias != nullptr ? ggml_add(context, product, bias) : product;
    }
};

} // namespace vantro::asr
