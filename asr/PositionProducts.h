#pragma once

#include "asr/Compute.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <span>
#include <stop_token>
#include <vector>

namespace vantro::asr {

class EncoderLayer;

/// What the attention of each layer makes of the distances between frames. It does not depend on the audio, so it is
/// computed once for a model, as far as the longest window so far reaches. Any thread.
class PositionProducts
{
public:
    /// @p maximumFrames: of a window.
    PositionProducts(std::size_t layers, std::int64_t stateSize, std::int64_t maximumFrames);

    /// Computes what windows of @p frames frames lack. Throws ASRError: processingFailed, also when stopped;
    /// invalidAudioData if that is more than the maximum.
    void require(std::int64_t frames, std::span<const EncoderLayer> layers, GraphRunner& runner,
                 const std::stop_token& stop);
    /// [2 * frames - 1][state size], for the distances from frames - 1 down to 1 - frames, which have been required.
    [[nodiscard]] const float* of(std::size_t layer, std::int64_t frames) const;

private:
    [[nodiscard]] float* row(std::size_t layer, std::int64_t distance) const;

    std::int64_t stateSize_;
    std::int64_t maximumFrames_;
    // Rows beyond the known ones are left uninitialised, so that they take no memory. Known rows never change.
    std::vector<std::unique_ptr<float[]>> products_;
    std::mutex lock_; ///< guards what follows, and the rows that are not known
    std::int64_t knownFrames_ = 0;
};

} // namespace vantro::asr
