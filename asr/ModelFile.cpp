#include "asr/ModelFile.h"

#include "asr/ASRError.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace vantro::asr {

namespace {

constexpr std::int32_t containerMagic = 0x67676d6c; // "ggml"
constexpr std::uint64_t maximumNameBytes = 256;
constexpr std::uint64_t maximumPieceBytes = 1024;
constexpr std::int32_t maximumDuration = 1000;
constexpr std::int64_t maximumDimension = 1 << 24;

[[noreturn]] void fail(const std::string& detail)
{
    throw ASRError(ASRError::Kind::modelLoadFailed, detail);
}

bool isIgnored(const std::string& name)
{
    return name.ends_with(".num_batches_tracked"); // a training counter
}

/// The others are no numbers at all, or only occur within ggml's arithmetic.
bool isUsableMatrixType(ggml_type type)
{
    return type == GGML_TYPE_F32 || ggml_get_type_traits(type)->to_float != nullptr;
}

} // namespace

ModelFile::ModelFile(const std::filesystem::path& path, HeaderOnly /*extent*/) : file_(path)
{
    readHeader();
}

ModelFile::ModelFile(const std::filesystem::path& path) : ModelFile(path, HeaderOnly())
{
    readFilters();
    readVocabulary();
    readDirectory();
    checkLayout();
}

std::optional<Hyperparameters> ModelFile::headerOf(const std::filesystem::path& path)
{
    try {
        return ModelFile(path, HeaderOnly()).parameters_;
    } catch (const ASRError&) {
        return std::nullopt;
    }
}

/// Serves small fields from a read-ahead block.
void ModelFile::readBytes(void* target, std::uint64_t bytes, const char* what)
{
    bool isRead = bytes <= remaining();
    if (isRead && bytes > ahead_.size()) {
        isRead = file_.read(position_, {static_cast<std::byte*>(target), bytes});
    } else if (isRead) {
        if (position_ < aheadBegin_ || position_ + bytes > aheadEnd_) {
            aheadBegin_ = position_;
            aheadEnd_ = position_ + std::min<std::uint64_t>(ahead_.size(), remaining());
            isRead = file_.read(position_, std::span(ahead_).first(aheadEnd_ - aheadBegin_));
        }
        std::memcpy(target, ahead_.data() + (position_ - aheadBegin_), bytes);
    }
    if (!isRead)
        fail(std::string("the file ends inside ") + what);
    position_ += bytes;
}

std::int32_t ModelFile::readInt(const char* what)
{
    std::int32_t value = 0;
    readBytes(&value, sizeof value, what);
    return value;
}

std::vector<float> ModelFile::readFiniteFloats(std::uint64_t count, const char* what)
{
    if (count > remaining() / sizeof(float))
        fail(std::string("the file ends inside ") + what);
    std::vector<float> values(count);
    readBytes(values.data(), count * sizeof(float), what);
    if (!std::ranges::all_of(values, [](float value) { return std::isfinite(value); }))
        fail(std::string(what) + " contains a value that is not finite");
    return values;
}

void ModelFile::readHeader()
{
    if (readInt("the header") != containerMagic)
        fail("the file is not a ggml model container");
    for (std::int32_t Hyperparameters::*field :
         {&Hyperparameters::vocabularySize, &Hyperparameters::audioContext, &Hyperparameters::stateSize,
          &Hyperparameters::headCount, &Hyperparameters::layerCount, &Hyperparameters::melBands,
          &Hyperparameters::fileType, &Hyperparameters::fftSize, &Hyperparameters::subsamplingFactor,
          &Hyperparameters::subsamplingChannels, &Hyperparameters::convolutionKernel, &Hyperparameters::predictionSize,
          &Hyperparameters::predictionLayers, &Hyperparameters::durationCount, &Hyperparameters::maxSymbolsPerStep})
        parameters_.*field = readInt("the header");
    parameters_.validate();
}

void ModelFile::readFilters()
{
    const std::int32_t bands = readInt("the filter bank");
    const std::int32_t bins = readInt("the filter bank");
    if (bands != parameters_.melBands || bins != parameters_.frequencyBins())
        fail("the filter bank does not fit the header");
    filterBank_ =
        readFiniteFloats(static_cast<std::uint64_t>(bands) * static_cast<std::uint64_t>(bins), "the filter bank");

    const std::int32_t windowSize = readInt("the window");
    if (windowSize < 1 || windowSize > parameters_.fftSize)
        fail("the window does not fit the FFT size");
    window_ = readFiniteFloats(static_cast<std::uint64_t>(windowSize), "the window");

    for (std::int32_t i = 0; i < parameters_.durationCount; ++i) {
        durations_.push_back(readInt("the durations"));
        if (durations_.back() < 0 || durations_.back() > maximumDuration)
            fail("a duration is out of range");
    }
}

void ModelFile::readVocabulary()
{
    if (readInt("the text pieces") != parameters_.vocabularySize)
        fail("the number of text pieces does not fit the header");
    for (std::int32_t i = 0; i < parameters_.vocabularySize; ++i) {
        const std::int32_t bytes = readInt("the text pieces");
        if (bytes < 0 || static_cast<std::uint64_t>(bytes) > std::min(maximumPieceBytes, remaining()))
            fail("a text piece is too long");
        std::string piece(static_cast<std::size_t>(bytes), '\0');
        readBytes(piece.data(), piece.size(), "the text pieces");
        pieces_.push_back(std::move(piece));
    }
}

void ModelFile::readDirectory()
{
    while (remaining() > 0)
        readTensorEntry();
}

void ModelFile::readTensorEntry()
{
    const std::int32_t dimensions = readInt("a tensor's header");
    const std::int32_t nameBytes = readInt("a tensor's header");
    const std::int32_t type = readInt("a tensor's header");
    if (dimensions < 0 || dimensions > GGML_MAX_DIMS || nameBytes < 1 ||
        static_cast<std::uint64_t>(nameBytes) > maximumNameBytes)
        fail("a tensor's header is damaged");
    Tensor tensor;
    std::uint64_t elements = 1;
    for (int i = 0; i < dimensions; ++i) {
        tensor.shape.at(static_cast<std::size_t>(i)) = readInt("a tensor's header");
        const std::int64_t extent = tensor.shape.at(static_cast<std::size_t>(i));
        // Each factor has 24 bits, so the product exceeds any file size before it can overflow.
        if (extent < 1 || extent > maximumDimension || elements > file_.size())
            fail("a tensor's dimension is out of range");
        elements *= static_cast<std::uint64_t>(extent);
    }
    std::string name(static_cast<std::size_t>(nameBytes), '\0');
    readBytes(name.data(), name.size(), "a tensor's name");
    if (type < 0 || type >= GGML_TYPE_COUNT || ggml_blck_size(static_cast<ggml_type>(type)) == 0)
        fail("the tensor " + name + " has an unknown type");
    tensor.type = static_cast<ggml_type>(type);
    if (tensor.shape[0] % ggml_blck_size(tensor.type) != 0)
        fail("the tensor " + name + " has a row length that does not fit its type");
    tensor.bytes = elements / static_cast<std::uint64_t>(ggml_blck_size(tensor.type)) * ggml_type_size(tensor.type);
    tensor.offset = position_;
    if (tensor.bytes > remaining())
        fail("the file ends inside the tensor " + name);
    position_ += tensor.bytes;
    if (!isIgnored(name) && !tensors_.emplace(name, tensor).second)
        fail("the tensor " + name + " occurs twice");
}

void ModelFile::checkLayout()
{
    feedForwardSize_ = tensor(feedForwardSizeTensor).shape[1];
    jointSize_ = tensor(jointSizeTensor).shape[0];
    const auto layout = modelLayout(parameters_, feedForwardSize_, jointSize_);
    for (const TensorLayout& expected : layout) {
        const Tensor& found = tensor(expected.name);
        if (found.shape != expected.shape)
            fail("the tensor " + expected.name + " does not have the shape the header announces");
        if (expected.isMatrix ? !isUsableMatrixType(found.type) : found.type != GGML_TYPE_F32)
            fail("the tensor " + expected.name + " has an unsupported type");
    }
    if (layout.size() != tensors_.size())
        fail("the file contains tensors that are not part of this architecture");
}

const ModelFile::Tensor& ModelFile::tensor(const std::string& name) const
{
    const auto found = tensors_.find(name);
    if (found == tensors_.end())
        fail("the tensor " + name + " is missing");
    return found->second;
}

void ModelFile::read(const Tensor& tensor, std::uint64_t skipped, std::span<std::byte> target) const
{
    if (!file_.read(tensor.offset + skipped, target))
        fail("the file ends inside a tensor");
}

std::vector<float> ModelFile::readFloats(const std::string& name) const
{
    const Tensor& entry = tensor(name);
    std::vector<float> values(entry.bytes / sizeof(float));
    read(entry, 0, std::as_writable_bytes(std::span(values)));
    return values;
}

} // namespace vantro::asr
