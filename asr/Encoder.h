#pragma once

#include "asr/EncoderLayer.h"
#include "asr/Preprocessor.h"
#include "asr/Subsampling.h"
#include "asr/Weights.h"

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
    explicit Encoder(ModelFile& file);

    [[nodiscard]] EncoderFrames encode(const Preprocessor::Features& features, GraphRunner& runner) const;

private:
    Weights weights_;
    Subsampling subsampling_;
    std::vector<EncoderLayer> layers_;
    std::int64_t stateSize_ = 0;
};

} // namespace vantro::asr
