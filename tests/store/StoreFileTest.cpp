// The file itself: who may read it, earlier and newer versions, damage, locks, and what came before it.
#include "tests/store/StoreTestSupport.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlQuery>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

QByteArray contents(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return file.readAll();
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

/// Another program's connection to a file.
class OtherConnection
{
public:
    explicit OtherConnection(const QString& path)
    {
        auto database = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("other"));
        database.setDatabaseName(path);
        EXPECT_TRUE(database.open());
    }
    ~OtherConnection() { QSqlDatabase::removeDatabase(QStringLiteral("other")); }
    OtherConnection(const OtherConnection&) = delete;
    OtherConnection& operator=(const OtherConnection&) = delete;

    static void run(const char* statement)
    {
        QSqlQuery query(QSqlDatabase::database(QStringLiteral("other")));
        EXPECT_TRUE(query.exec(QLatin1String(statement))) << statement;
    }
};

class StoreFileTest : public StoreTest
{
protected:
    /// Its folder holds nothing else.
    [[nodiscard]] QString anotherPath(const char* name) const
    {
        const QString other = folder.filePath(QLatin1String(name));
        EXPECT_TRUE(QDir().mkpath(other));
        return other + QStringLiteral("/MainModel.sqlite");
    }
    [[nodiscard]] static QString fixture(const char* name)
    {
        return qEnvironmentVariable("VANTRO_SOURCE_DIR") + QStringLiteral("/tests/data/store/") + QLatin1String(name);
    }
};

} // namespace

TEST_F(StoreFileTest, OnlyItsOwnerMayReadIt)
{
    store.saveTranscription(QStringLiteral("secret"), {}, ProcessingMode::Normal);
    const auto others =
        QFileDevice::ReadGroup | QFileDevice::WriteGroup | QFileDevice::ReadOther | QFileDevice::WriteOther;
    for (const char* suffix : {"", "-wal", "-shm"})
        EXPECT_EQ(QFile::permissions(path + QLatin1String(suffix)) & others, QFileDevice::Permissions()) << suffix;
}

TEST_F(StoreFileTest, SavesAreCommittedToTheDiskAndTheLogNeedsNoHelp)
{
    EXPECT_EQ(value("PRAGMA journal_mode").toString(), QStringLiteral("wal"));
    EXPECT_EQ(value("PRAGMA synchronous").toInt(), 2) << "the log is synced with every commit";
}

class EarlierSchema : public StoreFileTest, public testing::WithParamInterface<const char*>
{
};

INSTANTIATE_TEST_SUITE_P(StoreFileTest, EarlierSchema, testing::Values("schema-1.sqlite", "schema-2.sqlite"));

TEST_P(EarlierSchema, BecomesThatOfThisVersion)
{
    const QString old = anotherPath("old");
    ASSERT_TRUE(QFile::copy(fixture(GetParam()), old));
    CoreDataStack migrated(clock, old);
    migrated.loadPersistentStores();
    const TranscriptionFetch all(migrated.persistentContainer(), {});
    const auto rows = all.rows({}, 10);
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows[0].created_at, QDateTime());
    EXPECT_TRUE(rows[0].id.isNull() && rows[0].transcription.isNull() && rows[0].formatted.isNull());
    EXPECT_EQ(rows[2].formatted, QStringLiteral("Hi Anna, the report is late. Best, "));
    EXPECT_EQ(rows[2].created_at.toMSecsSinceEpoch(), 1'700'000'060'000);
    for (const auto& [word, count] :
         {std::pair(QStringLiteral("report"), 1), std::pair(QStringLiteral("CAFE"), 1),
          std::pair(QStringLiteral(u"\u5929\u6c17"), 1), std::pair(QStringLiteral("milk"), 0)}) {
        HistoryFilter filter;
        filter.search = word;
        EXPECT_EQ(TranscriptionFetch(migrated.persistentContainer(), filter).count({}), count) << qPrintable(word);
    }
    const auto days = migrated.dailyNotes({}, 10);
    ASSERT_EQ(days.size(), 1U);
    EXPECT_EQ(days.front().formatted, QStringLiteral("One note about milk."));
    EXPECT_EQ(migrated.notes(days.front()).front().transcription, QStringLiteral("buy milk"));
    migrated.setAside(rows[2].id, QStringLiteral("Hi Bob"), QStringLiteral("It says Bob."));
    EXPECT_EQ(migrated.transcription(rows[2].id)->setAside, QStringLiteral("Hi Bob"));
    EXPECT_EQ(integrityOf(migrated), QStringLiteral("ok"));
    EXPECT_EQ(loadFailure(old), QString()) << "and is one from then on";
}

TEST_F(StoreFileTest, WhatIsNotUnderstoodIsReportedAndLeftAsItIs)
{
    const auto refused = [this](const char* name, const QByteArray& bytes, const char* why) {
        const QString other = anotherPath(name);
        write(other, bytes);
        const QString failure = loadFailure(other);
        EXPECT_TRUE(failure.startsWith(QStringLiteral("Failed to load persistent stores: "))) << qPrintable(failure);
        EXPECT_TRUE(failure.contains(QLatin1String(why))) << name << ": " << qPrintable(failure);
        EXPECT_EQ(contents(other), bytes) << name;
    };
    const QByteArray whole = contents(fixture("schema-1.sqlite"));
    refused("text", "Dear diary, this is no database at all. " + QByteArray(2'000, 'x'), "is damaged");
    refused("cut", whole.left(3'000), "is damaged");
    refused("scribbled", whole.left(100) + QByteArray(2'000, '\xff') + whole.mid(2'100), "is damaged");
    QByteArray newer = whole;
    newer[63] = 99; // user_version, big-endian at 60
    refused("newer", newer, "newer version of vantro (schema 99");
    QByteArray foreign = whole;
    foreign[71] = 0; // application_id, at 68
    refused("foreign", foreign, "another program's database");
}

TEST_F(StoreFileTest, WhatIsStoredAfterTheFileWasDeletedMovedOrReplacedIsInTheFileThatIsThere)
{
    const auto save = [this](const char* text) {
        store.saveTranscription(QLatin1String(text), {}, ProcessingMode::Normal);
    };
    const auto inFile = [this](const QString& file) {
        CoreDataStack other(clock, file);
        other.loadPersistentStores();
        EXPECT_EQ(integrityOf(other), QStringLiteral("ok"));
        QStringList texts;
        for (const Transcription& row : TranscriptionFetch(other.persistentContainer(), {}).rows({}, 10))
            texts << row.transcription;
        return texts.join(u' ').toStdString();
    };
    const QString another = anotherPath("another");
    {
        CoreDataStack backup(clock, another);
        backup.loadPersistentStores();
        backup.saveTranscription(QStringLiteral("backup"), {}, ProcessingMode::Normal);
    }
    int announced = 0;
    QObject::connect(&store, &CoreDataStack::changedAtLarge, &store, [&announced] { ++announced; });
    store.watchOtherProcesses();

    save("one");
    for (const char* suffix : {"", "-wal", "-shm"})
        ASSERT_TRUE(QFile::remove(path + QLatin1String(suffix)));
    save("two");
    EXPECT_EQ(inFile(path), "two");
    QCoreApplication::processEvents();
    EXPECT_GE(announced, 1);

    const QString aside = folder.filePath(QStringLiteral("aside.sqlite"));
    ASSERT_TRUE(QFile::rename(path, aside)); // without the log
    save("three");
    EXPECT_EQ(inFile(path), "three");
    EXPECT_EQ(inFile(aside), "two");

    ASSERT_EQ(::rename(another.toLocal8Bit().constData(), path.toLocal8Bit().constData()), 0);
    save("four");
    EXPECT_EQ(inFile(path), "four backup");

    ASSERT_TRUE(QDir(QFileInfo(path).path()).removeRecursively());
    write(QFileInfo(path).path(), "in the folder's place");
    EXPECT_THROW(save("refused"), StoreError);
    EXPECT_THROW(save("refused"), StoreError);
    ASSERT_TRUE(QFile::remove(QFileInfo(path).path()));
    save("five");
    EXPECT_EQ(inFile(path), "five");
    const std::unique_ptr<CoreDataStack> other = openAgain();
    const int before = announced;
    other->saveTranscription(QStringLiteral("six"), {}, ProcessingMode::Normal);
    EXPECT_TRUE(waitFor([&] { return announced > before; })) << "the new file is watched";
}

TEST_F(StoreFileTest, ALockIsWaitedForAndThenNamed)
{
    store.saveTranscription(QStringLiteral("before"), {}, ProcessingMode::Normal);
    const OtherConnection other(path);
    OtherConnection::run("BEGIN EXCLUSIVE");
    QElapsedTimer waited;
    waited.start();
    try {
        store.saveTranscription(QStringLiteral("refused"), {}, ProcessingMode::Normal);
        ADD_FAILURE();
    } catch (const StoreError& error) {
        EXPECT_TRUE(error.localizedDescription().contains(QStringLiteral("is locked by another program")));
    }
    EXPECT_GE(waited.elapsed(), 1'900);
    EXPECT_EQ(rows().size(), 1U) << "reading goes on meanwhile";
    OtherConnection::run("ROLLBACK");
    store.saveTranscription(QStringLiteral("after"), {}, ProcessingMode::Normal);
    EXPECT_EQ(rows().size(), 2U);

    // A connection that takes the file for itself alone.
    const QString alone = anotherPath("alone");
    ASSERT_TRUE(QFile::copy(fixture("schema-1.sqlite"), alone));
    QSqlDatabase::database(QStringLiteral("other")).close();
    auto database = QSqlDatabase::database(QStringLiteral("other"), false);
    database.setDatabaseName(alone);
    ASSERT_TRUE(database.open());
    for (const char* statement : {"PRAGMA locking_mode = EXCLUSIVE", "BEGIN EXCLUSIVE"})
        OtherConnection::run(statement);
    EXPECT_TRUE(loadFailure(alone).contains(QStringLiteral("is locked by another program")));
}
