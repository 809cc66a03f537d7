#include "asr/testing/GgufWriter.h"

#include "asr/GgufFile.h"
#include "asr/testing/RandomTensors.h"

#include <fstream>
#include <random>
#include <span>
#include <type_traits>

namespace vantro::asr::testing {

namespace {

constexpr std::uint64_t alignment = 32;

class GgufOutput
{
public:
    explicit GgufOutput(const std::filesystem::path& path) : out_(path, std::ios::binary)
    {
        out_.exceptions(std::ios::failbit | std::ios::badbit);
    }
    template <typename T>
    void number(T value)
    {
        out_.write(reinterpret_cast<const char*>(&value), sizeof value);
    }
    void text(const std::string& value)
    {
        number<std::uint64_t>(value.size());
        out_ << value;
    }
    void bytes(std::span<const std::byte> values)
    {
        out_.write(reinterpret_cast<const char*>(values.data()), std::ssize(values));
    }
    void align()
    {
        while (static_cast<std::uint64_t>(out_.tellp()) % alignment != 0)
            out_.put('\0');
    }

private:
    std::ofstream out_;
};

void writeValue(GgufOutput& writer, const GgufValue& value)
{
    constexpr std::uint32_t texts = 8;
    constexpr std::uint32_t arrays = 9;
    constexpr std::uint32_t numbers = 6;
    const std::uint32_t types[] = {4, numbers, 7, texts, arrays, arrays};
    writer.number(types[value.index()]);
    std::visit(
        [&](const auto& held) {
            using Held = std::remove_cvref_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::string>) {
                writer.text(held);
            } else if constexpr (std::is_same_v<Held, std::vector<std::string>>) {
                writer.number(texts);
                writer.number<std::uint64_t>(held.size());
                for (const std::string& text : held)
                    writer.text(text);
            } else if constexpr (std::is_same_v<Held, std::vector<float>>) {
                writer.number(numbers);
                writer.number<std::uint64_t>(held.size());
                writer.bytes(std::as_bytes(std::span(held)));
            } else if constexpr (std::is_same_v<Held, bool>) {
                writer.number<std::uint8_t>(held ? 1 : 0);
            } else {
                writer.number(held);
            }
        },
        value);
}

struct NamedTensor
{
    TensorLayout layout;
    PackedTensor values;
};

void writeFile(const std::filesystem::path& path, const std::map<std::string, GgufValue>& pairs,
               std::span<const NamedTensor> tensors)
{
    GgufOutput writer(path);
    writer.number<std::uint32_t>(0x46554747); // "GGUF"
    writer.number<std::uint32_t>(3);
    writer.number<std::uint64_t>(tensors.size());
    writer.number<std::uint64_t>(pairs.size());
    for (const auto& [key, value] : pairs) {
        writer.text(key);
        writeValue(writer, value);
    }
    std::uint64_t offset = 0;
    for (const NamedTensor& tensor : tensors) {
        writer.text(tensor.layout.name);
        writer.number(static_cast<std::uint32_t>(tensor.layout.dimensions));
        for (int i = 0; i < tensor.layout.dimensions; ++i)
            writer.number(static_cast<std::uint64_t>(tensor.layout.shape.at(static_cast<std::size_t>(i))));
        writer.number(static_cast<std::uint32_t>(tensor.values.type));
        writer.number(offset);
        offset = (offset + tensor.values.bytes.size() + alignment - 1) / alignment * alignment;
    }
    writer.align();
    for (const NamedTensor& tensor : tensors) {
        writer.bytes(tensor.values.bytes);
        writer.align();
    }
}

std::vector<float> widened(const GgufFile& model, const std::string& name)
{
    const ModelSource::Tensor& tensor = model.tensor(name);
    if (tensor.type == GGML_TYPE_F32)
        return model.readFloats(name);
    std::vector<std::byte> stored(tensor.bytes);
    model.read(tensor, 0, stored);
    std::vector<float> values(tensor.bytes / sizeof(ggml_fp16_t));
    ggml_fp16_to_fp32_row(reinterpret_cast<const ggml_fp16_t*>(stored.data()), values.data(), std::ssize(values));
    return values;
}

} // namespace

std::map<std::string, GgufValue> ctcPairs(const EncoderParameters& p, std::int32_t windowSize)
{
    const auto count = [](std::int64_t value) {
        return static_cast<std::uint32_t>(value);
    };
    std::vector<std::string> pieces = {"<unk>"};
    for (std::int32_t i = 1; i < p.vocabularySize; ++i)
        pieces.push_back((i % 3 == 0 ? "\u2581t" : "t") + std::to_string(i));
    const std::string prefix = "parakeet-ctc.";
    return {{"general.architecture", std::string("parakeet-ctc")},
            {prefix + "vocab_size", count(p.vocabularySize)},
            {prefix + "blank_id", count(p.vocabularySize)},
            {prefix + "embedding_length", count(p.stateSize)},
            {prefix + "attention.head_count", count(p.headCount)},
            {prefix + "block_count", count(p.layerCount)},
            {prefix + "feed_forward_length", count(4 * p.stateSize)},
            {prefix + "conv_kernel", count(p.convolutionKernel)},
            {prefix + "subsampling_factor", count(p.subsamplingFactor)},
            {prefix + "subsampling_channels", count(p.subsamplingChannels)},
            {prefix + "mel_bins", count(p.melBands)},
            {prefix + "n_fft", count(p.fftSize)},
            {prefix + "window_length", count(windowSize)},
            {prefix + "hop_length", count(160)},
            {prefix + "sample_rate", count(16'000)},
            {prefix + "preemphasis", 0.97F},
            {prefix + "log_guard", 0x1p-24F},
            {prefix + "std_guard", 1e-5F},
            {prefix + "attention.layer_norm_epsilon", 1e-5F},
            {prefix + "batch_norm_epsilon", p.batchEpsilon},
            {prefix + "frame_duration", 0.08F},
            {prefix + "use_bias", p.hasBiases},
            {"tokenizer.ggml.tokens", pieces},
            {"tokenizer.ggml.scores", std::vector<float>(pieces.size())},
            {"tokenizer.ggml.unknown_token_id", count(0)}};
}

EncoderParameters hybridShape()
{
    EncoderParameters p;
    p.vocabularySize = 1024;
    p.stateSize = 512;
    p.headCount = 8;
    p.layerCount = 17;
    p.melBands = 80;
    p.fftSize = 512;
    p.subsamplingFactor = 8;
    p.subsamplingChannels = 256;
    p.convolutionKernel = 9;
    p.hasBiases = true;
    p.batchEpsilon = 1e-5F;
    return p;
}

void writeRandomCtcModel(const std::filesystem::path& path, const EncoderParameters& parameters, ggml_type matrixType,
                         const std::map<std::string, GgufValue>& extra)
{
    constexpr std::int32_t windowSize = 400;
    std::map<std::string, GgufValue> pairs = ctcPairs(parameters, windowSize);
    for (const auto& [key, value] : extra)
        pairs[key] = value;
    std::minstd_rand random(1);
    std::vector<NamedTensor> tensors;
    for (const TensorLayout& tensor : ctcLayout(parameters, 4 * parameters.stateSize, windowSize)) {
        const bool isFilter = tensor.name.starts_with("preprocessor.");
        const std::vector<float> values = isFilter ? filterValues(tensor, parameters) : randomValues(tensor, random);
        tensors.push_back({tensor, packed(tensor, values, matrixType)});
    }
    writeFile(path, pairs, tensors);
}

void writeRequantisedCtc(const std::filesystem::path& path, const std::filesystem::path& source, ggml_type matrixType)
{
    const GgufFile model(source);
    const auto windowSize = static_cast<std::int32_t>(model.window().size());
    std::map<std::string, GgufValue> pairs = ctcPairs(model.encoderParameters(), windowSize);
    pairs["tokenizer.ggml.tokens"] = model.pieces();
    pairs["tokenizer.ggml.scores"] = model.scores();
    std::vector<NamedTensor> tensors;
    for (const TensorLayout& tensor :
         ctcLayout(model.encoderParameters(), model.tensor(feedForwardSizeTensor).shape[1], windowSize))
        tensors.push_back({tensor, packed(tensor, widened(model, tensor.name), matrixType)});
    writeFile(path, pairs, tensors);
}

} // namespace vantro::asr::testing
