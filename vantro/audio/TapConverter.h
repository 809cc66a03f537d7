#pragma once

#include "platform/AudioEngine.h"
#include "vantro/sound/Resampler.h"

#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace vantro {

class SampleCollector;

/// Converts microphone blocks to 16 kHz mono: averages the channels and resamples them as one continuous signal. Audio
/// thread; drain() after the capture has ended.
class TapConverter
{
public:
    /// Null when @p inputFormat is unusable or cannot be converted to 16 kHz.
    static std::unique_ptr<TapConverter> create(AudioFormat inputFormat);

    /// Appends the converted block. Accepts any channel count, whatever the input format said.
    void convert(const AudioTapBuffer& buffer, SampleCollector& collector);
    /// Appends the samples still held by the resampler.
    void drain(SampleCollector& collector);

private:
    explicit TapConverter(std::unique_ptr<Resampler> resampler) : resampler_(std::move(resampler)) {}
    std::span<const float> mix(const AudioTapBuffer& buffer);

    std::unique_ptr<Resampler> resampler_;
    std::vector<float> mono_; ///< reused, so that the audio thread allocates for the first block only
};

} // namespace vantro
