// What becomes of the history when a process is killed in the middle, and when the disk is full.
#include "tests/store/StoreTestSupport.h"

#include <QProcess>
#include <QRandomGenerator>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

constexpr int savesInAll = 1'000;

class DurabilityTest : public StoreTest
{
protected:
    static QString writer() { return qEnvironmentVariable("VANTRO_STORE_WRITER"); }

    /// Every acknowledged row is there, whole, and the file is sound.
    void check(const QByteArrayList& acknowledged)
    {
        const auto again = openAgain();
        for (const QByteArray& id : acknowledged) {
            const auto row = again->transcription(QUuid(QString::fromLatin1(id)));
            ASSERT_TRUE(row) << id.constData();
            EXPECT_TRUE(row->transcription.startsWith(QStringLiteral("dictation number ")));
            const int number = row->transcription.section(QLatin1Char(' '), 2, 2).toInt();
            EXPECT_EQ(row->formatted, number % 3 == 0 ? row->transcription.toUpper() : QString());
        }
        EXPECT_EQ(integrityOf(*again), QStringLiteral("ok"));
    }
};

} // namespace

TEST_F(DurabilityTest, KillingTheWriterAtAnyMomentLosesNothingThatWasAcknowledged)
{
    QByteArrayList acknowledged;
    int kills = 0;
    while (acknowledged.size() < savesInAll) {
        QProcess process;
        process.setReadChannel(QProcess::StandardOutput);
        process.start(writer(), {path, QString::number(savesInAll)});
        ASSERT_TRUE(process.waitForStarted());
        // Some way in, and then at any moment between two lines: the time to the next line is about a millisecond.
        const auto wanted = QRandomGenerator::global()->bounded(1, 60);
        QByteArray output;
        while (output.count('\n') < wanted && process.waitForReadyRead(10'000))
            output += process.readAll();
        ASSERT_GE(output.count('\n'), wanted) << process.readAllStandardError().constData();
        const QDeadlineTimer moment(std::chrono::microseconds(QRandomGenerator::global()->bounded(3'000)),
                                    Qt::PreciseTimer);
        while (!moment.hasExpired()) {
        }
        process.kill();
        process.waitForFinished();
        output += process.readAll();
        output.truncate(output.lastIndexOf('\n'));
        acknowledged += output.split('\n');
        ++kills;
        if (kills % 10 == 0)
            check(acknowledged);
    }
    check(acknowledged);
    EXPECT_GE(kills, 10);
}

TEST_F(DurabilityTest, OnAFullDiskASaveFailsAndWhatIsThereStays)
{
    // Every file may grow to 2 MiB, which needs no right and works wherever programs run; then there is room again.
    const QString script = QStringLiteral("trap '' XFSZ; (ulimit -f 4096; exec \"$1\" \"$2\" 100000); code=$?; "
                                          "\"$1\" \"$2\" 50 > /dev/null || exit 98; exit $code");
    QProcess process;
    process.start(QStringLiteral("sh"), {QStringLiteral("-c"), script, QStringLiteral("sh"), writer(), path});
    ASSERT_TRUE(process.waitForFinished(60'000));
    const QByteArray message = process.readAllStandardError();
    ASSERT_EQ(process.exitCode(), 1) << message.constData();
    EXPECT_TRUE(message.contains("Nothing more can be written to the history")) << message.constData();
    QByteArrayList acknowledged = process.readAllStandardOutput().split('\n');
    acknowledged.removeAll(QByteArray());
    EXPECT_GT(acknowledged.size(), 20);
    check(acknowledged);
}
