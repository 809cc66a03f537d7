#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

struct soxr;

namespace vantro {

/// Resamples one continuous signal to 16 kHz with libsoxr (high quality); drain() compensates for its delay. Input that
/// is already at 16 kHz passes through. Any thread, one at a time; allocates only to grow its buffer.
class Resampler
{
public:
    /// Null when @p inputRateHz cannot be converted.
    static std::unique_ptr<Resampler> create(double inputRateHz);

    /// The output for @p input, empty at first while the filter fills. Valid until the next call and while @p input is.
    [[nodiscard]] std::span<const float> convert(std::span<const float> input);
    /// The rest of the output. Valid until the next call.
    [[nodiscard]] std::span<const float> drain();

private:
    struct Release
    {
        void operator()(soxr* resampler) const;
    };

    Resampler(double inputRateHz, soxr* resampler);
    std::span<const float> process(const float* input, std::size_t count);

    double ratio_; ///< output rate / input rate
    std::unique_ptr<soxr, Release> resampler_;
    std::vector<float> output_;
};

} // namespace vantro
