#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace vantro::asr {

/// What every encoder has, whatever decodes its frames.
struct EncoderParameters
{
    std::int32_t vocabularySize = 0; ///< text pieces; the blank has this index
    std::int32_t stateSize = 0;      ///< width of the encoder
    std::int32_t headCount = 0;
    std::int32_t layerCount = 0;
    std::int32_t melBands = 0;
    std::int32_t fftSize = 0;
    std::int32_t subsamplingFactor = 0;
    std::int32_t subsamplingChannels = 0;
    std::int32_t convolutionKernel = 0;
    bool hasBiases = false; ///< of the products and the convolution within the layers
    float batchEpsilon = 0; ///< of the batch normalisation; 0 if the stored variance includes it

    /// Throws ASRError::modelLoadFailed for a value that the architecture does not allow.
    void validate() const;

    [[nodiscard]] std::int32_t headSize() const { return stateSize / headCount; }
    [[nodiscard]] std::int32_t frequencyBins() const { return fftSize / 2 + 1; }
    /// Bands after the subsampling's three halvings, each rounded up.
    [[nodiscard]] std::int32_t subsampledBands() const;
};

/// The header of a transducer's container.
struct Hyperparameters : EncoderParameters
{
    std::int32_t audioContext = 0; ///< mel frames the model was published for
    std::int32_t fileType = 0;     ///< 1000 * quantisation version + ggml file type
    std::int32_t predictionSize = 0;
    std::int32_t predictionLayers = 0;
    std::int32_t durationCount = 0;
    std::int32_t maxSymbolsPerStep = 0;

    /// Throws ASRError::modelLoadFailed for a value that the architecture does not allow.
    void validate() const;

    [[nodiscard]] std::int32_t jointOutputs() const { return vocabularySize + 1 + durationCount; }
};

/// Dimensions in ggml's order, fastest first; unused ones are 1.
using TensorShape = std::array<std::int64_t, 4>;

struct TensorLayout
{
    std::string name;
    TensorShape shape;
    int dimensions = 0;    ///< as the converter writes it
    bool isMatrix = false; ///< a weight that may be half precision or quantised; everything else is float32
};

/// All tensors of a transducer, in file order. @p feedForwardSize and @p jointSize are not in the header but derived
/// from the tensors.
std::vector<TensorLayout> modelLayout(const Hyperparameters& parameters, std::int64_t feedForwardSize,
                                      std::int64_t jointSize);

/// All tensors of an encoder with a CTC head, including the features' filter bank and window.
std::vector<TensorLayout> ctcLayout(const EncoderParameters& parameters, std::int64_t feedForwardSize,
                                    std::int64_t windowSize);

/// The tensors that determine these sizes: by their second and first dimension respectively.
extern const char* const feedForwardSizeTensor;
extern const char* const jointSizeTensor;

std::string layerPrefix(std::int32_t layer);

} // namespace vantro::asr
