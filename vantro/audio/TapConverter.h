#pragma once

#include "platform/AudioEngine.h"

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

struct soxr;

namespace vantro {

class SampleCollector;

/// Turns the microphone's blocks into 16 kHz mono: the mean of the channels, resampled as one continuous signal by
/// libsoxr in its high quality, whose delay drain() makes up for. Sound that is at 16 kHz already passes untouched.
/// Audio thread; drain() after the capture has ended.
class TapConverter
{
public:
    static constexpr double outputRateHz = 16'000;

    /// Null when nothing can be recorded in @p inputFormat or there is no way from it to 16 kHz.
    static std::unique_ptr<TapConverter> create(AudioFormat inputFormat);

    /// Appends what the block gives; at first nothing, while the resampler fills. A block of another channel count than
    /// announced is mixed all the same.
    void convert(const AudioTapBuffer& buffer, SampleCollector& collector);
    /// Appends what the resampler still holds.
    void drain(SampleCollector& collector);

    /// How many samples a block of @p frameLength frames gives at most in the long run.
    [[nodiscard]] std::size_t outputCapacity(std::size_t frameLength) const;

private:
    struct Release
    {
        void operator()(soxr* resampler) const;
    };

    TapConverter(AudioFormat inputFormat, soxr* resampler);
    std::span<const float> mix(const AudioTapBuffer& buffer);

    AudioFormat inputFormat_;
    std::unique_ptr<soxr, Release> resampler_;
    // Kept between blocks, so that the audio thread allocates for the first one only.
    std::vector<float> mono_;
    std::vector<float> output_;
};

} // namespace vantro
