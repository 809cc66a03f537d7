#pragma once

#include <chrono>
#include <cstddef>

namespace vantro {

// The format of recordings and of every engine's input: mono floats, nominally -1..1.

inline constexpr int sampleRateHz = 16'000;
/// 0.3 s; shorter recordings contain no speech.
inline constexpr std::size_t minimumSampleCount = 4'800;
/// Ten minutes.
inline constexpr std::size_t maximumSampleCount = 9'600'000;

constexpr std::chrono::duration<double> durationOf(std::size_t sampleCount)
{
    return std::chrono::duration<double>(static_cast<double>(sampleCount) / sampleRateHz);
}

} // namespace vantro
