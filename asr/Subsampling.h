#pragma once

#include "asr/Linear.h"

#include <ggml.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace vantro::asr {

class ModelSource;
class Weights;

namespace kernels {
struct Kernels;
}

/// The encoder's front end: three convolutions with stride 2 in time and frequency turn eight mel frames into one frame
/// of 80 ms (FastConformer, arXiv:2305.05084). The second and third are depthwise, each followed by a pointwise one.
class Subsampling
{
public:
    Subsampling(const ModelSource& file, Weights& weights);

    /// @p mel: [bands, frames]. Returns [state size, encoder frames].
    ggml_tensor* build(ggml_context* context, ggml_tensor* mel) const;

    /// The number of frames after subsampling.
    static std::int64_t encoderFrames(std::int64_t melFrames);

    /// A 3x3 convolution per channel: taps [time * 3 + band][channel] and one bias per channel.
    struct Depthwise
    {
        std::vector<float> taps;
        std::vector<float> bias;
        const kernels::Kernels* kernels = nullptr;
    };
    /// The first two convolutions, fused so that the large intermediate map is never materialised.
    struct Front
    {
        Depthwise first;
        Depthwise second;
    };

private:
    // On the heap, because graphs keep their addresses.
    std::unique_ptr<Front> front_ = std::make_unique<Front>();
    std::unique_ptr<Depthwise> third_ = std::make_unique<Depthwise>();
    Linear pointwise1_;
    Linear pointwise2_;
    Linear out_;
    std::int64_t channels_ = 0;
};

} // namespace vantro::asr
