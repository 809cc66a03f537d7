#include "vantro/audio/SampleCollector.h"

#include "base/SampleFormat.h"

#include <utility>

namespace vantro {

SampleCollector::SampleCollector()
{
    samples_.reserve(std::size_t{60} * sampleRateHz);
}

void SampleCollector::append(std::span<const float> samples)
{
    if (samples.empty())
        return;
    const std::lock_guard guard(lock_);
    if (samples_.size() < maximumSampleCount)
        samples_.insert(samples_.end(), samples.begin(), samples.end());
    else
        overflowed_ = true;
}

std::vector<float> SampleCollector::takeSamples()
{
    const std::lock_guard guard(lock_);
    return std::exchange(samples_, {});
}

std::size_t SampleCollector::sampleCount() const
{
    const std::lock_guard guard(lock_);
    return samples_.size();
}

bool SampleCollector::overflowed() const
{
    const std::lock_guard guard(lock_);
    return overflowed_;
}

} // namespace vantro
