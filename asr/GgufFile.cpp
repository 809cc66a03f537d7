#include "asr/GgufFile.h"

#include "asr/ASRError.h"
#include "asr/Preprocessor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace vantro::asr {

namespace {

constexpr std::uint32_t magic = 0x46554747; // "GGUF"
constexpr std::uint32_t version = 3;
constexpr std::uint64_t maximumKeyBytes = 256;
constexpr std::uint64_t maximumGgufNameBytes = 64;
constexpr std::uint64_t maximumTextBytes = 1 << 16;
constexpr std::uint64_t maximumGgufPieceBytes = 1024;
constexpr std::uint64_t defaultAlignment = 32;
// A pair has at least its key's length, type and a byte; a tensor its name's length, dimensions, type and offset.
constexpr std::uint64_t smallestPair = 13;
constexpr std::uint64_t smallestTensor = 24;

enum ValueType : std::uint32_t {
    uint8Value,
    int8Value,
    uint16Value,
    int16Value,
    uint32Value,
    int32Value,
    float32Value,
    boolValue,
    stringValue,
    arrayValue,
    uint64Value,
    int64Value,
    float64Value,
};

/// Bytes of a number; 0 for the other types.
std::uint64_t sizeOf(std::uint32_t type)
{
    constexpr std::array<std::uint64_t, 13> sizes = {1, 1, 2, 2, 4, 4, 4, 1, 0, 0, 8, 8, 8};
    return type < sizes.size() ? sizes.at(type) : 0;
}

const std::string prefix = "parakeet-ctc.";

std::uint64_t aligned(std::uint64_t position, std::uint64_t alignment)
{
    return (position + alignment - 1) / alignment * alignment;
}

} // namespace

GgufFile::GgufFile(const std::filesystem::path& path) : ModelSource(path)
{
    if (in_.read<std::uint32_t>("the header") != magic)
        failLoading("the file is not a GGUF file");
    if (in_.read<std::uint32_t>("the header") != version)
        failLoading("the file has another version of GGUF than 3");
    const auto tensorCount = in_.read<std::uint64_t>("the header");
    const auto pairCount = in_.read<std::uint64_t>("the header");
    if (pairCount > in_.remaining() / smallestPair || tensorCount > in_.remaining() / smallestTensor)
        failLoading("the header announces more than the file can contain");
    for (std::uint64_t i = 0; i < pairCount; ++i)
        readPair();
    readParameters();
    readTokenizer();
    readTensors(tensorCount);
    readFilters();
}

bool GgufFile::isGguf(const std::filesystem::path& path)
{
    try {
        const FileReader file(path);
        return SequentialReader(file).read<std::uint32_t>("the header") == magic;
    } catch (const ASRError&) {
        return false;
    }
}

void GgufFile::readPair()
{
    const auto length = in_.read<std::uint64_t>("a key");
    std::string key = in_.text(length, maximumKeyBytes, "a key");
    const auto type = in_.read<std::uint32_t>("a value");
    Value value = type == arrayValue ? readArray() : readValue(type);
    if (!pairs_.emplace(key, std::move(value)).second)
        failLoading("the key " + key + " occurs twice");
}

template <typename Stored, typename Kept>
GgufFile::Value GgufFile::readNumber()
{
    return static_cast<Kept>(in_.read<Stored>("a value"));
}

GgufFile::Value GgufFile::readValue(std::uint32_t type)
{
    switch (type) {
    case uint8Value:
        return readNumber<std::uint8_t, std::int64_t>();
    case int8Value:
        return readNumber<std::int8_t, std::int64_t>();
    case uint16Value:
        return readNumber<std::uint16_t, std::int64_t>();
    case int16Value:
        return readNumber<std::int16_t, std::int64_t>();
    case uint32Value:
        return readNumber<std::uint32_t, std::int64_t>();
    case int32Value:
        return readNumber<std::int32_t, std::int64_t>();
    case uint64Value:
    case int64Value:
        return readNumber<std::int64_t, std::int64_t>();
    case float32Value:
        return readNumber<float, double>();
    case float64Value:
        return readNumber<double, double>();
    case boolValue:
        return in_.read<std::uint8_t>("a value") != 0;
    case stringValue:
        return in_.text(in_.read<std::uint64_t>("a text"), maximumTextBytes, "a text");
    default:
        failLoading("a value has an unknown type");
    }
}

/// Keeps the two kinds of arrays that a tokeniser needs.
GgufFile::Value GgufFile::readArray()
{
    const auto type = in_.read<std::uint32_t>("an array");
    const auto count = in_.read<std::uint64_t>("an array");
    if (type == float32Value)
        return in_.floats(count, "an array");
    if (type == stringValue) {
        if (count > in_.remaining() / sizeof(std::uint64_t))
            failLoading("the file ends inside an array");
        std::vector<std::string> texts;
        for (std::uint64_t i = 0; i < count; ++i)
            texts.push_back(in_.text(in_.read<std::uint64_t>("a text"), maximumGgufPieceBytes, "an array"));
        return texts;
    }
    if (sizeOf(type) == 0)
        failLoading("an array has an unknown type");
    if (count > in_.remaining() / sizeOf(type))
        failLoading("the file ends inside an array");
    in_.skip(count * sizeOf(type), "an array");
    return Value();
}

template <typename T>
const T& GgufFile::value(const std::string& key) const
{
    const auto found = pairs_.find(key);
    if (found == pairs_.end())
        failLoading("the key " + key + " is missing");
    const T* value = std::get_if<T>(&found->second);
    if (value == nullptr)
        failLoading("the value of " + key + " has another type than expected");
    return *value;
}

std::int32_t GgufFile::integer(const std::string& key) const
{
    const auto number = value<std::int64_t>(key);
    if (number < 0 || number > std::numeric_limits<std::int32_t>::max())
        failLoading("the value of " + key + " is out of range");
    return static_cast<std::int32_t>(number);
}

void GgufFile::requireNumber(const std::string& key, double expected) const
{
    if (!(std::abs(value<double>(prefix + key) - expected) <= expected * 1e-3))
        failLoading("the value of " + prefix + key + " is not supported");
}

void GgufFile::readParameters()
{
    if (value<std::string>("general.architecture") != "parakeet-ctc")
        failLoading("the file is a model of another architecture");
    const auto read = [this](const char* key) {
        return integer(prefix + key);
    };
    parameters_.vocabularySize = read("vocab_size");
    parameters_.stateSize = read("embedding_length");
    parameters_.headCount = read("attention.head_count");
    parameters_.layerCount = read("block_count");
    parameters_.melBands = read("mel_bins");
    parameters_.fftSize = read("n_fft");
    parameters_.subsamplingFactor = read("subsampling_factor");
    parameters_.subsamplingChannels = read("subsampling_channels");
    parameters_.convolutionKernel = read("conv_kernel");
    parameters_.batchEpsilon = static_cast<float>(value<double>(prefix + "batch_norm_epsilon"));
    parameters_.hasBiases = pairs_.contains(prefix + "use_bias") && value<bool>(prefix + "use_bias");
    parameters_.validate();
    if (read("blank_id") != parameters_.vocabularySize)
        failLoading("the blank does not follow the text pieces");
    if (read("sample_rate") != 16'000 || read("hop_length") != static_cast<std::int32_t>(Preprocessor::hopSamples))
        failLoading("the frames have another length than 10 ms at 16 kHz");
    requireNumber("preemphasis", 0.97);
    requireNumber("log_guard", 0x1p-24);
    requireNumber("std_guard", 1e-5);
    requireNumber("attention.layer_norm_epsilon", 1e-5);
    requireNumber("frame_duration", 0.08);
}

void GgufFile::readTokenizer()
{
    pieces_ = value<std::vector<std::string>>("tokenizer.ggml.tokens");
    scores_ = value<std::vector<float>>("tokenizer.ggml.scores");
    const auto count = static_cast<std::size_t>(parameters_.vocabularySize);
    if (pieces_.size() != count || scores_.size() != count)
        failLoading("the number of text pieces does not fit the header");
    unknownPiece_ = integer("tokenizer.ggml.unknown_token_id");
    if (unknownPiece_ >= parameters_.vocabularySize)
        failLoading("the unknown piece is out of range");
}

void GgufFile::readTensors(std::uint64_t count)
{
    const auto alignment = pairs_.contains("general.alignment")
                               ? static_cast<std::uint64_t>(integer("general.alignment"))
                               : defaultAlignment;
    if (alignment < 8 || alignment > 4096 || alignment % 8 != 0)
        failLoading("the alignment is out of range");
    std::vector<std::pair<std::string, Tensor>> entries;
    std::uint64_t end = 0; // of the data so far, which follow the directory without gaps
    for (std::uint64_t i = 0; i < count; ++i) {
        entries.push_back(readTensorEntry());
        Tensor& tensor = entries.back().second;
        if (tensor.offset != aligned(end, alignment) || tensor.bytes > file().size())
            failLoading("the tensor " + entries.back().first + " is not where it should be");
        end = tensor.offset + tensor.bytes;
    }
    const std::uint64_t data = aligned(in_.position(), alignment);
    if (file().size() < data + end || file().size() > data + aligned(end, alignment))
        failLoading("the tensors do not end where the file does");
    for (auto& [name, tensor] : entries) {
        tensor.offset += data;
        addTensor(name, tensor);
    }
}

/// The offset is the one from the start of the data.
std::pair<std::string, ModelSource::Tensor> GgufFile::readTensorEntry()
{
    const auto nameBytes = in_.read<std::uint64_t>("a tensor's name");
    std::string name = in_.text(nameBytes, maximumGgufNameBytes, "a tensor's name");
    const auto dimensions = in_.read<std::uint32_t>("a tensor's header");
    if (dimensions > GGML_MAX_DIMS)
        failLoading("a tensor has too many dimensions");
    std::vector<std::int64_t> extents(dimensions);
    for (std::int64_t& extent : extents)
        extent = in_.read<std::int64_t>("a tensor's header");
    Tensor tensor;
    setShape(tensor, extents);
    setType(tensor, in_.read<std::uint32_t>("a tensor's header"), name);
    tensor.offset = in_.read<std::uint64_t>("a tensor's header");
    return {std::move(name), tensor};
}

void GgufFile::readFilters()
{
    const std::int32_t windowSize = integer(prefix + "window_length");
    if (windowSize < 1 || windowSize > parameters_.fftSize)
        failLoading("the window does not fit the FFT size");
    checkLayout(ctcLayout(parameters_, integer(prefix + "feed_forward_length"), windowSize));
    filterBank_ = readFloats("preprocessor.fb");
    window_ = readFloats("preprocessor.window");
    for (const std::vector<float>* values : {&filterBank_, &window_}) {
        if (!std::ranges::all_of(*values, [](float value) { return std::isfinite(value); }))
            failLoading("the filters contain a value that is not finite");
    }
}

} // namespace vantro::asr
