#include "asr/Weights.h"

#include "asr/ASRError.h"
#include "asr/FileMapping.h"
#include "asr/ModelSource.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <span>
#include <system_error>
#include <thread>
#include <utility>

namespace vantro::asr {

namespace {

using kernels::MatrixFormat;

constexpr unsigned maximumLoadThreads = 4;

MatrixFormat formatFor(ggml_type type, Weights::Place place)
{
    const bool inFile = place == Weights::Place::file;
    switch (type) {
    case GGML_TYPE_F16:
        return inFile ? MatrixFormat::float16 : MatrixFormat::bfloat16;
    case GGML_TYPE_Q8_0:
        return inFile ? MatrixFormat::q8 : MatrixFormat::int8;
    case GGML_TYPE_Q5_0:
        return inFile ? MatrixFormat::q5 : MatrixFormat::none;
    case GGML_TYPE_Q4_0:
        return inFile ? MatrixFormat::q4 : MatrixFormat::none;
    default:
        return MatrixFormat::none;
    }
}

/// The fastest products on this processor with a matrix of that type; null if they are ggml's.
const kernels::MatrixKernels* kernelsFor(const ModelSource::Tensor& entry, Weights::Place place, kernels::Level cap)
{
    constexpr std::int64_t inputsMultiple = 32;
    return entry.shape[0] % inputsMultiple == 0 ? kernels::matrixKernels(formatFor(entry.type, place), cap) : nullptr;
}

bool staysInFile(const kernels::MatrixKernels* kernels)
{
    return kernels != nullptr && kernels->packMatrix == nullptr;
}

} // namespace

Weights::Weights(std::size_t maximumTensors, Place place, kernels::Level cap)
    : context_(maximumTensors * ggml_tensor_overhead())
    , place_(place)
    , cap_(cap)
{
}

ggml_tensor* Weights::tensor(const ModelSource& file, const std::string& name)
{
    const ModelSource::Tensor& entry = file.tensor(name);
    ggml_tensor* tensor =
        ggml_new_tensor_4d(context_.get(), entry.type, entry.shape[0], entry.shape[1], entry.shape[2], entry.shape[3]);
    fromFile_.push_back({tensor, name, nullptr});
    return tensor;
}

Linear Weights::linear(const ModelSource& file, const std::string& weight, const std::string& bias)
{
    const ModelSource::Tensor& entry = file.tensor(weight);
    Linear linear{nullptr, bias.empty() ? nullptr : tensor(file, bias), kernelsFor(entry, place_, cap_), entry.shape[0],
                  entry.shape[1]};
    if (linear.kernels == nullptr) {
        linear.weight = tensor(file, weight);
        return linear;
    }
    const std::size_t bytes =
        linear.kernels->matrixBytes(static_cast<std::size_t>(linear.inputs), static_cast<std::size_t>(linear.outputs));
    linear.weight = ggml_new_tensor_1d(context_.get(), GGML_TYPE_I8, static_cast<std::int64_t>(bytes));
    fromFile_.push_back({linear.weight, weight, linear.kernels});
    return linear;
}

ggml_tensor* Weights::values(std::vector<float> values, std::int64_t columns, std::int64_t rows)
{
    ggml_tensor* tensor = ggml_new_tensor_2d(context_.get(), GGML_TYPE_F32, columns, rows);
    computed_.push_back({tensor, std::move(values)});
    return tensor;
}

void Weights::load(const ModelSource& file)
{
    allocate(file);
    readAll(file);
    for (const auto& [tensor, values] : computed_)
        setTensor(tensor, values);
    fromFile_.clear();
    computed_.clear();
}

void Weights::allocate(const ModelSource& file)
{
    for (const FileTensor& target : fromFile_) {
        if (!staysInFile(target.kernels))
            continue;
        if (mapping_ == nullptr)
            mapping_ = file.map();
        // Only read, never written.
        target.tensor->data = const_cast<std::byte*>(mapping_->bytes().data() + file.tensor(target.name).offset);
    }
    ggml_backend_buffer_type_t memory = ggml_backend_dev_buffer_type(processorDevice());
    requireMemory();
    buffer_.reset(ggml_backend_alloc_ctx_tensors_from_buft(context_.get(), memory));
    if (buffer_ == nullptr)
        throw ASRError(ASRError::Kind::modelLoadFailed, "out of memory");
}

void Weights::prefetch(const std::stop_token& stop) const
{
    constexpr std::size_t step = std::size_t{16} << 20;
    const std::size_t size = mapping_ != nullptr ? mapping_->bytes().size() : 0;
    for (std::size_t offset = 0; offset < size && !stop.stop_requested(); offset += step) {
        if (!mapping_->load(offset, std::min(step, size - offset)))
            return;
    }
}

void Weights::check() const
{
    if (mapping_ != nullptr && !mapping_->isUnchanged())
        throw ASRError(ASRError::Kind::processingFailed, "the model's file has been changed since it was loaded");
}

/// Uses several threads, one tensor at a time: page faults and packing take longer than reading.
void Weights::readAll(const ModelSource& file) const
{
    std::atomic<std::size_t> next = 0;
    std::mutex lock;
    std::exception_ptr failure;
    const auto work = [&] {
        try {
            std::vector<std::byte> stored;
            for (std::size_t i = next++; i < fromFile_.size(); i = next++)
                readTensor(file, fromFile_[i], stored);
        } catch (...) {
            next = fromFile_.size();
            const std::lock_guard guard(lock);
            failure = std::current_exception();
        }
    };
    {
        std::vector<std::jthread> helpers;
        try {
            for (unsigned i = 1; i < std::min(std::thread::hardware_concurrency(), maximumLoadThreads); ++i)
                helpers.emplace_back(work);
        } catch (const std::system_error&) {
            // No more threads available: continue with those there are.
        }
        work();
    }
    if (failure)
        std::rethrow_exception(failure);
}

/// Reads one panel at a time into @p stored and packs it while it is still in the cache.
void Weights::readTensor(const ModelSource& file, const FileTensor& target, std::vector<std::byte>& stored) const
{
    const ModelSource::Tensor& entry = file.tensor(target.name);
    auto* data = static_cast<std::byte*>(target.tensor->data);
    if (staysInFile(target.kernels)) {
        if (!mapping_->load(entry.offset, entry.bytes))
            throw ASRError(ASRError::Kind::modelLoadFailed, "the file cannot be read");
        return;
    }
    if (target.kernels == nullptr) {
        file.read(entry, 0, std::span(data, entry.bytes));
        return;
    }
    const kernels::MatrixKernels& matrix = *target.kernels;
    const auto inputs = static_cast<std::size_t>(entry.shape[0]);
    const auto outputs = static_cast<std::size_t>(entry.shape[1]);
    const std::size_t rowBytes = entry.bytes / outputs;
    for (std::size_t first = 0; first < outputs; first += kernels::panelOutputs) {
        const std::size_t rows = std::min(kernels::panelOutputs, outputs - first);
        stored.resize(rows * rowBytes);
        file.read(entry, first * rowBytes, stored);
        matrix.packMatrix(stored.data(), inputs, rows, data + matrix.matrixBytes(inputs, first));
    }
}

} // namespace vantro::asr
