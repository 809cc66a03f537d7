#pragma once

#include "platform/AudioEngine.h"
#include "vantro/sound/Resampler.h"

#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace vantro {

class SampleCollector;

/// Turns the microphone's blocks into 16 kHz mono: the mean of the channels, resampled as one continuous signal. Audio
/// thread; drain() after the capture has ended.
class TapConverter
{
public:
    /// Null when nothing can be recorded in @p inputFormat or there is no way from it to 16 kHz.
    static std::unique_ptr<TapConverter> create(AudioFormat inputFormat);

    /// Appends what the block gives. A block of another channel count than announced is mixed all the same.
    void convert(const AudioTapBuffer& buffer, SampleCollector& collector);
    /// Appends what the resampler still holds.
    void drain(SampleCollector& collector);

private:
    explicit TapConverter(std::unique_ptr<Resampler> resampler) : resampler_(std::move(resampler)) {}
    std::span<const float> mix(const AudioTapBuffer& buffer);

    std::unique_ptr<Resampler> resampler_;
    std::vector<float> mono_; ///< kept between blocks, so that the audio thread allocates for the first one only
};

} // namespace vantro
