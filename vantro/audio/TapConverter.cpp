#include "vantro/audio/TapConverter.h"

#include "vantro/audio/SampleCollector.h"

namespace vantro {

std::unique_ptr<TapConverter> TapConverter::create(AudioFormat inputFormat)
{
    auto resampler = inputFormat.isUsable() ? Resampler::create(inputFormat.sampleRateHz) : nullptr;
    return resampler ? std::unique_ptr<TapConverter>(new TapConverter(std::move(resampler))) : nullptr;
}

std::span<const float> TapConverter::mix(const AudioTapBuffer& buffer)
{
    const std::span<const float> first = buffer.channel(0);
    if (buffer.channelCount() == 1)
        return first;
    mono_.assign(first.begin(), first.end());
    for (std::size_t c = 1; c < buffer.channelCount(); ++c) {
        const float* const channel = buffer.channel(c).data();
        for (std::size_t i = 0; i < mono_.size(); ++i)
            mono_[i] += channel[i];
    }
    const auto channelCount = static_cast<float>(buffer.channelCount());
    for (float& sample : mono_)
        sample /= channelCount;
    return mono_;
}

void TapConverter::convert(const AudioTapBuffer& buffer, SampleCollector& collector)
{
    if (buffer.channelCount() > 0 && buffer.frameLength() > 0)
        collector.append(resampler_->convert(mix(buffer)));
}

void TapConverter::drain(SampleCollector& collector)
{
    collector.append(resampler_->drain());
}

} // namespace vantro
