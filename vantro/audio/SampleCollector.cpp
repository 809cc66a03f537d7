#include "vantro/audio/SampleCollector.h"

#include "base/SampleFormat.h"

#include <algorithm>
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

std::vector<float> SampleCollector::samplesFrom(std::size_t first) const
{
    // Allocated before the lock, for which the audio thread may wait.
    const std::size_t count = sampleCount();
    std::vector<float> copy(count > first ? count - first : 0);
    const std::lock_guard guard(lock_);
    copy.resize(std::min(copy.size(), samples_.size() > first ? samples_.size() - first : 0));
    if (!copy.empty())
        std::copy_n(samples_.begin() + static_cast<std::ptrdiff_t>(first), copy.size(), copy.begin());
    return copy;
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
