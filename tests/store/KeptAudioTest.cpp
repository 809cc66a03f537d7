// Recordings that stay with their dictations: how long, where, and what goes with what.
#include "vantro/store/KeptAudio.h"

#include "base/RunTask.h"
#include "base/Settings.h"
#include "tests/store/StoreTestSupport.h"
#include "vantro/sound/AudioFile.h"
#include "vantro/store/HistoryJobs.h"

#include <QDir>
#include <QFile>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

class KeptAudioTest : public StoreTest
{
protected:
    KeptAudioTest()
    {
        defaults.set(setting::keepRecordings, QStringLiteral("forever"));
        QObject::connect(&audio, &KeptAudio::failed, &audio, [this](const QString& why) { problems << why; });
    }
    QUuid dictate(const QString& text = QStringLiteral("walrus"))
    {
        const QUuid id = store.saveTranscription(text, ProcessingMode::Normal);
        runTask(audio.keep(id, samples));
        return id;
    }
    [[nodiscard]] QString fileOf(const QUuid& id) const { return audio.folder().file(id); }
    [[nodiscard]] std::size_t fileCount() const { return audio.folder().identities().size(); }
    void setAge(const QUuid& id, int days) const
    {
        QFile file(fileOf(id));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        ASSERT_TRUE(
            file.setFileTime(clock.wallClock().addSecs(-days * 86400 - 3600), QFileDevice::FileModificationTime));
    }

    const QString recordings = folder.filePath(QStringLiteral("vantro/recordings"));
    std::vector<float> samples = std::vector<float>(16'000, 0.25F);
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    HistoryJobs jobs{store};
    KeptAudio audio{defaults, store, clock};
    QStringList problems;
};

} // namespace

TEST_F(KeptAudioTest, IsItsUsersAlone)
{
    const QUuid id = dictate();
    EXPECT_EQ(fileOf(id), recordings + QLatin1Char('/') + id.toString(QUuid::WithoutBraces) + QStringLiteral(".flac"));
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    EXPECT_EQ(QFile::permissions(fileOf(id)) & others, QFile::Permissions());
    EXPECT_EQ(QFile::permissions(recordings) & others, QFile::Permissions());
    EXPECT_EQ(AudioFile::read(fileOf(id)).samples.size(), samples.size());
    EXPECT_EQ(audio.folder().bytes(), QFileInfo(fileOf(id)).size());
}

TEST_F(KeptAudioTest, AFolderThatCannotBeWrittenIsToldOnceUntilItWorksAgain)
{
    QFile inTheWay(recordings);
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    const QUuid id = dictate();
    dictate();
    EXPECT_EQ(problems.size(), 1);
    EXPECT_TRUE(problems.value(0).contains(recordings)) << problems.value(0).toStdString();
    EXPECT_EQ(fileOf(id), QString());
    EXPECT_TRUE(store.transcription(id)) << "the text stays";
    inTheWay.remove();
    EXPECT_NE(fileOf(dictate()), QString());
    ASSERT_TRUE(QDir(recordings).removeRecursively());
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    dictate();
    EXPECT_EQ(problems.size(), 2);
}

TEST_F(KeptAudioTest, AgeAndSizeAreLimited)
{
    std::vector<QUuid> ids;
    for (int day = 4; day >= 0; --day) {
        ids.push_back(dictate());
        setAge(ids.back(), day);
    }
    audio.start();
    defaults.set(setting::keepRecordings, QStringLiteral("3"));
    ASSERT_TRUE(waitFor([this] { return fileCount() == 3; })) << fileCount();
    EXPECT_EQ(fileOf(ids[1]), QString());
    EXPECT_NE(fileOf(ids[2]), QString());
    clock.advance(24h);
    ASSERT_TRUE(waitFor([this] { return fileCount() == 2; })) << fileCount();

    const qint64 each = QFileInfo(fileOf(ids[4])).size();
    const auto beyond = audio.folder().beyond({{}, each, false});
    ASSERT_EQ(beyond.size(), 1U);
    EXPECT_EQ(beyond.front(), ids[3]) << "the oldest goes first";
    std::uint32_t noise = 1;
    samples.resize(450'000);
    for (float& sample : samples)
        sample = static_cast<float>(noise = noise * 1'664'525 + 1'013'904'223) / 2.2e9F - 1;
    defaults.set(setting::keepRecordingsMegabytes, 1);
    dictate();
    const QUuid latest = dictate();
    ASSERT_TRUE(waitFor([this] { return fileCount() == 1; })) << "after each recording, too: " << fileCount();
    EXPECT_NE(fileOf(latest), QString());

    defaults.set(setting::keepRecordings, QStringLiteral("never"));
    EXPECT_FALSE(audio.isKeeping());
    ASSERT_TRUE(waitFor([this] { return fileCount() == 0; }));
}

TEST_F(KeptAudioTest, GoesWithItsNoteAndComesBackWithIt)
{
    const QUuid id = runTask(store.addNote(QStringLiteral("buy milk")));
    const QUuid other = runTask(store.addNote(QStringLiteral("and bread")));
    for (const QUuid& each : {id, other})
        runTask(audio.keep(each, samples));
    const DailyNote day = *store.dailyNote(clock.wallClock().date());
    const std::vector<Note> notes = store.notes(day);
    store.deleteNotes({id});
    EXPECT_NE(fileOf(id), QString()) << "while it can be undone";
    store.restoreNotes({notes.front()});
    store.deleteNotes({other});
    runTask(audio.sweep());
    EXPECT_NE(fileOf(id), QString());
    EXPECT_EQ(fileOf(other), QString());
    store.deleteDailyNote(day);
    runTask(audio.sweep());
    EXPECT_EQ(fileCount(), 0U) << "the day took it along";
}

TEST_F(KeptAudioTest, GoesWithItsDictationAndComesBackWithIt)
{
    const std::vector<QUuid> ids{dictate(), dictate(), dictate()};
    const auto deleted = store.deleteTranscriptions({ids[0], ids[1]});
    EXPECT_NE(fileOf(ids[0]), QString()) << "while it can be undone";
    store.restoreTranscriptions({deleted.front()});
    runTask(audio.sweep());
    EXPECT_EQ(fileOf(deleted.back().id), QString());
    EXPECT_NE(fileOf(deleted.front().id), QString());
    EXPECT_NE(fileOf(ids[2]), QString());

    runTask(jobs.removeBefore(clock.wallClock().addDays(1)));
    EXPECT_EQ(fileCount(), 0U) << "what cannot be had back goes at once";
    dictate();
    QFile other(recordings + QStringLiteral("/a song.flac"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    QFile unfinished(fileOf(audio.folder().identities().front()) + QStringLiteral(".aBcDeF"));
    ASSERT_TRUE(unfinished.open(QIODevice::WriteOnly));
    runTask(jobs.clear());
    EXPECT_EQ(QDir(recordings).entryList(QDir::Files), QStringList{QStringLiteral("a song.flac")});

    const QUuid id = store.saveTranscription(QStringLiteral("gone by then"), ProcessingMode::Normal);
    store.deleteTranscriptions({id});
    runTask(audio.keep(id, samples));
    EXPECT_TRUE(waitFor([this] { return fileCount() == 0; })) << "deleted while it was written";
}
