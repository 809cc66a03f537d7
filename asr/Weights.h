#pragma once

#include "asr/Compute.h"
#include "asr/Linear.h"

#include <ggml.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vantro::asr {

class ModelFile;

/// The parameters of one network, in memory that ggml computes with. Tensors are announced first and filled together,
/// so that the memory is one block of the size that is needed. Immutable after load() and shared by all runners.
class Weights
{
public:
    explicit Weights(std::size_t maximumTensors);

    /// The tensor of that name in its own type.
    ggml_tensor* tensor(ModelFile& file, const std::string& name);
    /// A matrix product with an optional bias.
    Linear linear(ModelFile& file, const std::string& weight, const std::string& bias = {});
    /// A float32 tensor of values that are computed from the file's.
    ggml_tensor* values(std::vector<float> values, std::int64_t columns, std::int64_t rows = 1);

    /// Throws ASRError::modelLoadFailed when there is not enough memory.
    void load(ModelFile& file);

private:
    struct FileTensor
    {
        ggml_tensor* tensor;
        std::string name;
        kernels::MatrixFormat format;
    };
    struct ComputedTensor
    {
        ggml_tensor* tensor;
        std::vector<float> values;
    };

    void readAll(ModelFile& file) const;

    GgmlPointer<ggml_context> context_;
    GgmlPointer<ggml_backend_buffer> buffer_;
    std::vector<FileTensor> fromFile_;
    std::vector<ComputedTensor> computed_;
};

} // namespace vantro::asr
