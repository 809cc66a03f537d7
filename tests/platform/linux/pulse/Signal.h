#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vantro::testing {

/// Noise at the loudness of speech, in which hardly any value comes twice: a recorded sample tells when it was played.
std::vector<float> noise(std::size_t sampleCount, std::uint32_t seed);

/// A part of a recording that is, bit for bit, a part of what was played. Silence within it is the player's, which may
/// be late on a busy machine; a sample that is missing begins a new stretch.
struct Stretch
{
    std::size_t recordedBegin = 0;
    std::size_t playedBegin = 0;
    std::size_t length = 0;

    [[nodiscard]] std::size_t playedEnd() const { return playedBegin + length; }
};

struct Comparison
{
    /// In the order of the recording.
    std::vector<Stretch> stretches;
    /// Recorded samples that are neither silence nor from what was played.
    std::size_t foreignCount = 0;

    /// How many played samples are in the recording.
    [[nodiscard]] std::size_t recordedCount() const;
};

Comparison compare(const std::vector<float>& recorded, const std::vector<float>& played);

/// The largest difference between @p played and the part of @p recorded that resembles it most.
float worstDifference(const std::vector<float>& recorded, const std::vector<float>& played);

} // namespace vantro::testing
