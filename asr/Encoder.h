#pragma once

#include "asr/EncoderLayer.h"
#include "asr/PositionProducts.h"
#include "asr/Preprocessor.h"
#include "asr/Subsampling.h"
#include "asr/Weights.h"

#include <stop_token>
#include <vector>

namespace vantro::asr {

/// Frames of 80 ms as a matrix [frame][width].
struct EncoderFrames
{
    std::size_t frames = 0;
    std::vector<float> values;
};

/// The FastConformer encoder: converts log-mel features to encoder frames, with attention over the whole input.
/// Immutable and thread-safe; each thread needs its own GraphRunner.
class Encoder
{
public:
    explicit Encoder(const ModelSource& file, kernels::Level cap = kernels::highestLevel);

    /// Does what does not depend on the audio: fetches weights that the system has dropped from memory, and computes
    /// the position products of the longest window. Returns early when stopped.
    void prepare(GraphRunner& runner, const std::stop_token& stop) const;

private:
    friend class Encoding;

    Weights weights_;
    Subsampling subsampling_;
    std::vector<EncoderLayer> layers_;
    std::int64_t stateSize_ = 0;
    std::unique_ptr<PositionProducts> positions_;
};

/// One input on its way through the encoder, layer by layer, so that it can go on in another thread or with another
/// number of threads after each. One thread at a time; throws what GraphRunner throws.
class Encoding
{
public:
    /// @p encoder and @p runner must outlive it; the runner computes nothing else meanwhile.
    Encoding(const Encoder& encoder, const Preprocessor::Features& features, GraphRunner& runner,
             const std::stop_token& stop);

    [[nodiscard]] bool isDone() const { return done_ == graph_.partCount(); }
    void computeLayer(const std::stop_token& stop);
    /// Once it is done.
    [[nodiscard]] EncoderFrames frames() const;

private:
    Graph graph_;
    GraphRunner& runner_;
    ggml_tensor* result_ = nullptr;
    std::size_t done_ = 0; ///< parts of the graph
};

/// The way from samples to what is made of each frame. Its parts must outlive it.
struct AcousticNetwork
{
    const Preprocessor& preprocessor;
    const Encoder& encoder;
    const Linear& projection;
};

/// Multiplies every frame by @p projection. Throws what GraphRunner throws.
EncoderFrames project(const Linear& projection, const EncoderFrames& encoded, GraphRunner& runner,
                      const std::stop_token& stop);

} // namespace vantro::asr
