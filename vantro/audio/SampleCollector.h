#pragma once

#include <cstddef>
#include <mutex>
#include <span>
#include <vector>

namespace vantro {

/// The samples of one recording: 16 kHz mono, nominally -1..1. Filled on the audio thread and emptied on the main
/// thread; every operation takes the collector's mutex.
class SampleCollector
{
public:
    SampleCollector();

    /// Appends all of @p samples while fewer than maximumSampleCount are held, so the last call may exceed it; later
    /// calls only set overflowed().
    void append(std::span<const float> samples);
    /// Returns all samples and leaves the collector empty.
    [[nodiscard]] std::vector<float> takeSamples();

    /// A copy of the samples from @p first on.
    [[nodiscard]] std::vector<float> samplesFrom(std::size_t first) const;

    [[nodiscard]] std::size_t sampleCount() const;
    [[nodiscard]] bool overflowed() const;

private:
    mutable std::mutex lock_;
    std::vector<float> samples_;
    bool overflowed_ = false;
};

} // namespace vantro
