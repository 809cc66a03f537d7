#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

struct soxr;

namespace vantro {

/// Brings one continuous signal to 16 kHz with libsoxr in its high quality, whose delay drain() makes up for. Sound
/// that is at 16 kHz already passes untouched. Any thread, one at a time; allocates only while its buffer grows.
class Resampler
{
public:
    /// Null when there is no way from @p inputRateHz to 16 kHz.
    static std::unique_ptr<Resampler> create(double inputRateHz);

    /// What @p input brings, at first nothing, while the filter fills. Valid until the next call, and no longer than
    /// @p input.
    [[nodiscard]] std::span<const float> convert(std::span<const float> input);
    /// What the filter still holds. Valid until the next call.
    [[nodiscard]] std::span<const float> drain();

private:
    struct Release
    {
        void operator()(soxr* resampler) const;
    };

    Resampler(double inputRateHz, soxr* resampler);
    std::span<const float> process(const float* input, std::size_t count);

    double ratio_; ///< of the rates
    std::unique_ptr<soxr, Release> resampler_;
    std::vector<float> output_;
};

} // namespace vantro
