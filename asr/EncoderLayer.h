#pragma once

#include "asr/Linear.h"

#include <ggml.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace vantro::asr {

class ModelSource;
class Weights;

struct LayerNorm
{
    ggml_tensor* weight = nullptr;
    ggml_tensor* bias = nullptr;

    ggml_tensor* apply(ggml_context* context, ggml_tensor* input) const;
};

/// One FastConformer block (arXiv:2305.05084): a half-step feed-forward module, self-attention with relative positions
/// (Transformer-XL, arXiv:1901.02860), a convolution module, another half-step feed-forward module, a final norm.
class EncoderLayer
{
public:
    EncoderLayer(const ModelSource& file, Weights& weights, std::int32_t layer);

    /// @p x: [state size, frames]; @p positions: positionProduct() of as many frames. Returns the shape of @p x.
    ggml_tensor* build(ggml_context* context, ggml_tensor* x, ggml_tensor* positions) const;
    /// The product with the sinusoids of distances, one per column; see PositionProducts.
    ggml_tensor* positionProduct(Activations& positions) const { return position_.apply(positions); }

    /// Includes the folded batch normalisation.
    struct Depthwise
    {
        std::vector<float> taps; ///< [tap][channel]
        std::vector<float> bias;
        std::size_t size = 0;
        const kernels::Kernels* kernels = nullptr;
    };

private:
    struct FeedForward
    {
        LayerNorm norm;
        Linear expand;
        Linear reduce;
    };

    [[nodiscard]] static FeedForward readFeedForward(const ModelSource& file, Weights& weights,
                                                     const std::string& prefix, const std::string& name);
    static ggml_tensor* feedForward(ggml_context* context, const FeedForward& module, ggml_tensor* x);
    ggml_tensor* attention(ggml_context* context, ggml_tensor* x, ggml_tensor* positions) const;
    ggml_tensor* convolution(ggml_context* context, ggml_tensor* x) const;

    FeedForward feedForward1_;
    LayerNorm normAttention_;
    Linear query_;
    Linear key_;
    Linear value_;
    Linear attentionOut_;
    Linear position_;
    ggml_tensor* contentBias_ = nullptr;  ///< u of the paper, [head size, heads]
    ggml_tensor* positionBias_ = nullptr; ///< v of the paper
    LayerNorm normConvolution_;
    Linear pointwise1_;
    std::unique_ptr<Depthwise> depthwise_; // on the heap, because graphs keep its address
    Linear pointwise2_;
    FeedForward feedForward2_;
    LayerNorm normOut_;
    std::int64_t heads_ = 0;
};

} // namespace vantro::asr
