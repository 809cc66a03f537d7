#include "tests/store/StoreTestSupport.h"

#include <QTimeZone>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

class TranscriptionTest : public StoreTest
{
};

} // namespace

TEST_F(TranscriptionTest, IsFoundAgainAsItWasSavedAndFormatted)
{
    clock.setWallClock(QDateTime(QDate(2026, 3, 1), QTime(9, 30, 0, 123), QTimeZone("Europe/Berlin")));
    store.saveTranscription(QStringLiteral("one"), QString(), ProcessingMode::Normal);
    clock.advance(1s);
    const QUuid id = store.saveTranscription(QStringLiteral("two"), ProcessingMode::Email);
    store.updateFormatted(id, QStringLiteral("Two. Best, "));

    const auto again = openAgain();
    const auto second = again->transcription(id);
    ASSERT_TRUE(second);
    EXPECT_EQ(second->id, id);
    EXPECT_EQ(second->transcription, QStringLiteral("two"));
    EXPECT_EQ(second->formatted, QStringLiteral("Two. Best, "));
    EXPECT_EQ(second->processingMode, QStringLiteral("Email"));
    EXPECT_EQ(second->created_at, clock.wallClock());
    const auto all = rows();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].id, id) << "newest first";
    EXPECT_FALSE(all[1].formatted.isNull()) << "an empty text is stored, not a missing one";
    EXPECT_EQ(all[1].formatted, QString());
}

TEST_F(TranscriptionTest, TextsComeBackExactly)
{
    const QStringList texts{
        QStringLiteral(u"nul \u0000 inside, and at the end \u0000"),
        QStringLiteral(u"\U0001F469\u200D\U0001F4BB e\u0301 \u05E9\u05DC\u05D5\u05DD \u202Eabc \uFEFF\u200B"),
        QStringLiteral("'; DROP TABLE Transcription; -- %1 ?1 :id"),
        QStringLiteral("\r\n\t \\ \"\""),
        QStringLiteral(u"\u6F22\U00020000").repeated(200'000),
        QStringLiteral("a dictation of a megabyte ").repeated(40'330),
        QString(QLatin1String("")),
    };
    std::vector<QUuid> ids;
    for (const QString& text : texts) {
        ids.push_back(store.saveTranscription(text, ProcessingMode::Grammar));
        store.updateFormatted(ids.back(), text);
    }
    const auto again = openAgain();
    for (int i = 0; i < texts.size(); ++i) {
        const auto row = again->transcription(ids[static_cast<std::size_t>(i)]);
        ASSERT_TRUE(row);
        EXPECT_TRUE(row->transcription == texts[i]) << i;
        EXPECT_TRUE(row->formatted == texts[i]) << i;
    }
    EXPECT_EQ(integrityOf(*again), QStringLiteral("ok"));
}

TEST_F(TranscriptionTest, FormattingWhatWasDeletedMeanwhileIsNoFailure)
{
    const QUuid id = store.saveTranscription(QStringLiteral("gone"), ProcessingMode::Email);
    const QUuid kept = store.saveTranscription(QStringLiteral("kept"), ProcessingMode::Email);
    store.deleteTranscriptions({id, QUuid::createUuid()});
    store.updateFormatted(id, QStringLiteral("Gone."));
    EXPECT_EQ(rows().size(), 1U);
    EXPECT_EQ(rows().front().id, kept);
    EXPECT_TRUE(found(QStringLiteral("gone")).isEmpty());
}

TEST_F(TranscriptionTest, KeepTheirOrderWhenTheyShareAMillisecondOrTheClockIsSetBack)
{
    for (int i = 0; i < 1'500; ++i)
        store.saveTranscription(QString::number(i), {}, ProcessingMode::Normal);
    clock.setWallClock(clock.wallClock().addSecs(-3600));
    store.saveTranscription(QStringLiteral("an hour earlier"), {}, ProcessingMode::Normal);
    const auto all = rows({}, 2'000);
    ASSERT_EQ(all.size(), 1'501U);
    for (int i = 0; i < 1'500; ++i)
        ASSERT_EQ(all[static_cast<std::size_t>(i)].transcription, QString::number(1'499 - i));
    EXPECT_EQ(all.back().transcription, QStringLiteral("an hour earlier"));
}
