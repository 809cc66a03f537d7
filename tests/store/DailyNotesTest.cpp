#include "tests/store/StoreTestSupport.h"

#include <QPromise>
#include <QTimeZone>
#include <qcoro/qcorofuture.h>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

const QTimeZone berlin("Europe/Berlin");

/// A language model that answers when the test says so.
class SlowModel final : public FormatRequestServicing
{
public:
    QCoro::Task<QString> format(QString prompt, QString text) override
    {
        asked << prompt + QLatin1Char('|') + text;
        answer_.emplace();
        answer_->start();
        const QFuture<QString> future = answer_->future();
        co_return co_await future;
    }
    void answer(const QString& text)
    {
        answer_->addResult(text);
        finish();
    }
    void fail()
    {
        answer_->setException(std::make_exception_ptr(Error(QStringLiteral("no network"))));
        finish();
    }

    QStringList asked;

private:
    /// Lets whoever awaits the answer go on.
    void finish()
    {
        answer_->finish();
        for (int i = 0; i < 10; ++i) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }

    std::optional<QPromise<QString>> answer_;
};

class DailyNotesTest : public StoreTest
{
protected:
    DailyNotesTest()
    {
        store.setSummaryPrompt([] { return QStringLiteral("condense"); });
    }
    void setTime(QDate date, QTime time) { clock.setWallClock(QDateTime(date, time, berlin)); }
    void note(const QString& text) { QCoro::waitFor(store.addNote(text)); }
    [[nodiscard]] std::vector<DailyNote> days() const { return store.dailyNotes({}, 100); }
    [[nodiscard]] QStringList texts(const DailyNote& day) const
    {
        QStringList result;
        for (const Note& note : store.notes(day))
            result << note.transcription;
        return result;
    }

    const QDate may4{2026, 5, 4};
    std::shared_ptr<SlowModel> model = std::make_shared<SlowModel>();
};

} // namespace

TEST_F(DailyNotesTest, NotesAroundMidnightBelongToTwoDays)
{
    setTime(may4, {23, 59});
    note(QStringLiteral("late"));
    clock.advance(90s);
    EXPECT_TRUE(store.todaysNotes().empty());
    EXPECT_EQ(days().size(), 1U) << "asking makes no day";
    note(QStringLiteral("early"));
    note(QStringLiteral("second"));
    ASSERT_EQ(days().size(), 2U);
    EXPECT_EQ(texts(days()[0]), (QStringList{QStringLiteral("early"), QStringLiteral("second")}));
    EXPECT_EQ(texts(days()[1]), QStringList{QStringLiteral("late")});
    EXPECT_EQ(days()[0].noteCount, 2);
    EXPECT_EQ(store.dailyNote(may4)->id, days()[1].id);
    EXPECT_FALSE(store.dailyNote(may4.addDays(2)));
}

TEST_F(DailyNotesTest, DaysOfADaylightSavingChangeAre23And25HoursLong)
{
    // Clocks go from 2:00 to 3:00 on 2026-03-29, and from 3:00 to 2:00 on 2026-10-25.
    for (const QDate date : {QDate(2026, 3, 29), QDate(2026, 10, 25)}) {
        setTime(date, {0, 0});
        note(QStringLiteral("first minute"));
        setTime(date, {23, 59, 59});
        note(QStringLiteral("last minute"));
        ASSERT_TRUE(store.dailyNote(date));
        EXPECT_EQ(store.dailyNote(date)->noteCount, 2);
        clock.advance(1s);
        note(QStringLiteral("next day"));
        EXPECT_EQ(store.dailyNote(date)->noteCount, 2);
        EXPECT_EQ(store.dailyNote(date.addDays(1))->noteCount, 1);
    }
    EXPECT_EQ(days().size(), 4U);
}

TEST_F(DailyNotesTest, TwoProcessesMakeOneDay)
{
    setTime(may4, {12, 0});
    const auto other = openAgain();
    note(QStringLiteral("mine"));
    QCoro::waitFor(other->addNote(QStringLiteral("theirs")));
    ASSERT_EQ(days().size(), 1U);
    EXPECT_EQ(days().front().noteCount, 2);
}

TEST_F(DailyNotesTest, TheSummaryIsMadeOfAllNotesOfTheDayInTheirOrder)
{
    setTime(may4, {8, 0});
    note(QStringLiteral("one"));
    clock.advance(1h);
    note(QStringLiteral("lost"));
    store.persistentContainer().run(
        QStringLiteral("UPDATE Note SET transcription = NULL WHERE transcription = 'lost'"));
    clock.advance(1h);
    note(QStringLiteral("two"));
    store.persistentContainer().run(QStringLiteral("UPDATE Note SET created_at = NULL WHERE transcription = 'one'"));
    clock.advance(1h);

    ::testing::internal::CaptureStdout();
    auto summary = store.summarizeToday(model);
    EXPECT_EQ(model->asked, QStringList{QStringLiteral("condense|two\n\n---\n\none")})
        << "a missing date counts as now";
    model->answer(QStringLiteral("the gist"));
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Daily summary updated with 3 notes\n");
    EXPECT_EQ(openAgain()->dailyNote(may4)->formatted, QStringLiteral("the gist"));
}

TEST_F(DailyNotesTest, WithoutAnAnswerTheFormerSummaryStays)
{
    setTime(may4, {8, 0});
    auto nothing = store.summarizeToday(model);
    EXPECT_TRUE(model->asked.isEmpty()) << "no notes, nothing to ask";
    note(QStringLiteral("one"));
    auto first = store.summarizeToday(model);
    model->answer(QStringLiteral("former"));
    ::testing::internal::CaptureStdout();
    auto failing = store.summarizeToday(model);
    model->fail();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "Failed to summarize today's notes: no network\n");
    EXPECT_EQ(days().front().formatted, QStringLiteral("former"));
}

TEST_F(DailyNotesTest, ASummaryThatComesAfterMidnightIsTheFormerDays)
{
    setTime(may4, {23, 59, 59});
    note(QStringLiteral("late"));
    auto summary = store.summarizeToday(model);
    clock.advance(2s);
    model->answer(QStringLiteral("gist"));
    ASSERT_EQ(days().size(), 1U);
    EXPECT_EQ(days().front().formatted, QStringLiteral("gist"));
}

TEST_F(DailyNotesTest, AnyDayCanBeSummarizedAgain)
{
    setTime(may4, {8, 0});
    note(QStringLiteral("old"));
    const DailyNote day = days().front();
    clock.advance(48h);

    ::testing::internal::CaptureStdout();
    auto again = store.regenerateSummary(day, model);
    note(QStringLiteral("meanwhile"));
    model->answer(QStringLiteral("new gist"));
    EXPECT_EQ(store.dailyNote(may4)->formatted, QStringLiteral("new gist"));
    auto deleted = store.regenerateSummary(day, model);
    store.deleteDailyNote(day);
    model->answer(QStringLiteral("too late"));
    auto empty = store.regenerateSummary(day, model);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(),
              "Daily summary updated with 1 notes\n"
              "Failed to reload DailyNote for updating summary: the day was deleted\n"
              "No notes found for this daily note\n");
    EXPECT_EQ(days().size(), 1U);
}

TEST_F(DailyNotesTest, DeletingADayTakesItsNotesAndDeletingANoteKeepsTheDay)
{
    setTime(may4, {8, 0});
    note(QStringLiteral("one"));
    note(QStringLiteral("two"));
    store.deleteNotes({store.todaysNotes().front().id});
    ASSERT_EQ(days().size(), 1U);
    EXPECT_EQ(texts(days().front()), QStringList{QStringLiteral("two")});
    const DailyNote day = days().front();
    const auto notes = store.notes(day);
    store.deleteDailyNote(day);
    EXPECT_EQ(value("SELECT count(*) FROM Note").toInt(), 0);
    EXPECT_TRUE(days().empty());
    EXPECT_THROW(store.restoreNotes(notes), StoreError) << "there is no day for them";
    store.restoreDailyNote(day, notes);
    ASSERT_EQ(days().size(), 1U);
    EXPECT_EQ(days().front().objectID, day.objectID);
    EXPECT_EQ(texts(days().front()), QStringList{QStringLiteral("two")});
}
