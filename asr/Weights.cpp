#include "asr/Weights.h"

#include "asr/ASRError.h"
#include "asr/ModelFile.h"

#include <span>
#include <utility>

namespace vantro::asr {

Weights::Weights(std::size_t maximumTensors)
{
    context_.reset(ggml_init({maximumTensors * ggml_tensor_overhead(), nullptr, true}));
    if (context_ == nullptr)
        throw ASRError(ASRError::Kind::modelLoadFailed, "out of memory");
}

ggml_tensor* Weights::tensor(ModelFile& file, const std::string& name)
{
    const ModelFile::Tensor& entry = file.tensor(name);
    ggml_tensor* tensor =
        ggml_new_tensor_4d(context_.get(), entry.type, entry.shape[0], entry.shape[1], entry.shape[2], entry.shape[3]);
    fromFile_.push_back({tensor, name});
    return tensor;
}

Linear Weights::linear(ModelFile& file, const std::string& weight, const std::string& bias)
{
    return {tensor(file, weight), bias.empty() ? nullptr : tensor(file, bias)};
}

ggml_tensor* Weights::values(std::vector<float> values, std::int64_t columns, std::int64_t rows)
{
    ggml_tensor* tensor = ggml_new_tensor_2d(context_.get(), GGML_TYPE_F32, columns, rows);
    computed_.push_back({tensor, std::move(values)});
    return tensor;
}

void Weights::load(ModelFile& file)
{
    ggml_backend_dev_t processor = ggml_backend_dev_by_type(GGML_BACKEND_DEVICE_TYPE_CPU);
    if (processor == nullptr)
        throw ASRError(ASRError::Kind::unsupportedPlatform, "no ggml module for this processor is loaded");
    buffer_.reset(ggml_backend_alloc_ctx_tensors_from_buft(context_.get(), ggml_backend_dev_buffer_type(processor)));
    if (buffer_ == nullptr)
        throw ASRError(ASRError::Kind::modelLoadFailed, "out of memory");
    for (const auto& [tensor, name] : fromFile_)
        file.read(file.tensor(name), std::span(static_cast<std::byte*>(tensor->data), ggml_nbytes(tensor)));
    for (const auto& [tensor, values] : computed_)
        setTensor(tensor, values);
    fromFile_.clear();
    computed_.clear();
}

} // namespace vantro::asr
