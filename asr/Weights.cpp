#include "asr/Weights.h"

#include "asr/ASRError.h"
#include "asr/ModelFile.h"

#include <algorithm>
#include <exception>
#include <mutex>
#include <span>
#include <thread>
#include <utility>

namespace vantro::asr {

namespace {

using kernels::MatrixFormat;

constexpr unsigned maximumLoadThreads = 4;

/// The format that this processor multiplies a matrix of that type fastest in.
MatrixFormat formatFor(const ModelFile::Tensor& entry)
{
    constexpr std::int64_t inputsMultiple = 32;
    const MatrixFormat format = entry.type == GGML_TYPE_F16    ? MatrixFormat::bfloat16
                                : entry.type == GGML_TYPE_Q8_0 ? MatrixFormat::int8
                                                               : MatrixFormat::none;
    return entry.shape[0] % inputsMultiple == 0 && kernels::matrixKernels(format) != nullptr ? format
                                                                                             : MatrixFormat::none;
}

} // namespace

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
    fromFile_.push_back({tensor, name, MatrixFormat::none});
    return tensor;
}

Linear Weights::linear(ModelFile& file, const std::string& weight, const std::string& bias)
{
    const ModelFile::Tensor& entry = file.tensor(weight);
    Linear linear{nullptr, bias.empty() ? nullptr : tensor(file, bias), formatFor(entry), entry.shape[0],
                  entry.shape[1]};
    if (linear.format == MatrixFormat::none) {
        linear.weight = tensor(file, weight);
        return linear;
    }
    const std::size_t bytes =
        kernels::matrixKernels(linear.format)
            ->matrixBytes(static_cast<std::size_t>(linear.inputs), static_cast<std::size_t>(linear.outputs));
    linear.weight = ggml_new_tensor_1d(context_.get(), GGML_TYPE_I8, static_cast<std::int64_t>(bytes));
    fromFile_.push_back({linear.weight, weight, linear.format});
    return linear;
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
    readAll(file);
    for (const auto& [tensor, values] : computed_)
        setTensor(tensor, values);
    fromFile_.clear();
    computed_.clear();
}

/// One thread reads from the file at a time while the others rearrange what they have read.
void Weights::readAll(ModelFile& file) const
{
    std::mutex lock;
    std::size_t next = 0;
    std::exception_ptr failure;
    const auto work = [&] {
        std::vector<std::byte> stored;
        for (;;) {
            std::unique_lock guard(lock);
            if (failure || next == fromFile_.size())
                return;
            const FileTensor& target = fromFile_[next++];
            const ModelFile::Tensor& entry = file.tensor(target.name);
            try {
                if (target.format == MatrixFormat::none) {
                    file.read(entry, std::span(static_cast<std::byte*>(target.tensor->data), entry.bytes));
                    continue;
                }
                stored.resize(entry.bytes);
                file.read(entry, stored);
            } catch (...) {
                failure = std::current_exception();
                return;
            }
            guard.unlock();
            kernels::matrixKernels(target.format)
                ->packMatrix(stored.data(), static_cast<std::size_t>(entry.shape[0]),
                             static_cast<std::size_t>(entry.shape[1]), target.tensor->data);
        }
    };
    {
        std::vector<std::jthread> helpers;
        for (unsigned i = 1; i < std::min(std::thread::hardware_concurrency(), maximumLoadThreads); ++i)
            helpers.emplace_back(work);
        work();
    }
    if (failure)
        std::rethrow_exception(failure);
}

} // namespace vantro::asr
