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
class ModelSource;

/// The parameters of one network in ggml's memory. Tensors are declared first and loaded together, in one allocation of
/// the right size. Immutable after load() and shared by all runners.
class Weights
{
public:
    /// Where matrices that this processor supports either way are kept: packed copies in memory, best for products with
    /// single columns, or unchanged in the mapped file, which costs neither load time nor private memory.
    enum class Place { memory, file };

    /// @p cap: of the products' instruction sets.
    Weights(std::size_t maximumTensors, Place place, kernels::Level cap);

    [[nodiscard]] kernels::Level cap() const { return cap_; }

    /// The tensor @p name in its stored type.
    ggml_tensor* tensor(const ModelSource& file, const std::string& name);
    /// A matrix product with an optional bias.
    Linear linear(const ModelSource& file, const std::string& weight, const std::string& bias = {});
    /// A float32 tensor of computed values.
    ggml_tensor* values(std::vector<float> values, std::int64_t columns, std::int64_t rows = 1);

    /// Throws ASRError::modelLoadFailed when out of memory or on a read failure.
    void load(const ModelSource& file);
    /// Fetches what the system has dropped from memory of the mapped file. Returns early when stopped.
    void prefetch(const std::stop_token& stop) const;
    /// Throws ASRError::processingFailed if the mapped file has been modified.
    void check() const;

private:
    struct FileTensor
    {
        ggml_tensor* tensor;
        std::string name;
        const kernels::MatrixKernels* kernels; ///< null: as it is
    };
    struct ComputedTensor
    {
        ggml_tensor* tensor;
        std::vector<float> values;
    };

    void allocate(const ModelSource& file);
    void readAll(const ModelSource& file) const;
    void readTensor(const ModelSource& file, const FileTensor& target, std::vector<std::byte>& stored) const;

    GgmlContext context_;
    Place place_;
    kernels::Level cap_;
    GgmlPointer<ggml_backend_buffer> buffer_;
    std::shared_ptr<const FileMapping> mapping_; ///< null if no matrix is used from the file
    std::vector<FileTensor> fromFile_;
    std::vector<ComputedTensor> computed_;
};

} // namespace vantro::asr
