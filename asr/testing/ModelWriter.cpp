#include "asr/testing/ModelWriter.h"

#include "asr/ModelFile.h"
#include "asr/testing/RandomTensors.h"

#include <fstream>
#include <random>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace vantro::asr::testing {

namespace {

constexpr std::int32_t containerMagic = 0x67676d6c;
constexpr std::int32_t windowSize = 400;

class ModelOutput
{
public:
    explicit ModelOutput(const std::filesystem::path& path) : file_(path, std::ios::binary)
    {
        file_.exceptions(std::ios::failbit | std::ios::badbit);
    }
    void integer(std::int32_t value) { file_.write(reinterpret_cast<const char*>(&value), sizeof value); }
    void text(std::string_view value) { file_.write(value.data(), static_cast<std::streamsize>(value.size())); }
    template <typename T>
    void values(std::span<const T> values)
    {
        file_.write(reinterpret_cast<const char*>(values.data()), static_cast<std::streamsize>(values.size_bytes()));
    }

private:
    std::ofstream file_;
};

/// The header's file type; ggml adds 1000 * quantisation version for quantised types.
std::int32_t fileTypeOf(ggml_type type)
{
    switch (type) {
    case GGML_TYPE_F32:
        return GGML_FTYPE_ALL_F32;
    case GGML_TYPE_F16:
        return GGML_FTYPE_MOSTLY_F16;
    case GGML_TYPE_Q4_0:
        return 1000 * GGML_QNT_VERSION + GGML_FTYPE_MOSTLY_Q4_0;
    case GGML_TYPE_Q5_0:
        return 1000 * GGML_QNT_VERSION + GGML_FTYPE_MOSTLY_Q5_0;
    default:
        return 1000 * GGML_QNT_VERSION + GGML_FTYPE_MOSTLY_Q8_0;
    }
}

void writeHeader(ModelOutput& writer, const Hyperparameters& p, ggml_type type)
{
    writer.integer(containerMagic);
    for (const std::int32_t value :
         {p.vocabularySize, p.audioContext, p.stateSize, p.headCount, p.layerCount, p.melBands, fileTypeOf(type),
          p.fftSize, p.subsamplingFactor, p.subsamplingChannels, p.convolutionKernel, p.predictionSize,
          p.predictionLayers, p.durationCount, p.maxSymbolsPerStep})
        writer.integer(value);
}

void writeFilters(ModelOutput& writer, const Hyperparameters& p)
{
    writer.integer(p.melBands);
    writer.integer(p.frequencyBins());
    writer.values<float>(filterValues({"filter bank", {p.frequencyBins(), p.melBands, 1, 1}, 2, false}, p));
    writer.integer(windowSize);
    writer.values<float>(filterValues({"window", {windowSize, 1, 1, 1}, 1, false}, p));
    for (std::int32_t i = 0; i < p.durationCount; ++i)
        writer.integer(i);
}

void writePieces(ModelOutput& writer, const Hyperparameters& p)
{
    writer.integer(p.vocabularySize);
    for (std::int32_t i = 0; i < p.vocabularySize; ++i) {
        const std::string piece = (i % 3 == 0 ? "\u2581t" : "t") + std::to_string(i);
        writer.integer(static_cast<std::int32_t>(piece.size()));
        writer.text(piece);
    }
}

/// As with real speech, about every second decision is a blank and most decisions skip some frames.
void favourBlanks(std::vector<float>& outputBias, const Hyperparameters& p)
{
    outputBias[static_cast<std::size_t>(p.vocabularySize)] = 2.6F;
    outputBias.back() = 1.5F;
}

void writeTensor(ModelOutput& writer, const TensorLayout& tensor, std::span<const float> values, ggml_type matrixType)
{
    const PackedTensor stored = packed(tensor, values, matrixType);
    writer.integer(tensor.dimensions);
    writer.integer(static_cast<std::int32_t>(tensor.name.size()));
    writer.integer(stored.type);
    for (int i = 0; i < tensor.dimensions; ++i)
        writer.integer(static_cast<std::int32_t>(tensor.shape.at(static_cast<std::size_t>(i))));
    writer.text(tensor.name);
    writer.values<std::byte>(stored.bytes);
}

std::size_t tensorHeaderBytes(const TensorLayout& tensor)
{
    return sizeof(std::int32_t) * static_cast<std::size_t>(3 + tensor.dimensions) + tensor.name.size();
}

/// The training counter that the converter writes after every running variance.
void writeBatchCounter(ModelOutput& writer, const std::string& variance)
{
    const std::string name = variance.substr(0, variance.rfind('.')) + ".num_batches_tracked";
    writer.integer(0);
    writer.integer(static_cast<std::int32_t>(name.size()));
    writer.integer(GGML_TYPE_F32);
    writer.text(name);
    writer.values<float>(std::vector<float>{1.0F});
}

} // namespace

Hyperparameters publishedShape(std::int32_t vocabularySize)
{
    Hyperparameters p;
    p.vocabularySize = vocabularySize;
    p.audioContext = 5000;
    p.stateSize = 1024;
    p.headCount = 8;
    p.layerCount = 24;
    p.melBands = 128;
    p.fftSize = 512;
    p.subsamplingFactor = 8;
    p.subsamplingChannels = 256;
    p.convolutionKernel = 9;
    p.predictionSize = 640;
    p.predictionLayers = 2;
    p.durationCount = 5;
    p.maxSymbolsPerStep = 10;
    return p;
}

void writeRandomModel(const std::filesystem::path& path, const Hyperparameters& parameters, ggml_type matrixType,
                      std::uint32_t seed)
{
    ModelOutput writer(path);
    std::minstd_rand random(seed);
    writeHeader(writer, parameters, matrixType);
    writeFilters(writer, parameters);
    writePieces(writer, parameters);
    for (const TensorLayout& tensor : modelLayout(parameters, 4 * parameters.stateSize, parameters.predictionSize)) {
        std::vector<float> values = randomValues(tensor, random);
        if (tensor.name == "joint.joint_net.2.bias")
            favourBlanks(values, parameters);
        writeTensor(writer, tensor, values, matrixType);
        if (tensor.name.ends_with(".running_var"))
            writeBatchCounter(writer, tensor.name);
    }
}

void writeRequantised(const std::filesystem::path& path, const std::filesystem::path& source, ggml_type matrixType)
{
    const ModelFile model(source);
    const auto layout = modelLayout(model.hyperparameters(), model.feedForwardSize(), model.jointSize());
    // Copy everything before the first tensor.
    const TensorLayout& first = layout.front();
    std::vector<char> beginning(model.tensor(first.name).offset - tensorHeaderBytes(first));
    std::ifstream(source, std::ios::binary).read(beginning.data(), std::ssize(beginning));
    ModelOutput writer(path);
    writer.values<char>(beginning);
    for (const TensorLayout& tensor : layout)
        writeTensor(writer, tensor, model.readFloats(tensor.name), matrixType);
}

} // namespace vantro::asr::testing
