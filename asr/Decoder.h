#pragma once

#include "asr/Compute.h"
#include "asr/TdtDecoderState.h"
#include "asr/Weights.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vantro::asr {

class ModelFile;

/// The transducer's prediction network: an embedding and LSTM layers over the tokens so far. Immutable and thread-safe;
/// each thread needs its own Step.
class Decoder
{
public:
    explicit Decoder(const ModelFile& file, kernels::Level cap = kernels::highestLevel);

    /// The graph of one step, built once and computed per token.
    class Step
    {
    public:
        Step(const Decoder& decoder, int threads);
        /// Feeds state.lastToken, or the start token if there is none, and caches the output in @p state.
        void advance(TdtDecoderState& state, const std::stop_token& stop);

    private:
        struct Layer
        {
            ggml_tensor* hidden;
            ggml_tensor* cell;
            ggml_tensor* newHidden;
            ggml_tensor* newCell;
        };

        std::int32_t startToken_;
        std::size_t size_;
        Graph graph_;
        GraphRunner runner_;
        ggml_tensor* token_ = nullptr;
        std::vector<Layer> layers_;
        ggml_tensor* output_ = nullptr;
    };

private:
    struct LstmLayer
    {
        Linear input;
        Linear recurrent;
    };

    Weights weights_;
    ggml_tensor* embedding_ = nullptr;
    std::vector<LstmLayer> layers_;
    Linear projection_; ///< into the joint network's space
    std::int32_t startToken_ = 0;
    std::int64_t size_ = 0;
};

} // namespace vantro::asr
