#include "vantro/store/StoreSchema.h"

#include "vantro/store/PersistentContainer.h"
#include "vantro/store/SearchText.h"

#include <QCoreApplication>
#include <QVariant>

#include <array>

namespace vantro {

namespace {

/// "vant"; identifies the file.
constexpr int applicationID = 0x76616e74;

int integerPragma(const PersistentContainer& container, const char* name)
{
    return container.value(QStringLiteral("PRAGMA ") + QLatin1String(name)).toInt();
}

/// pk is the time in microseconds since 1970, incremented for rows in the same millisecond, so that the tables and the
/// full-text index are in time order without another index. created_at is in milliseconds.
void makeEntities(const PersistentContainer& container)
{
    for (const char* statement : {
             "CREATE TABLE Transcription (pk INTEGER PRIMARY KEY, id TEXT UNIQUE, created_at INTEGER, "
             "processingMode TEXT, transcription TEXT, formatted TEXT)",
             "CREATE INDEX TranscriptionByMode ON Transcription (processingMode)",
             "CREATE TABLE DailyNote (pk INTEGER PRIMARY KEY, id TEXT UNIQUE, created_at INTEGER, formatted TEXT)",
             "CREATE INDEX DailyNoteByDate ON DailyNote (created_at)",
             "CREATE TABLE Note (pk INTEGER PRIMARY KEY, id TEXT UNIQUE, created_at INTEGER, transcription TEXT, "
             "dailyNote INTEGER REFERENCES DailyNote (pk) ON DELETE CASCADE)",
             "CREATE INDEX NoteByDay ON Note (dailyNote, created_at)",
         })
        container.run(QLatin1String(statement));
}

void fillTerms(const PersistentContainer& container)
{
    StoreQuery rows = container.run(QStringLiteral("SELECT pk, transcription, formatted FROM Transcription"));
    while (rows.next()) {
        const QString terms = searchTerms(rows.value(1).toString(), rows.value(2).toString());
        if (!terms.isNull())
            container.run(QStringLiteral("UPDATE Transcription SET terms = ?2 WHERE pk = ?1"), {rows.value(0), terms});
    }
}

/// An external-content index. terms replaces a row's texts if they contain scripts written without spaces.
void makeFullTextIndex(const PersistentContainer& container)
{
    container.run(QStringLiteral("ALTER TABLE Transcription ADD COLUMN terms TEXT"));
    fillTerms(container);
    for (const char* statement : {
             "CREATE VIEW TranscriptionText AS SELECT pk, "
             "coalesce(terms, ifnull(transcription, '') || char(10) || ifnull(formatted, '')) AS text "
             "FROM Transcription",
             "CREATE VIRTUAL TABLE TranscriptionIndex USING fts5(text, content = 'TranscriptionText', "
             "content_rowid = 'pk', tokenize = 'unicode61 remove_diacritics 2', prefix = '1 2 3')",
             "INSERT INTO TranscriptionIndex (TranscriptionIndex) VALUES ('rebuild')",
             "CREATE TRIGGER TranscriptionAdded AFTER INSERT ON Transcription BEGIN "
             "INSERT INTO TranscriptionIndex (rowid, text) SELECT pk, text FROM TranscriptionText WHERE pk = new.pk; "
             "END",
             "CREATE TRIGGER TranscriptionToBeRemoved BEFORE DELETE ON Transcription BEGIN "
             "INSERT INTO TranscriptionIndex (TranscriptionIndex, rowid, text) "
             "SELECT 'delete', pk, text FROM TranscriptionText WHERE pk = old.pk; END",
             "CREATE TRIGGER TranscriptionToBeChanged BEFORE UPDATE ON Transcription BEGIN "
             "INSERT INTO TranscriptionIndex (TranscriptionIndex, rowid, text) "
             "SELECT 'delete', pk, text FROM TranscriptionText WHERE pk = old.pk; END",
             "CREATE TRIGGER TranscriptionChanged AFTER UPDATE ON Transcription BEGIN "
             "INSERT INTO TranscriptionIndex (rowid, text) SELECT pk, text FROM TranscriptionText WHERE pk = new.pk; "
             "END",
         })
        container.run(QLatin1String(statement));
}

/// Answers of language models that were not believed.
void addSetAside(const PersistentContainer& container)
{
    container.run(QStringLiteral("ALTER TABLE Transcription ADD COLUMN setAside TEXT"));
    container.run(QStringLiteral("ALTER TABLE Transcription ADD COLUMN setAsideReason TEXT"));
}

using Step = void (*)(const PersistentContainer&);
/// Step n upgrades version n to n + 1. Released steps never change.
constexpr std::array<Step, StoreSchema::currentVersion> steps{makeEntities, makeFullTextIndex, addSetAside};

} // namespace

void StoreSchema::check(const PersistentContainer& container)
{
    const int version = integerPragma(container, "user_version");
    const int tables = container.value(QStringLiteral("SELECT count(*) FROM sqlite_schema")).toInt();
    const bool isOurs = integerPragma(container, "application_id") == applicationID;
    if (isOurs && version > currentVersion)
        throw StoreError(
            QCoreApplication::translate("StoreError",
                                        "The history %1 was written by a newer version of vantro (schema %2, this one "
                                        "knows %3): install that version")
                .arg(container.path())
                .arg(version)
                .arg(currentVersion));
    if (!isOurs && (tables > 0 || version != 0))
        throw StoreError(
            QCoreApplication::translate("StoreError", "The file %1 is another program's database: move it away")
                .arg(container.path()));
}

void StoreSchema::migrate(const PersistentContainer& container)
{
    if (integerPragma(container, "user_version") == currentVersion)
        return;
    PersistentContainer::Transaction transaction(container);
    // Another process may have migrated it meanwhile.
    check(container);
    for (int version = integerPragma(container, "user_version"); version < currentVersion; ++version)
        steps[static_cast<std::size_t>(version)](container);
    container.run(QStringLiteral("PRAGMA application_id = %1").arg(applicationID));
    container.run(QStringLiteral("PRAGMA user_version = %1").arg(currentVersion));
    transaction.commit();
}

} // namespace vantro
