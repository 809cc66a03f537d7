// Recordings in files that outlive their process.
#include "vantro/audio/RecordingSpool.h"

#include "base/Error.h"
#include "base/RunTask.h"
#include "base/testing/ManualClock.h"
#include "tests/WaitFor.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

using namespace vantro;
using namespace std::chrono_literals;

namespace {

class RecordingSpoolTest : public ::testing::Test
{
protected:
    [[nodiscard]] std::shared_ptr<Recording> begin(RecordingSpool& spool, const char* id)
    {
        return spool.keep(collector, QLatin1String(id), ProcessingMode::Email);
    }
    [[nodiscard]] QString path(const char* id) const
    {
        return folder + QStringLiteral("/%1.recording").arg(QLatin1String(id));
    }
    [[nodiscard]] bool grows(const char* id, qint64 samples) const
    {
        return waitFor([&] { return QFileInfo(path(id)).size() == 64 + samples * 4; });
    }
    [[nodiscard]] std::vector<std::vector<float>> left(RecordingSpool& spool) const
    {
        std::vector<std::vector<float>> result;
        for (const auto& recording : runTask(spool.takeLeft()))
            result.push_back(runTask(recording->samples()));
        return result;
    }

    QTemporaryDir temporary;
    const QString folder = temporary.filePath(QStringLiteral("vantro"));
    doubles::ManualClock clock;
    const std::shared_ptr<SampleCollector> collector = std::make_shared<SampleCollector>();
    const std::vector<float> second = std::vector<float>(16'000, 0.5F);
};

} // namespace

TEST_F(RecordingSpoolTest, WritesWhatArrivesFourTimesASecondForItsOwnerAlone)
{
    RecordingSpool spool{folder, clock};
    const auto recording = begin(spool, "audio-1");
    EXPECT_TRUE(grows("audio-1", 0));
    collector->append(second);
    clock.advance(RecordingSpool::interval);
    EXPECT_TRUE(grows("audio-1", 16'000));
    collector->append(second);
    clock.advance(RecordingSpool::interval);
    EXPECT_TRUE(grows("audio-1", 32'000));
    EXPECT_EQ(QFileInfo(path("audio-1")).permissions() & 0x77, QFileDevice::Permissions());
    EXPECT_EQ(QFileInfo(folder).permissions() & 0x77, QFileDevice::Permissions());

    collector->append(second);
    recording->finish(collector->takeSamples());
    EXPECT_EQ(runTask(recording->samples()).size(), 48'000U);
    EXPECT_TRUE(recording->mayHoldSpeech());
    recording->discard();
    EXPECT_TRUE(waitFor([&] { return !QFile::exists(path("audio-1")); }));
}

TEST_F(RecordingSpoolTest, AnotherInstanceTouchesNothingWhileItsWriterLives)
{
    RecordingSpool other{folder, clock};
    {
        RecordingSpool spool{folder, clock};
        const auto recording = begin(spool, "audio-1");
        collector->append(second);
        clock.advance(RecordingSpool::interval);
        EXPECT_TRUE(grows("audio-1", 16'000));
        EXPECT_TRUE(left(other).empty());
        EXPECT_TRUE(other.isInUse());
    }
    EXPECT_FALSE(other.isInUse());
    EXPECT_EQ(left(other), std::vector<std::vector<float>>(1, second));
}

TEST_F(RecordingSpoolTest, ATornEndIsIgnoredAndWhatIsNoRecordingStays)
{
    RecordingSpool spool{folder, clock};
    begin(spool, "audio-1")->finish(second);
    begin(spool, "audio-2")->finish(std::vector<float>(16'000, 0.0F));
    begin(spool, "audio-3")->finish(std::vector<float>(4'799, 0.5F));
    begin(spool, "audio-4")->setHidden(true); // as a cancelled one
    ASSERT_TRUE(waitFor([&] {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden).size() == 4 && !QFile::exists(path("audio-4"));
    }));
    ASSERT_TRUE(grows("audio-1", 16'000));
    QFile torn(path("audio-1"));
    ASSERT_TRUE(torn.open(QIODevice::Append) && torn.write("abc") == 3 && torn.flush());
    QFile foreign(path("foreign"));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly) && foreign.write("short") == 5 && foreign.flush());

    const auto recordings = runTask(spool.takeLeft());
    ASSERT_EQ(recordings.size(), 1U);
    EXPECT_EQ(recordings.front()->id(), QStringLiteral("audio-1"));
    EXPECT_EQ(recordings.front()->header().mode, ProcessingMode::Email);
    EXPECT_EQ(recordings.front()->header().startedAt, clock.wallClock());
    EXPECT_EQ(runTask(recordings.front()->samples()), second);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files | QDir::Hidden),
              QStringList({QStringLiteral("audio-1.recording"), QStringLiteral("foreign.recording")}))
        << "what holds no speech is removed";
}

TEST_F(RecordingSpoolTest, AFullFolderEndsTheKeepingAndTheRestIsInMemory)
{
    RecordingSpool spool{folder, clock};
    const auto recording = begin(spool, "audio-1");
    collector->append(second);
    clock.advance(RecordingSpool::interval);
    ASSERT_TRUE(grows("audio-1", 16'000));

    rlimit former{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former), 0);
    const rlimit small{64 + 20'000 * 4, former.rlim_max};
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    collector->append(second);
    clock.advance(RecordingSpool::interval);
    EXPECT_TRUE(grows("audio-1", 20'000));
    recording->finish(collector->takeSamples());
    EXPECT_EQ(runTask(recording->samples()).size(), 32'000U);
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
}
