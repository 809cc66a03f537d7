#include "tests/platform/linux/pulse/Signal.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <unordered_map>

namespace vantro::testing {

std::vector<float> noise(std::size_t sampleCount, std::uint32_t seed)
{
    std::mt19937 generator(seed);
    std::uniform_real_distribution<float> values(-0.1F, 0.1F);
    std::vector<float> samples(sampleCount);
    std::ranges::generate(samples, [&] { return values(generator); });
    return samples;
}

std::size_t Comparison::recordedCount() const
{
    std::size_t count = 0;
    for (const Stretch& stretch : stretches)
        count += stretch.length;
    return count;
}

Comparison compare(const std::vector<float>& recorded, const std::vector<float>& played)
{
    std::unordered_multimap<float, std::size_t> places;
    for (std::size_t i = 0; i < played.size(); ++i)
        places.emplace(played[i], i);
    const auto lengthFrom = [&](std::size_t r, std::size_t p) {
        std::size_t length = 0;
        while (r + length < recorded.size() && p + length < played.size() && recorded[r + length] == played[p + length])
            ++length;
        return length;
    };
    Comparison result;
    for (std::size_t r = 0; r < recorded.size();) {
        Stretch longest{.recordedBegin = r};
        const auto [first, last] = places.equal_range(recorded[r]);
        for (auto place = first; place != last; ++place) {
            if (const std::size_t length = lengthFrom(r, place->second); length > longest.length)
                longest = {.recordedBegin = r, .playedBegin = place->second, .length = length};
        }
        if (longest.length > 0 && !result.stretches.empty() &&
            result.stretches.back().playedEnd() == longest.playedBegin)
            result.stretches.back().length += longest.length;
        else if (longest.length > 0)
            result.stretches.push_back(longest);
        else if (recorded[r] != 0.0F)
            ++result.foreignCount;
        r += std::max<std::size_t>(longest.length, 1);
    }
    return result;
}

float worstDifference(const std::vector<float>& recorded, const std::vector<float>& played)
{
    // Found by a probe from the middle, then measured over the whole length.
    constexpr std::size_t probeLength = 400;
    if (recorded.size() < played.size() || played.size() < probeLength)
        return std::numeric_limits<float>::infinity();
    const std::size_t probe = played.size() / 2;
    const auto difference = [&](std::size_t shift, std::size_t begin, std::size_t end) {
        float worst = 0;
        for (std::size_t i = begin; i < end; ++i)
            worst = std::max(worst, std::abs(recorded[i + shift] - played[i]));
        return worst;
    };
    std::size_t bestShift = 0;
    float best = std::numeric_limits<float>::infinity();
    for (std::size_t shift = 0; shift + played.size() <= recorded.size(); ++shift) {
        const float worst = difference(shift, probe, probe + probeLength / 2);
        if (worst < best) {
            best = worst;
            bestShift = shift;
        }
    }
    return difference(bestShift, 0, played.size());
}

} // namespace vantro::testing
