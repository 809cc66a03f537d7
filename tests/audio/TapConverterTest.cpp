#include "vantro/audio/TapConverter.h"

#include "vantro/audio/SampleCollector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

using namespace vantro;

namespace {

using Channels = std::vector<std::vector<float>>;

std::vector<float> tone(std::size_t frames, double rateHz, double frequencyHz, float amplitude)
{
    std::vector<float> samples(frames);
    for (std::size_t i = 0; i < frames; ++i)
        samples[i] = amplitude *
                     static_cast<float>(std::sin(2 * std::numbers::pi * frequencyHz * static_cast<double>(i) / rateHz));
    return samples;
}

std::vector<float> convert(const Channels& channels, double rateHz, std::size_t blockFrames)
{
    const auto converter =
        TapConverter::create({.sampleRateHz = rateHz, .channelCount = static_cast<std::uint32_t>(channels.size())});
    if (!converter)
        return {};
    SampleCollector collector;
    for (std::size_t begin = 0; begin < channels[0].size(); begin += blockFrames) {
        std::vector<const float*> block;
        for (const auto& channel : channels)
            block.push_back(channel.data() + begin);
        converter->convert(AudioTapBuffer(block, std::min(blockFrames, channels[0].size() - begin)), collector);
    }
    converter->drain(collector);
    return collector.takeSamples();
}

} // namespace

TEST(TapConverter, GivesEverySampleOfTheSoundWhateverTheBlocks)
{
    const std::vector<float> sound = tone(480'000, 48'000, 997, 0.5F);
    const std::vector<float> atOnce = convert({sound}, 48'000, sound.size());
    EXPECT_EQ(atOnce.size(), 160'000U);
    EXPECT_EQ(convert({sound}, 48'000, 1024), atOnce);
    EXPECT_EQ(convert({sound}, 48'000, 77), atOnce);

    const std::vector<float> expected = tone(160'000, 16'000, 997, 0.5F);
    float worst = 0;
    for (std::size_t i = 200; i < 159'800; ++i)
        worst = std::max(worst, std::abs(atOnce[i] - expected[i]));
    EXPECT_LT(worst, 1e-4F);
}

TEST(TapConverter, KeepsTheLastWord)
{
    // A click in the last ten milliseconds, at each rate that devices commonly have.
    for (const double rateHz : {8'000.0, 11'025.0, 22'050.0, 32'000.0, 44'100.0, 48'000.0, 96'000.0, 192'000.0}) {
        std::vector<float> sound(static_cast<std::size_t>(rateHz), 0.0F);
        std::fill(sound.end() - static_cast<std::ptrdiff_t>(rateHz / 100), sound.end(), 0.5F);
        const std::vector<float> samples = convert({sound}, rateHz, 1024);
        ASSERT_NEAR(static_cast<double>(samples.size()), 16'000, 1) << rateHz;
        EXPECT_NEAR(samples[15'920], 0.5F, 0.1F) << rateHz;
        EXPECT_NEAR(samples[15'700], 0.0F, 0.05F) << rateHz;
    }
}

TEST(TapConverter, TakesTheMeanOfTheChannels)
{
    const std::vector<float> left = tone(48'000, 48'000, 440, 0.6F);
    const std::vector<float> silence(48'000, 0.0F);
    const std::vector<float> both = convert({left, silence}, 48'000, 1024);
    const std::vector<float> half = convert({tone(48'000, 48'000, 440, 0.3F)}, 48'000, 1024);
    ASSERT_EQ(both.size(), half.size());
    for (std::size_t i = 0; i < both.size(); ++i)
        ASSERT_NEAR(both[i], half[i], 1e-6F);
}

TEST(TapConverter, SoundAtSixteenKilohertzPassesUntouched)
{
    const std::vector<float> sound = tone(10'000, 16'000, 440, 1.5F);
    EXPECT_EQ(convert({sound}, 16'000, 1024), sound);
}

TEST(TapConverter, IsNotMadeForAFormatWithoutSound)
{
    for (const AudioFormat format : {AudioFormat{0, 1}, AudioFormat{48'000, 0}, AudioFormat{-1, 1},
                                     AudioFormat{std::numeric_limits<double>::quiet_NaN(), 1},
                                     AudioFormat{std::numeric_limits<double>::infinity(), 1}})
        EXPECT_EQ(TapConverter::create(format), nullptr) << format.sampleRateHz << " Hz, " << format.channelCount;
}
