// Work on many dictations at once, and how long they are kept.
#include "base/RunTask.h"
#include "base/Settings.h"
#include "tests/store/StoreTestSupport.h"
#include "vantro/store/Retention.h"

#include <QFile>
#include <QTimer>

#include <algorithm>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

constexpr int piece = HistoryJobs::pieceRows;

class HistoryJobsTest : public StoreTest
{
protected:
    /// One a day, the newest today.
    std::vector<QUuid> fill(int count)
    {
        PersistentContainer::Transaction transaction(store.persistentContainer());
        std::vector<QUuid> ids;
        for (int i = 0; i < count; ++i) {
            ids.push_back(QUuid::createUuid());
            insertTranscription(store.persistentContainer(),
                                {0, ids.back(), clock.wallClock().addDays(-i), rawValue(ProcessingMode::Normal),
                                 QStringLiteral("walrus %1").arg(i), QStringLiteral("")});
        }
        transaction.commit();
        return ids;
    }
    [[nodiscard]] int count() const { return static_cast<int>(rows({}, 100'000).size()); }
    [[nodiscard]] bool holdsOnDisk(const QByteArray& word) const
    {
        for (const char* end : {"", "-wal"}) {
            QFile file(path + QLatin1String(end));
            if (file.open(QIODevice::ReadOnly) && file.readAll().contains(word))
                return true;
        }
        return false;
    }

    HistoryJobs jobs{store};
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
};

} // namespace

TEST_F(HistoryJobsTest, ManyGoAndComeBackWhileTheMainThreadGoesOn)
{
    const auto ids = fill(5 * piece);
    const auto before = rows({}, 100'000);
    int turns = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&turns] { ++turns; });
    timer.start(0);
    QUuid meanwhile;
    const auto removed = runTask(jobs.remove(ids, [&](std::size_t done) {
        if (done == piece)
            meanwhile = store.saveTranscription(QStringLiteral("said meanwhile"), ProcessingMode::Normal);
    }));
    EXPECT_GE(turns, 5);
    EXPECT_TRUE(removed.problem.isEmpty()) << removed.problem.toStdString();
    ASSERT_EQ(removed.rows.size(), ids.size());
    EXPECT_TRUE(std::any_of(removed.rows.begin(), removed.rows.begin() + piece, [&](const Transcription& row) {
        return row.id == ids.front();
    })) << "what is seen first goes first";
    EXPECT_EQ(count(), 1);

    store.deleteTranscriptions({meanwhile});
    runTask(jobs.restore(removed.rows, [](std::size_t) {}));
    const auto after = rows({}, 100'000);
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < after.size(); ++i)
        ASSERT_EQ(after[i].id, before[i].id);
    EXPECT_EQ(integrityOf(store), QStringLiteral("ok"));
}

TEST_F(HistoryJobsTest, WhatWasDeletedBeforeAFailureCanBeHadBack)
{
    const auto ids = fill(3 * piece);
    const auto other = openAgain();
    const auto removed = runTask(
        jobs.remove(ids, [&](std::size_t) { other->persistentContainer().run(QStringLiteral("BEGIN IMMEDIATE")); }));
    EXPECT_FALSE(removed.problem.isEmpty());
    EXPECT_EQ(removed.rows.size(), static_cast<std::size_t>(piece));
    other->persistentContainer().run(QStringLiteral("ROLLBACK"));
    runTask(jobs.restore(removed.rows, [](std::size_t) {}));
    EXPECT_EQ(count(), 3 * piece);
}

TEST_F(HistoryJobsTest, ClearingLeavesNothingOnTheDisk)
{
    fill(2 * piece);
    runTask(store.addNote(QStringLiteral("a walrus in the notes")));
    ASSERT_TRUE(holdsOnDisk("walrus"));
    runTask(jobs.clear());
    EXPECT_EQ(count(), 0);
    EXPECT_TRUE(store.dailyNotes({}, 10).empty());
    EXPECT_FALSE(holdsOnDisk("walrus"));
    const QUuid id = store.saveTranscription(QStringLiteral("a new one"), ProcessingMode::Normal);
    EXPECT_EQ(found(QStringLiteral("new")).size(), 1);
    store.deleteTranscriptions({id});
    EXPECT_TRUE(found(QStringLiteral("new")).isEmpty());
    EXPECT_EQ(integrityOf(store), QStringLiteral("ok"));
}

TEST_F(HistoryJobsTest, ChosenOnesAreExportedOldestFirst)
{
    const auto ids = fill(4);
    const QString file = folder.filePath(QStringLiteral("chosen.csv"));
    runTask(jobs.exportTo(file, {ids[0], ids[2]}));
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = written.readAll().trimmed().split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines[1].contains("walrus 2"));
    EXPECT_TRUE(lines[2].contains("walrus 0"));
    EXPECT_EQ(written.permissions() & (QFile::ReadGroup | QFile::ReadOther), QFile::Permissions());
    EXPECT_THROW(runTask(jobs.exportTo(QStringLiteral("/nowhere/chosen.csv"), ids)), Error);
}

TEST_F(HistoryJobsTest, OldDictationsGoAtTheStartOnceADayAndWhenTheSpanChanges)
{
    fill(50);
    Retention retention(defaults, jobs, clock);
    defaults.set(setting::keepHistory, QStringLiteral("a while"));
    retention.start();
    EXPECT_EQ(clock.pending(), 1U) << "nothing else wakes it";
    EXPECT_EQ(count(), 50) << "what nobody understands deletes nothing";

    defaults.set(setting::keepHistory, QStringLiteral("30"));
    ASSERT_TRUE(waitFor([this] { return count() == 31; })) << count();
    clock.setWallClock(clock.wallClock().addDays(10));
    clock.advance(23h);
    EXPECT_EQ(count(), 31);
    clock.advance(1h);
    ASSERT_TRUE(waitFor([this] { return count() == 20; })) << count();
    EXPECT_EQ(clock.pending(), 1U);

    EXPECT_TRUE(retention.isKeeping());
    retention.setPrivate(true);
    EXPECT_FALSE(retention.isKeeping());
    retention.setPrivate(false);
    defaults.set(setting::keepHistory, QStringLiteral("never"));
    EXPECT_FALSE(retention.isKeeping());
    ASSERT_TRUE(waitFor([this] { return count() == 0; }));
}
