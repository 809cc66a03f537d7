#include "asr/ModelFile.h"

#include "asr/ASRError.h"

#include <array>

namespace vantro::asr {

namespace {

constexpr std::int32_t containerMagic = 0x67676d6c; // "ggml"
constexpr std::uint64_t maximumNameBytes = 256;
constexpr std::uint64_t maximumPieceBytes = 1024;
constexpr std::int32_t maximumDuration = 1000;

bool isIgnored(const std::string& name)
{
    return name.ends_with(".num_batches_tracked"); // a training counter
}

/// For a length; a negative one exceeds every limit.
std::uint64_t lengthOf(std::int32_t value)
{
    return static_cast<std::uint64_t>(static_cast<std::int64_t>(value));
}

} // namespace

ModelFile::ModelFile(const std::filesystem::path& path, HeaderOnly /*extent*/) : ModelSource(path)
{
    readHeader();
}

ModelFile::ModelFile(const std::filesystem::path& path) : ModelFile(path, HeaderOnly())
{
    readFilters();
    readVocabulary();
    readDirectory();
    feedForwardSize_ = tensor(feedForwardSizeTensor).shape[1];
    jointSize_ = tensor(jointSizeTensor).shape[0];
    checkLayout(modelLayout(parameters_, feedForwardSize_, jointSize_));
}

std::optional<Hyperparameters> ModelFile::headerOf(const std::filesystem::path& path)
{
    try {
        return ModelFile(path, HeaderOnly()).parameters_;
    } catch (const ASRError&) {
        return std::nullopt;
    }
}

void ModelFile::readHeader()
{
    if (in_.read<std::int32_t>("the header") != containerMagic)
        failLoading("the file is not a ggml model container");
    const std::array<std::int32_t Hyperparameters::*, 15> fields = {
        &Hyperparameters::vocabularySize,    &Hyperparameters::audioContext,
        &Hyperparameters::stateSize,         &Hyperparameters::headCount,
        &Hyperparameters::layerCount,        &Hyperparameters::melBands,
        &Hyperparameters::fileType,          &Hyperparameters::fftSize,
        &Hyperparameters::subsamplingFactor, &Hyperparameters::subsamplingChannels,
        &Hyperparameters::convolutionKernel, &Hyperparameters::predictionSize,
        &Hyperparameters::predictionLayers,  &Hyperparameters::durationCount,
        &Hyperparameters::maxSymbolsPerStep};
    for (const auto field : fields)
        parameters_.*field = in_.read<std::int32_t>("the header");
    parameters_.validate();
}

void ModelFile::readFilters()
{
    const auto bands = in_.read<std::int32_t>("the filter bank");
    const auto bins = in_.read<std::int32_t>("the filter bank");
    if (bands != parameters_.melBands || bins != parameters_.frequencyBins())
        failLoading("the filter bank does not fit the header");
    filterBank_ = in_.floats(static_cast<std::uint64_t>(bands) * static_cast<std::uint64_t>(bins), "the filter bank");

    const auto windowSize = in_.read<std::int32_t>("the window");
    if (windowSize < 1 || windowSize > parameters_.fftSize)
        failLoading("the window does not fit the FFT size");
    window_ = in_.floats(static_cast<std::uint64_t>(windowSize), "the window");

    for (std::int32_t i = 0; i < parameters_.durationCount; ++i) {
        durations_.push_back(in_.read<std::int32_t>("the durations"));
        if (durations_.back() < 0 || durations_.back() > maximumDuration)
            failLoading("a duration is out of range");
    }
}

void ModelFile::readVocabulary()
{
    if (in_.read<std::int32_t>("the text pieces") != parameters_.vocabularySize)
        failLoading("the number of text pieces does not fit the header");
    for (std::int32_t i = 0; i < parameters_.vocabularySize; ++i) {
        const std::uint64_t length = lengthOf(in_.read<std::int32_t>("the text pieces"));
        pieces_.push_back(in_.text(length, maximumPieceBytes, "the list of text pieces"));
    }
}

void ModelFile::readDirectory()
{
    while (in_.remaining() > 0)
        readTensorEntry();
}

void ModelFile::readTensorEntry()
{
    const auto dimensions = in_.read<std::int32_t>("a tensor's header");
    const std::uint64_t nameBytes = lengthOf(in_.read<std::int32_t>("a tensor's header"));
    const auto type = in_.read<std::int32_t>("a tensor's header");
    if (dimensions < 0 || dimensions > GGML_MAX_DIMS || nameBytes < 1)
        failLoading("a tensor's header is damaged");
    std::vector<std::int64_t> extents(static_cast<std::size_t>(dimensions));
    for (std::int64_t& extent : extents)
        extent = in_.read<std::int32_t>("a tensor's header");
    Tensor tensor;
    setShape(tensor, extents);
    const std::string name = in_.text(nameBytes, maximumNameBytes, "a tensor's name");
    setType(tensor, type, name);
    tensor.offset = in_.position();
    in_.skip(tensor.bytes, ("the tensor " + name).c_str());
    if (!isIgnored(name))
        addTensor(name, tensor);
}

} // namespace vantro::asr
