#include "vantro/audio/TapConverter.h"

#include "vantro/audio/SampleCollector.h"

#include <soxr.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantro {

namespace {

constexpr std::size_t strideSamples = 4'096;

} // namespace

void TapConverter::Release::operator()(soxr* resampler) const
{
    soxr_delete(resampler);
}

std::unique_ptr<TapConverter> TapConverter::create(AudioFormat inputFormat)
{
    if (!inputFormat.isUsable() || !std::isfinite(inputFormat.sampleRateHz))
        return nullptr;
    soxr* resampler = nullptr;
    if (inputFormat.sampleRateHz != outputRateHz) {
        soxr_error_t error = nullptr;
        const soxr_io_spec_t floats = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
        const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
        const soxr_runtime_spec_t oneThread = soxr_runtime_spec(1);
        resampler = soxr_create(inputFormat.sampleRateHz, outputRateHz, 1, &error, &floats, &quality, &oneThread);
        if (resampler == nullptr || error != nullptr) {
            soxr_delete(resampler);
            return nullptr;
        }
    }
    return std::unique_ptr<TapConverter>(new TapConverter(inputFormat, resampler));
}

TapConverter::TapConverter(AudioFormat inputFormat, soxr* resampler) : inputFormat_(inputFormat), resampler_(resampler)
{
}

std::size_t TapConverter::outputCapacity(std::size_t frameLength) const
{
    return static_cast<std::size_t>(
        std::ceil(static_cast<double>(frameLength) * outputRateHz / inputFormat_.sampleRateHz));
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
    if (buffer.channelCount() == 0 || buffer.frameLength() == 0)
        return;
    std::span<const float> input = mix(buffer);
    if (!resampler_) {
        collector.append(input);
        return;
    }
    // The resampler works in strides of its own: what it owes from earlier blocks comes in one piece with this one's.
    output_.resize(std::max(output_.size(), outputCapacity(buffer.frameLength()) + strideSamples));
    std::size_t total = 0;
    for (;;) {
        std::size_t consumed = 0;
        std::size_t produced = 0;
        if (soxr_process(resampler_.get(), input.data(), input.size(), &consumed, output_.data() + total,
                         output_.size() - total, &produced) != nullptr)
            return;
        total += produced;
        input = input.subspan(consumed);
        if (total < output_.size())
            break;
        output_.resize(output_.size() * 2);
    }
    collector.append(std::span(output_).first(total));
}

void TapConverter::drain(SampleCollector& collector)
{
    if (!resampler_)
        return;
    output_.resize(strideSamples);
    for (;;) {
        std::size_t produced = 0;
        if (soxr_process(resampler_.get(), nullptr, 0, nullptr, output_.data(), output_.size(), &produced) != nullptr ||
            produced == 0)
            return;
        collector.append(std::span(output_).first(produced));
    }
}

} // namespace vantro
