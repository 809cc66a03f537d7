#pragma once

#include "asr/kernels/Matrix.h"

#include <ggml.h>

#include <array>
#include <cstdint>

namespace vantro::asr {

/// Columns multiplied by several matrices: [inputs, columns], packed once per format used.
class Activations
{
public:
    Activations(ggml_context* context, ggml_tensor* values) : context_(context), values_(values) {}

    [[nodiscard]] ggml_context* context() const { return context_; }
    [[nodiscard]] ggml_tensor* values() const { return values_; }
    /// The node that packs them for @p format.
    ggml_tensor* packed(kernels::MatrixFormat format);

private:
    ggml_context* context_;
    ggml_tensor* values_;
    std::array<ggml_tensor*, 7> packed_{};
};

/// y = W x + b. A tensor of [inputs, columns] becomes [outputs, columns].
struct Linear
{
    ggml_tensor* weight = nullptr; ///< packed bytes in the format, or a matrix in ggml's layout
    ggml_tensor* bias = nullptr;   ///< may be null
    kernels::MatrixFormat format = kernels::MatrixFormat::none;
    std::int64_t inputs = 0;
    std::int64_t outputs = 0;

    ggml_tensor* apply(Activations& input) const;
    ggml_tensor* apply(ggml_context* context, ggml_tensor* input) const;
};

} // namespace vantro::asr
