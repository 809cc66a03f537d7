#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vantro::asr {

/// What the header of a model container says, in its order.
struct Hyperparameters
{
    std::int32_t vocabularySize = 0; ///< text pieces; the blank has this index
    std::int32_t audioContext = 0;   ///< mel frames the model was published for
    std::int32_t stateSize = 0;      ///< width of the encoder
    std::int32_t headCount = 0;
    std::int32_t layerCount = 0;
    std::int32_t melBands = 0;
    std::int32_t fileType = 0; ///< 1000 * quantisation version + ggml file type
    std::int32_t fftSize = 0;
    std::int32_t subsamplingFactor = 0;
    std::int32_t subsamplingChannels = 0;
    std::int32_t convolutionKernel = 0;
    std::int32_t predictionSize = 0;
    std::int32_t predictionLayers = 0;
    std::int32_t durationCount = 0;
    std::int32_t maxSymbolsPerStep = 0;

    /// Throws ASRError::modelLoadFailed when a value is outside what the architecture can have.
    void validate() const;

    [[nodiscard]] std::int32_t headSize() const { return stateSize / headCount; }
    [[nodiscard]] std::int32_t frequencyBins() const { return fftSize / 2 + 1; }
    /// Bands left after the three halvings of the subsampling, each of which rounds up.
    [[nodiscard]] std::int32_t subsampledBands() const;
    [[nodiscard]] std::int32_t jointOutputs() const { return vocabularySize + 1 + durationCount; }
};

/// Dimensions as ggml has them: the fastest first, unused ones 1.
using TensorShape = std::array<std::int64_t, 4>;

struct TensorLayout
{
    std::string name;
    TensorShape shape;
    int dimensions = 0;    ///< as the converter writes it
    bool isMatrix = false; ///< a weight that may be half precision or quantised; everything else is float32
};

/// Every tensor of a model, in file order. @p feedForwardSize and @p jointSize are not in the header: they are taken
/// from the tensors themselves.
std::vector<TensorLayout> modelLayout(const Hyperparameters& parameters, std::int64_t feedForwardSize,
                                      std::int64_t jointSize);

/// The names that tell the two sizes: the second dimension of the one, the first of the other.
extern const char* const feedForwardSizeTensor;
extern const char* const jointSizeTensor;

std::string layerPrefix(std::int32_t layer);

} // namespace vantro::asr
