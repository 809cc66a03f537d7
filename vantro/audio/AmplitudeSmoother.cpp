#include "vantro/audio/AmplitudeSmoother.h"

#include <array>
#include <cmath>
#include <numeric>
#include <optional>
#include <span>
#include <utility>

namespace vantro {

namespace {

// At a normal distance, loud speech has an RMS of about a seventh of full scale.
constexpr float levelGain = 7.0F;

// One running sum per vector lane, because the compiler must not reorder a single floating-point sum.
float sumOfSquares(std::span<const float> samples)
{
    constexpr std::size_t laneCount = 16;
    std::array<float, laneCount> lanes{};
    std::size_t i = 0;
    for (; i + laneCount <= samples.size(); i += laneCount) {
        for (std::size_t lane = 0; lane < laneCount; ++lane)
            lanes[lane] += samples[i + lane] * samples[i + lane];
    }
    float sum = std::accumulate(lanes.begin(), lanes.end(), 0.0F);
    for (; i < samples.size(); ++i)
        sum += samples[i] * samples[i];
    return sum;
}

std::optional<float> levelOf(const AudioTapBuffer& buffer)
{
    if (buffer.channelCount() == 0 || buffer.frameLength() == 0)
        return std::nullopt;
    const float sum = sumOfSquares(buffer.channel(0));
    float level = std::sqrt(sum / static_cast<float>(buffer.frameLength())) * levelGain;
    if (level > 1.0F)
        level = 1.0F;
    else if (level <= 0.0F)
        level = 0.0F;
    return std::isfinite(level) ? std::optional(level) : std::nullopt;
}

} // namespace

AmplitudeSmoother::AmplitudeSmoother(std::function<void(float)> onPublish, Now now)
    : onPublish_(std::move(onPublish))
    , now_(std::move(now))
{
}

void AmplitudeSmoother::measure(const AudioTapBuffer& buffer)
{
    const auto level = levelOf(buffer);
    if (!level)
        return;
    {
        const std::lock_guard guard(lock_);
        const TimePoint now = now_();
        if (now - lastPublished_ < publishInterval && std::abs(*level - lastValue_) < publishDelta)
            return;
        lastPublished_ = now;
        lastValue_ = *level;
    }
    onPublish_(*level);
}

} // namespace vantro
