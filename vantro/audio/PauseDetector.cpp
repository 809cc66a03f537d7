#include "vantro/audio/PauseDetector.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace vantro {

namespace {

constexpr std::size_t frameCount = 480;       ///< 30 ms
constexpr std::size_t averagedFrames = 4;     ///< single frames of steady noise differ by some decibels
constexpr std::size_t rememberedFrames = 267; ///< 8 s: the noise of a room changes
constexpr double aboveFloor = 6;              ///< dB
constexpr double belowLoudest = 15;           ///< dB
constexpr double silence = -70;               ///< dBFS
constexpr double lowestFloor = -75;           ///< dBFS: a device that delivers zeros says nothing about the room

double levelOf(double meanSquare)
{
    return 10 * std::log10(meanSquare + 1e-12);
}

} // namespace

void PauseDetector::hear(std::span<const float> samples)
{
    for (const float sample : samples) {
        frameSum_ += static_cast<double>(sample) * sample;
        ++heard_;
        if (++inFrame_ == frameCount) {
            judge(frameSum_ / frameCount);
            inFrame_ = 0;
            frameSum_ = 0;
        }
    }
}

void PauseDetector::judge(double meanSquare)
{
    frames_.push_back(meanSquare);
    if (frames_.size() > averagedFrames)
        frames_.pop_front();
    if (frames_.size() == averagedFrames) {
        const double level = levelOf(std::reduce(frames_.begin(), frames_.end()) / averagedFrames);
        loudest_ = std::max(loudest_, level);
        floors_.push_back(level);
        if (floors_.size() > rememberedFrames)
            floors_.pop_front();
    }
    if (!isBackground(levelOf(meanSquare)))
        speech_ = heard_;
}

bool PauseDetector::isBackground(double level) const
{
    if (level <= silence)
        return true;
    if (floors_.empty())
        return false;
    const double floor = std::max(*std::ranges::min_element(floors_), lowestFloor);
    return level <= floor + aboveFloor && level <= loudest_ - belowLoudest;
}

std::size_t PauseDetector::usefulCount() const
{
    return speech_ == 0 ? heard_ : std::min(heard_, speech_ + tailCount);
}

std::size_t usefulSampleCount(std::span<const float> samples)
{
    PauseDetector detector;
    detector.hear(samples);
    return detector.usefulCount();
}

} // namespace vantro
