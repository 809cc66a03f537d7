#include "vantro/sound/Resampler.h"

#include "base/SampleFormat.h"

#include <soxr.h>

#include <algorithm>
#include <cmath>

namespace vantro {

namespace {

/// The library works in strides: output owed for earlier blocks may arrive at once with a later one.
constexpr std::size_t strideSamples = 4'096;

} // namespace

void Resampler::Release::operator()(soxr* resampler) const
{
    soxr_delete(resampler);
}

std::unique_ptr<Resampler> Resampler::create(double inputRateHz)
{
    if (!std::isfinite(inputRateHz))
        return nullptr;
    soxr* resampler = nullptr;
    if (inputRateHz != sampleRateHz) {
        soxr_error_t error = nullptr;
        const soxr_io_spec_t floats = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
        const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_HQ, 0);
        const soxr_runtime_spec_t oneThread = soxr_runtime_spec(1);
        resampler = soxr_create(inputRateHz, sampleRateHz, 1, &error, &floats, &quality, &oneThread);
        if (resampler == nullptr || error != nullptr) {
            soxr_delete(resampler);
            return nullptr;
        }
    }
    return std::unique_ptr<Resampler>(new Resampler(inputRateHz, resampler));
}

Resampler::Resampler(double inputRateHz, soxr* resampler) : ratio_(sampleRateHz / inputRateHz), resampler_(resampler) {}

std::span<const float> Resampler::convert(std::span<const float> input)
{
    if (!resampler_ || input.empty())
        return input;
    return process(input.data(), input.size());
}

std::span<const float> Resampler::drain()
{
    return resampler_ ? process(nullptr, 0) : std::span<const float>();
}

/// A null @p input marks the end of the signal.
std::span<const float> Resampler::process(const float* input, std::size_t count)
{
    const auto share = static_cast<std::size_t>(std::ceil(static_cast<double>(count) * ratio_));
    output_.resize(std::max(output_.size(), share + strideSamples));
    std::size_t total = 0;
    for (;;) {
        std::size_t consumed = 0;
        std::size_t produced = 0;
        if (soxr_process(resampler_.get(), input, count, &consumed, output_.data() + total, output_.size() - total,
                         &produced) != nullptr)
            return {};
        total += produced;
        if (input != nullptr)
            input += consumed;
        count -= consumed;
        if (input != nullptr ? total < output_.size() : produced == 0)
            return std::span(output_).first(total);
        if (total == output_.size())
            output_.resize(output_.size() * 2);
    }
}

} // namespace vantro
