#pragma once

#include "asr/kernels/Matrix.h"

#include <ggml.h>

#include <cstdint>
#include <utility>
#include <vector>

namespace vantro::asr {

/// Columns multiplied by several matrices: [inputs, columns], packed once for each way in which they are.
class Activations
{
public:
    Activations(ggml_context* context, ggml_tensor* values) : context_(context), values_(values) {}

    [[nodiscard]] ggml_context* context() const { return context_; }
    [[nodiscard]] ggml_tensor* values() const { return values_; }
    /// The node that packs them for products with @p matrices.
    ggml_tensor* packed(const kernels::MatrixKernels& matrices);

private:
    ggml_context* context_;
    ggml_tensor* values_;
    std::vector<std::pair<decltype(kernels::MatrixKernels::packActivations), ggml_tensor*>> packed_;
};

/// y = W x + b. A tensor of [inputs, columns] becomes [outputs, columns].
struct Linear
{
    ggml_tensor* weight = nullptr;                   ///< bytes as the kernels want them, or a matrix in ggml's layout
    ggml_tensor* bias = nullptr;                     ///< may be null
    const kernels::MatrixKernels* kernels = nullptr; ///< null: left to ggml
    std::int64_t inputs = 0;
    std::int64_t outputs = 0;

    ggml_tensor* apply(Activations& input) const;
    ggml_tensor* apply(ggml_context* context, ggml_tensor* input) const;
};

} // namespace vantro::asr
