#pragma once

#include "asr/Linear.h"

#include <ggml.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace vantro::asr {

class ModelFile;
class Weights;

/// The encoder's front: three convolutions of stride 2 in time and frequency make one frame of 80 ms out of eight mel
/// frames (FastConformer, arXiv:2305.05084). The second and third are depthwise with a pointwise one behind.
class Subsampling
{
public:
    Subsampling(ModelFile& file, Weights& weights);

    /// @p mel: [bands, frames]. Gives [state size, encoder frames].
    ggml_tensor* build(ggml_context* context, ggml_tensor* mel) const;

    /// Frames left of @p melFrames.
    static std::int64_t encoderFrames(std::int64_t melFrames);

    /// A 3x3 convolution per channel: [tap][channel], and one bias per channel. A tap's index is time * 3 + band.
    struct Depthwise
    {
        std::vector<float> taps;
        std::vector<float> bias;
    };
    /// The first two convolutions, run as one so that the large map between them never exists as a whole.
    struct Front
    {
        Depthwise first;
        Depthwise second;
    };

private:
    // On the heap: graphs keep their addresses.
    std::unique_ptr<Front> front_ = std::make_unique<Front>();
    std::unique_ptr<Depthwise> third_ = std::make_unique<Depthwise>();
    Linear pointwise1_;
    Linear pointwise2_;
    Linear out_;
    std::int64_t channels_ = 0;
};

} // namespace vantro::asr
