// Where speech ends: people's recordings in the noise of a room.
#include "vantro/audio/PauseDetector.h"

#include "vantro/sound/AudioFile.h"

#include <QtGlobal>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

using namespace vantro;

namespace {

constexpr std::size_t second = 16'000;

std::vector<float> speech(const char* name)
{
    return AudioFile::read(QString::fromLocal8Bit(qgetenv("VANTRO_SOURCE_DIR")) + QStringLiteral("/tests/data/") +
                           QLatin1String(name))
        .samples;
}

float gain(double decibels)
{
    return static_cast<float>(std::pow(10, decibels / 20));
}

std::vector<float> joined(const std::vector<std::vector<float>>& parts)
{
    std::vector<float> all;
    for (const auto& part : parts)
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

std::vector<float> amplified(std::vector<float> samples, double decibels)
{
    for (float& sample : samples)
        sample *= gain(decibels);
    return samples;
}

/// With white noise of @p level dBFS.
std::vector<float> inNoise(std::vector<float> samples, double level)
{
    std::mt19937 random(1);
    std::normal_distribution<float> noise(0, gain(level));
    for (float& sample : samples)
        sample += noise(random);
    return samples;
}

const std::vector<float> stillness(second, 0.0F);

PauseDetector after(std::span<const float> samples)
{
    PauseDetector detector;
    detector.hear(samples);
    return detector;
}

} // namespace

TEST(PauseDetector, FindsTheLastWordHoweverQuietAndNoSoundOfTheRoomAfterIt)
{
    const std::vector<float> sentence = speech("en-harvard-spk1-snt1.flac"); // speaks up to its end
    const std::vector<float> whispered = amplified(sentence, -20);
    for (const double room : {-70.0, -60.0, -52.0}) {
        const auto loud = after(inNoise(joined({sentence, stillness, stillness}), room));
        EXPECT_NEAR(static_cast<double>(loud.speechCount()), static_cast<double>(sentence.size()), 0.1 * second)
            << room;
        EXPECT_EQ(loud.usefulCount(), loud.speechCount() + PauseDetector::tailCount);
    }
    const auto quiet = after(inNoise(joined({sentence, stillness, whispered, stillness}), -62));
    EXPECT_NEAR(static_cast<double>(quiet.speechCount()), static_cast<double>(stillness.size() + 2 * sentence.size()),
                0.15 * second)
        << "a last sentence that is whispered";
}

TEST(PauseDetector, KeepsEverythingWhereItCannotTellSpeechFromTheRest)
{
    std::vector<float> tone(3 * second);
    for (std::size_t i = 0; i < tone.size(); ++i) // swells and fades four times a second
        tone[i] = 0.2F * static_cast<float>(std::sin(0.2 * static_cast<double>(i)) *
                                            (0.6 + 0.4 * std::sin(static_cast<double>(i) / 640)));
    const auto sentence = speech("en-harvard-spk1-snt1.flac");
    for (const auto& unclear : {inNoise(stillness, -30), stillness, joined({sentence, tone}), tone,
                                inNoise(joined({amplified(sentence, -12), stillness}), -30)}) {
        const auto detector = after(unclear);
        EXPECT_EQ(detector.usefulCount(), unclear.size());
        EXPECT_EQ(usefulSampleCount(unclear), unclear.size());
    }
}

TEST(PauseDetector, WhatItSaysOfAPauseHoldsHoweverItGoesOnAndForAnySizes)
{
    const auto whole = inNoise(
        joined({speech("en-arctic-a0009.flac"), stillness, speech("en-cards-005.flac"), stillness, stillness}), -58);
    std::mt19937 random(7);
    PauseDetector piecewise;
    std::size_t pauses = 0;
    for (std::size_t at = 0; at < whole.size();) {
        const auto size =
            std::min<std::size_t>(std::uniform_int_distribution<std::size_t>(0, 900)(random), whole.size() - at);
        piecewise.hear(std::span(whole).subspan(at, size));
        at += size;
        const auto before = std::span(whole).first(at);
        ASSERT_EQ(piecewise.speechCount(), after(before).speechCount());
        if (piecewise.speechCount() == 0 || piecewise.pauseCount() < PauseDetector::tailCount)
            continue;
        ++pauses;
        EXPECT_EQ(usefulSampleCount(before), piecewise.usefulCount());
        const auto judged = before.first(at - at % 480); // in whole frames
        const auto quietly = joined({{judged.begin(), judged.end()}, stillness});
        EXPECT_EQ(usefulSampleCount(quietly), after(judged).speechCount() + PauseDetector::tailCount);
    }
    EXPECT_GT(pauses, 20U);
}
