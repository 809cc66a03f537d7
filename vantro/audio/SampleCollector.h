#pragma once

#include <cstddef>
#include <mutex>
#include <span>
#include <vector>

namespace vantro {

/// The samples of one recording: 16 kHz mono, nominally -1..1. Filled on the audio thread, emptied on the main thread;
/// every operation takes the collector's own lock.
class SampleCollector
{
public:
    SampleCollector();

    /// Adds all of @p samples while fewer than maximumSampleCount are held, so the last addition may pass it;
    /// afterwards adds nothing and notes the overflow.
    void append(std::span<const float> samples);
    /// Hands out everything and leaves the collector empty.
    [[nodiscard]] std::vector<float> takeSamples();
    /// Forgets the samples and the overflow.
    void clear();

    [[nodiscard]] std::size_t sampleCount() const;
    [[nodiscard]] bool overflowed() const;

private:
    mutable std::mutex lock_;
    std::vector<float> samples_;
    bool overflowed_ = false;
};

} // namespace vantro
