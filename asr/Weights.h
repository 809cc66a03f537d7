#pragma once

#include "asr/Compute.h"
#include "asr/Linear.h"

#include <ggml.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vantro::asr {

class FileMapping;
class ModelFile;

/// The parameters of one network, in memory that ggml computes with. Tensors are announced first and filled together,
/// so that the memory is one block of the size that is needed. Immutable after load() and shared by all runners.
class Weights
{
public:
    /// Where matrices stay that this processor can multiply either way: copied and rearranged, which is best for those
    /// that are multiplied with one column at a time, or in the file, which costs no time to load and no memory of the
    /// program's own.
    enum class Place { memory, file };

    Weights(std::size_t maximumTensors, Place place);

    /// The tensor of that name in its own type.
    ggml_tensor* tensor(ModelFile& file, const std::string& name);
    /// A matrix product with an optional bias.
    Linear linear(ModelFile& file, const std::string& weight, const std::string& bias = {});
    /// A float32 tensor of values that are computed from the file's.
    ggml_tensor* values(std::vector<float> values, std::int64_t columns, std::int64_t rows = 1);

    /// Throws ASRError::modelLoadFailed when there is not enough memory or the file cannot be read to its end.
    void load(ModelFile& file);
    /// Throws ASRError::processingFailed when the file that matrices stayed in has been written to.
    void check() const;

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

    void allocate(const ModelFile& file);
    void readAll(const ModelFile& file) const;
    void readTensor(const ModelFile& file, const FileTensor& target, std::vector<std::byte>& stored) const;

    GgmlContext context_;
    Place place_;
    GgmlPointer<ggml_backend_buffer> buffer_;
    std::shared_ptr<const FileMapping> mapping_; ///< null when no matrix stays in the file
    std::vector<FileTensor> fromFile_;
    std::vector<ComputedTensor> computed_;
};

} // namespace vantro::asr
