// The lists beside the store they show: whatever happens, a list and its store agree.
#include "tests/store/StoreTestSupport.h"
#include "vantro/store/DailyNoteListModel.h"
#include "vantro/store/HistoryListModel.h"

#include <QAbstractItemModelTester>
#include <QProcess>
#include <QRandomGenerator>
#include <QSignalSpy>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

constexpr int page = PagedListModel::pageRows;

class HistoryListTest : public StoreTest
{
protected:
    /// In one go; the list hears of them as of another process's.
    void fill(int count)
    {
        PersistentContainer::Transaction transaction(store.persistentContainer());
        for (int i = 0; i < count; ++i) {
            clock.advance(1s);
            const Transcription row{0,
                                    QUuid::createUuid(),
                                    clock.wallClock(),
                                    rawValue(ProcessingMode::Normal),
                                    QStringLiteral("row %1 word%2\nmore").arg(i).arg(i % 7),
                                    QStringLiteral("")};
            insertTranscription(store.persistentContainer(), row);
        }
        transaction.commit();
    }
    static void fetchAll(QAbstractItemModel& model)
    {
        while (model.canFetchMore({}))
            model.fetchMore({});
    }
    static QUuid identityAt(const QAbstractItemModel& model, int row)
    {
        return model.index(row, 0).data(HistoryListModel::Identifier).toUuid();
    }
    /// The list shows the newest rows of what the filter lets through, as many as it has fetched.
    void expectAgreement(const HistoryListModel& model, const HistoryFilter& filter = {}) const
    {
        const auto stored = rows(filter, 100'000);
        const int shown = model.rowCount();
        ASSERT_LE(shown, static_cast<int>(stored.size()));
        ASSERT_TRUE(model.canFetchMore({}) || shown == static_cast<int>(stored.size())) << shown;
        for (int row = 0; row < shown; ++row)
            ASSERT_EQ(identityAt(model, row), stored[static_cast<std::size_t>(row)].id) << row;
    }
};

} // namespace

TEST_F(HistoryListTest, LoadsAPageAtATimeNewestFirst)
{
    fill(2 * page + 10);
    HistoryListModel model(store);
    EXPECT_EQ(model.rowCount(), page);
    EXPECT_EQ(model.index(0, 0).data(HistoryListModel::FirstLine), QStringLiteral("row 109 word4"));
    model.fetchMore({});
    EXPECT_EQ(model.rowCount(), 2 * page);
    fetchAll(model);
    EXPECT_EQ(model.rowCount(), 2 * page + 10);
    expectAgreement(model);
}

TEST_F(HistoryListTest, KeepsAFewPagesHoweverLongItIs)
{
    fill(60 * page);
    HistoryListModel model(store);
    fetchAll(model);
    ASSERT_EQ(model.rowCount(), 60 * page);
    EXPECT_LE(model.keptRows(), PagedListModel::keptPages * page);
    expectAgreement(model);
    EXPECT_LE(model.keptRows(), PagedListModel::keptPages * page) << "also after all rows were looked at";
}

TEST_F(HistoryListTest, FollowsEveryChangeOfItsOwnProcessInPlace)
{
    fill(3 * page);
    HistoryListModel model(store);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.fetchMore({});
    const QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    const QPersistentModelIndex watched = model.index(page + 5, 0);
    const QUuid id = identityAt(model, watched.row());

    const QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    store.updateFormatted(id, QStringLiteral("formatted now"));
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.first().first().toModelIndex().row(), page + 5);
    EXPECT_EQ(watched.data(HistoryListModel::FirstLine), QStringLiteral("formatted now"));

    for (int i = 0; i < 3 * page; ++i) {
        clock.advance(1s);
        store.saveTranscription(QString::number(i), {}, ProcessingMode::Normal);
    }
    EXPECT_EQ(watched.row(), 4 * page + 5);
    EXPECT_EQ(identityAt(model, watched.row()), id);
    store.deleteTranscriptions({identityAt(model, 0), identityAt(model, 17), identityAt(model, 2 * page)});
    EXPECT_EQ(watched.row(), 4 * page + 2);
    store.deleteTranscriptions({id});
    EXPECT_FALSE(watched.isValid());
    clock.setWallClock(clock.wallClock().addSecs(-4 * page));
    store.saveTranscription(QStringLiteral("the clock was set back"), {}, ProcessingMode::Normal);
    expectAgreement(model);
    fetchAll(model);
    expectAgreement(model);
    EXPECT_EQ(resets.size(), 0) << "a view keeps its place";
}

// The tester of models fetches all rows by itself.
TEST_F(HistoryListTest, AgreesWithTheStoreAfterAnyChanges)
{
    fill(5 * page);
    HistoryListModel model(store);
    HistoryListModel whole(store);
    const QAbstractItemModelTester tester(&whole, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const auto other = openAgain();
    QRandomGenerator random(7);
    for (int i = 0; i < 400; ++i) {
        CoreDataStack& writer = random.bounded(2) == 0 ? store : *other;
        clock.setWallClock(clock.wallClock().addSecs(random.bounded(-200, 220)));
        const int row = random.bounded(model.rowCount());
        switch (random.bounded(4)) {
        case 0:
            writer.saveTranscription(QString::number(i), {}, ProcessingMode::Normal);
            break;
        case 1:
            writer.updateFormatted(identityAt(model, row), QStringLiteral("changed %1").arg(i));
            break;
        case 2:
            writer.deleteTranscriptions({identityAt(model, row), identityAt(model, row / 2)});
            break;
        default:
            model.fetchMore({});
        }
        if (&writer == other.get())
            store.announceChanges();
    }
    expectAgreement(model);
    fetchAll(model);
    expectAgreement(model);
    expectAgreement(whole);
}

TEST_F(HistoryListTest, ShowsWhatPassesItsFilters)
{
    fill(7 * page);
    HistoryListModel model(store);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    const QSignalSpy changed(&model, &HistoryListModel::filterChanged);
    model.setSearchText(QStringLiteral("word3"));
    HistoryFilter filter;
    filter.search = QStringLiteral("word3");
    fetchAll(model);
    EXPECT_EQ(model.rowCount(), page);
    expectAgreement(model, filter);

    store.saveTranscription(QStringLiteral("no match"), {}, ProcessingMode::Normal);
    EXPECT_EQ(model.rowCount(), page);
    const QUuid id = store.saveTranscription(QStringLiteral("not yet"), ProcessingMode::Email);
    store.updateFormatted(id, QStringLiteral("now Word3 is in it"));
    EXPECT_EQ(model.rowCount(), page + 1);
    EXPECT_EQ(identityAt(model, 0), id);
    model.setMode(QStringLiteral("Email"));
    EXPECT_EQ(model.rowCount(), 1);
    store.updateFormatted(id, QStringLiteral("and now it is not"));
    EXPECT_EQ(model.rowCount(), 0);
    model.setMode({});
    model.setSearchText({});
    model.setSince(clock.wallClock().addSecs(-10));
    EXPECT_EQ(model.rowCount(), 13);
    EXPECT_EQ(changed.size(), 5);
}

TEST_F(HistoryListTest, SeesWhatAnotherProcessChanges)
{
    fill(10);
    HistoryListModel model(store);
    DailyNoteListModel days(store);
    QProcess process;
    process.start(qEnvironmentVariable("VANTRO_STORE_WRITER"), {path, QStringLiteral("40")});
    ASSERT_TRUE(waitFor([&] { return model.rowCount() == 50; })) << model.rowCount();
    EXPECT_TRUE(waitFor([&] { return process.state() == QProcess::NotRunning; }));
    clock.setWallClock(QDateTime::currentDateTime());
    const auto other = openAgain();
    QCoro::waitFor(other->addNote(QStringLiteral("by another")));
    ASSERT_TRUE(waitFor([&] { return days.rowCount() == 1; }));
    EXPECT_EQ(days.index(0, 0).data(DailyNoteListModel::NoteCount), 1);
    QCoro::waitFor(store.addNote(QStringLiteral("by this one")));
    EXPECT_EQ(days.index(0, 0).data(DailyNoteListModel::NoteCount), 2);
    other->deleteDailyNote(other->dailyNotes({}, 1).front());
    EXPECT_TRUE(waitFor([&] { return days.rowCount() == 0; }));
    // The last commit of a process makes its last event before it counts.
    other->deleteTranscriptions({identityAt(model, 3)});
    EXPECT_TRUE(waitFor([&] { return model.rowCount() == 49; }));
    expectAgreement(model);
}

TEST_F(HistoryListTest, WhatIsBroughtBackStandsWhereItWas)
{
    fill(2 * page);
    HistoryListModel model(store);
    fetchAll(model);
    const auto before = rows({}, 1000);
    const auto deleted =
        store.deleteTranscriptions({identityAt(model, 3), identityAt(model, page + 3), QUuid::createUuid()});
    ASSERT_EQ(deleted.size(), 2U);
    expectAgreement(model);
    store.restoreTranscriptions(deleted);
    expectAgreement(model);
    for (int row = 0; row < model.rowCount(); ++row)
        ASSERT_EQ(identityAt(model, row), before[static_cast<std::size_t>(row)].id) << row;
    EXPECT_EQ(model.rowOf(deleted.back().objectID), page + 3);
    EXPECT_EQ(model.rowOf(deleted.back().objectID + 1), -1);
    store.restoreTranscriptions(deleted);
    expectAgreement(model);
}

TEST_F(HistoryListTest, InASearchARowsLineHasTheHit)
{
    store.saveTranscription(
        QStringLiteral("first line\nand a second one that is long enough to hide the walrus at its end\nthird"),
        ProcessingMode::Normal);
    HistoryListModel model(store);
    EXPECT_EQ(model.index(0, 0).data(HistoryListModel::FirstLine), QStringLiteral("first line"));
    model.setSearchText(QStringLiteral("WALRUS"));
    EXPECT_EQ(model.index(0, 0).data(HistoryListModel::FirstLine),
              QStringLiteral(u"\u2026 enough to hide the walrus at its end"));
    EXPECT_EQ(model.index(0, 0).data(HistoryListModel::Day), clock.wallClock().date().toString(Qt::ISODate));
}
