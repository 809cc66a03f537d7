#include "vantro/store/MigrationManager.h"

#include "tests/store/StoreTestSupport.h"

using namespace vantro;

namespace {

class MigrationManagerTest : public StoreTest
{
protected:
    void insert(const QVariant& transcription, const QVariant& formatted)
    {
        store.persistentContainer().run(
            QStringLiteral("INSERT INTO Transcription (transcription, formatted) VALUES (?1, ?2)"),
            {transcription, formatted});
    }
    std::string launch(CoreDataStack& stack)
    {
        MigrationManager manager(defaults, stack);
        ::testing::internal::CaptureStdout();
        manager.runTranscriptionTrimMigrationIfNeeded();
        manager.runEmptyTranscriptionDeleteMigrationIfNeeded();
        return ::testing::internal::GetCapturedStdout();
    }

    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
};

} // namespace

TEST_F(MigrationManagerTest, TrimsThenDeletesWhatIsEmptyAndNeverAgain)
{
    insert(QStringLiteral("  word\n"), QStringLiteral("\n"));
    insert(QStringLiteral(u"\u00a0\u2028 "), {});
    insert({}, QStringLiteral("formatted"));
    insert(QStringLiteral(""), {});
    insert(QStringLiteral("in  between"), QStringLiteral("kept"));
    EXPECT_EQ(launch(store), "Running transcription trim migration...\n"
                             "Found 5 transcriptions to process\n"
                             "Trimmed 2 transcriptions\n"
                             "Transcription trim migration completed\n"
                             "Running empty transcription deletion migration...\n"
                             "Found 3 empty transcriptions to delete\n"
                             "Deleted 3 empty transcriptions\n"
                             "Empty transcription deletion migration completed\n");
    const auto all = rows();
    ASSERT_EQ(all.size(), 2U);
    EXPECT_EQ(all[0].transcription, QStringLiteral("in  between"));
    EXPECT_EQ(all[1].transcription, QStringLiteral("word"));
    EXPECT_FALSE(all[1].formatted.isNull());
    EXPECT_EQ(all[1].formatted, QString());
    EXPECT_EQ(integrityOf(store), QStringLiteral("ok"));

    insert(QStringLiteral(" "), {});
    EXPECT_EQ(launch(store), "Transcription trim migration already run, skipping\n"
                             "Empty transcription deletion migration already run, skipping\n");
    EXPECT_EQ(rows().size(), 3U);
}

TEST_F(MigrationManagerTest, AFailedRepairIsPrintedAndNotTriedAgain)
{
    insert(QStringLiteral(" word"), {});
    store.persistentContainer().run(QStringLiteral("PRAGMA query_only = ON"));
    const std::string printed = launch(store);
    EXPECT_NE(printed.find("Error during transcription trim migration: The history "), std::string::npos) << printed;
    EXPECT_NE(printed.find("Transcription trim migration completed\n"), std::string::npos);
    store.persistentContainer().run(QStringLiteral("PRAGMA query_only = OFF"));
    EXPECT_EQ(launch(store), "Transcription trim migration already run, skipping\n"
                             "Empty transcription deletion migration already run, skipping\n");
    EXPECT_EQ(rows().front().transcription, QStringLiteral(" word"));
}
