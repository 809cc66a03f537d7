#include "asr/ModelSource.h"

#include "asr/ASRError.h"

namespace vantro::asr {

namespace {

constexpr std::int64_t maximumDimension = 1 << 24;

/// The others are no numbers at all, or only occur within ggml's arithmetic.
bool isUsableMatrixType(ggml_type type)
{
    return type == GGML_TYPE_F32 || ggml_get_type_traits(type)->to_float != nullptr;
}

} // namespace

void ModelSource::setShape(Tensor& tensor, std::span<const std::int64_t> extents) const
{
    if (extents.size() > GGML_MAX_DIMS)
        failLoading("a tensor has too many dimensions");
    std::uint64_t elements = 1;
    for (std::size_t i = 0; i < extents.size(); ++i) {
        // Each factor has 24 bits, so the product exceeds any file size before it can overflow.
        if (extents[i] < 1 || extents[i] > maximumDimension || elements > file_.size())
            failLoading("a tensor's dimension is out of range");
        tensor.shape.at(i) = extents[i];
        elements *= static_cast<std::uint64_t>(extents[i]);
    }
}

void ModelSource::setType(Tensor& tensor, std::int64_t type, const std::string& name)
{
    if (type < 0 || type >= GGML_TYPE_COUNT || ggml_blck_size(static_cast<ggml_type>(type)) == 0)
        failLoading("the tensor " + name + " has an unknown type");
    tensor.type = static_cast<ggml_type>(type);
    const std::int64_t block = ggml_blck_size(tensor.type);
    if (tensor.shape[0] % block != 0)
        failLoading("the tensor " + name + " has a row length that does not fit its type");
    std::uint64_t elements = 1;
    for (const std::int64_t extent : tensor.shape)
        elements *= static_cast<std::uint64_t>(extent);
    tensor.bytes = elements / static_cast<std::uint64_t>(block) * ggml_type_size(tensor.type);
}

void ModelSource::addTensor(const std::string& name, const Tensor& tensor)
{
    if (!tensors_.emplace(name, tensor).second)
        failLoading("the tensor " + name + " occurs twice");
}

void ModelSource::checkLayout(std::span<const TensorLayout> layout) const
{
    for (const TensorLayout& expected : layout) {
        const Tensor& found = tensor(expected.name);
        if (found.shape != expected.shape)
            failLoading("the tensor " + expected.name + " does not have the shape the header announces");
        if (expected.isMatrix ? !isUsableMatrixType(found.type) : found.type != GGML_TYPE_F32)
            failLoading("the tensor " + expected.name + " has an unsupported type");
    }
    if (layout.size() != tensors_.size())
        failLoading("the file contains tensors that are not part of this architecture");
}

const ModelSource::Tensor& ModelSource::tensor(const std::string& name) const
{
    const auto found = tensors_.find(name);
    if (found == tensors_.end())
        failLoading("the tensor " + name + " is missing");
    return found->second;
}

void ModelSource::read(const Tensor& tensor, std::uint64_t skipped, std::span<std::byte> target) const
{
    if (!file_.read(tensor.offset + skipped, target))
        failLoading("the file ends inside a tensor");
}

std::vector<float> ModelSource::readFloats(const std::string& name) const
{
    const Tensor& entry = tensor(name);
    std::vector<float> values(entry.bytes / sizeof(float));
    read(entry, 0, std::as_writable_bytes(std::span(values)));
    return values;
}

} // namespace vantro::asr
