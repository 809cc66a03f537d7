#include "vantro/sound/AudioFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sndfile.h>

#include <algorithm>
#include <cmath>
#include <numbers>

using namespace vantro;

namespace {

/// Writes a second of a 440 Hz tone, at half scale on the first channel and silent on the others.
QString writeTone(const QTemporaryDir& folder, const QString& name, int format, int rateHz, int channels)
{
    SF_INFO info{};
    info.format = format;
    info.samplerate = rateHz;
    info.channels = channels;
    const QString path = folder.filePath(name);
    SNDFILE* file = sf_open(QFile::encodeName(path).constData(), SFM_WRITE, &info);
    EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
    std::vector<float> frames(static_cast<std::size_t>(rateHz * channels), 0.0F);
    for (int i = 0; i < rateHz; ++i) {
        const double phase = 2 * std::numbers::pi * 440 * i / rateHz;
        frames[static_cast<std::size_t>(i * channels)] = static_cast<float>(0.5 * std::sin(phase));
    }
    sf_writef_float(file, frames.data(), rateHz);
    sf_close(file);
    return path;
}

double rms(const std::vector<float>& samples)
{
    double sum = 0;
    for (const float sample : samples)
        sum += static_cast<double>(sample) * static_cast<double>(sample);
    return std::sqrt(sum / static_cast<double>(samples.size()));
}

} // namespace

TEST(AudioFile, ComesOutAsSixteenKilohertzMonoWhateverItWas)
{
    const QTemporaryDir folder;
    const double toneRms = 0.5 / std::numbers::sqrt2;
    const auto wav48 =
        AudioFile::read(writeTone(folder, QStringLiteral("a.wav"), SF_FORMAT_WAV | SF_FORMAT_PCM_16, 48'000, 2));
    EXPECT_EQ(wav48.samples.size(), 16'000U);
    EXPECT_NEAR(rms(wav48.samples), toneRms / 2, 0.01) << "the mean of both channels";
    const auto flac16 =
        AudioFile::read(writeTone(folder, QStringLiteral("b.flac"), SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 16'000, 1));
    EXPECT_EQ(flac16.samples.size(), 16'000U);
    EXPECT_NEAR(rms(flac16.samples), toneRms, 0.001);
    const auto ogg8 =
        AudioFile::read(writeTone(folder, QStringLiteral("c.ogg"), SF_FORMAT_OGG | SF_FORMAT_VORBIS, 8'000, 1));
    EXPECT_NEAR(static_cast<double>(ogg8.samples.size()), 16'000, 160);
    EXPECT_NEAR(rms(ogg8.samples), toneRms, 0.03);
}

TEST(AudioFile, FlacHasTheSamplesAndTheDuration)
{
    const QTemporaryDir folder;
    std::vector<float> samples(24'000);
    for (std::size_t i = 0; i < samples.size(); ++i)
        samples[i] = 1.2F * static_cast<float>(std::sin(0.05 * static_cast<double>(i)));
    QFile file(folder.filePath(QStringLiteral("a.flac")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(flacOf(samples));
    file.close();
    EXPECT_LT(file.size(), 48'000) << "smaller than the samples in 16 bits";
    EXPECT_EQ(AudioFile::duration(file.fileName()), std::chrono::milliseconds(1500));
    const auto read = AudioFile::read(file.fileName());
    ASSERT_EQ(read.samples.size(), samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i)
        ASSERT_NEAR(read.samples[i], std::clamp(samples[i], -1.0F, 1.0F), 1.0F / 16'384) << i;
    EXPECT_EQ(AudioFile::duration(folder.filePath(QStringLiteral("none.flac"))), std::chrono::milliseconds());
}
