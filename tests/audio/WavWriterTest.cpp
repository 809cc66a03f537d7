#include "vantro/audio/WavWriter.h"

#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <limits>
#include <vector>

using namespace vantro;

TEST(WavWriter, WritesSixteenBitMonoAtSixteenKilohertzAndClipsInsteadOfWrapping)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("ümlaut.wav"));
    writeWav(std::vector{0.0F, 0.5F, -0.5F, 1.0F, 1.7F, -3.0F, std::numeric_limits<float>::quiet_NaN()}, path);

    QFile file(path);
    ASSERT_TRUE(file.open(QFile::ReadOnly));
    const QByteArray bytes = file.readAll();
    const auto word = [&](qsizetype at) {
        return qFromLittleEndian<quint16>(bytes.constData() + at);
    };
    const auto longWord = [&](qsizetype at) {
        return qFromLittleEndian<quint32>(bytes.constData() + at);
    };
    ASSERT_EQ(bytes.size(), 44 + 14);
    EXPECT_EQ(bytes.left(4), "RIFF");
    EXPECT_EQ(word(20), 1) << "PCM";
    EXPECT_EQ(word(22), 1) << "channels";
    EXPECT_EQ(longWord(24), 16'000U);
    EXPECT_EQ(word(34), 16) << "bits";
    EXPECT_EQ(longWord(40), 14U) << "bytes of sound";
    std::vector<qint16> samples;
    for (qsizetype at = 44; at < bytes.size(); at += 2)
        samples.push_back(static_cast<qint16>(word(at)));
    EXPECT_EQ(samples, (std::vector<qint16>{0, 16384, -16384, 32767, 32767, -32767, 0}));
}

TEST(WavWriter, SaysWhyAFileCannotBeWritten)
{
    const QTemporaryDir folder;
    try {
        writeWav(std::vector{0.0F}, folder.filePath(QStringLiteral("missing/a.wav")));
        FAIL() << "a file in a folder that does not exist";
    } catch (const WavWriterError& error) {
        EXPECT_EQ(error.code(), WavWriterError::Code::CannotOpen);
        EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("No such file")));
    }
    if (!QFile::exists(QStringLiteral("/dev/full")))
        GTEST_SKIP() << "this system has no /dev/full to stand for a full disk";
    EXPECT_THROW(writeWav(std::vector<float>(100'000, 0.1F), QStringLiteral("/dev/full")), WavWriterError);
}
