#include "vantro/store/MigrationManager.h"

#include "base/Logger.h"
#include "base/Settings.h"
#include "vantro/store/SearchText.h"

#include <limits>

namespace vantro {

namespace {

constexpr int batchRows = 500;

/// Returns whether @p text changed. A null text stays null; a trimmed one becomes non-null.
bool trim(QString& text)
{
    if (text.isNull())
        return false;
    const QString trimmed = text.trimmed();
    if (trimmed.size() == text.size())
        return false;
    text = presentText(trimmed);
    return true;
}

bool trim(Transcription& row)
{
    const bool first = trim(row.transcription);
    const bool second = trim(row.formatted);
    return first || second;
}

} // namespace

MigrationManager::MigrationManager(UserDefaults& userDefaults, CoreDataStack& coreDataStack)
    : userDefaults_(userDefaults)
    , coreDataStack_(coreDataStack)
{
}

void MigrationManager::runTranscriptionTrimMigrationIfNeeded()
{
    runIfNeeded({setting::hasRunTranscriptionTrimMigration, QStringLiteral("transcription trim migration"),
                 QStringLiteral("Transcription trim migration"), [this] {
                     trimTranscriptions();
                 }});
}

void MigrationManager::runEmptyTranscriptionDeleteMigrationIfNeeded()
{
    runIfNeeded({setting::hasRunEmptyTranscriptionDeleteMigration,
                 QStringLiteral("empty transcription deletion migration"),
                 QStringLiteral("Empty transcription deletion migration"), [this] {
                     deleteEmptyTranscriptions();
                 }});
}

void MigrationManager::runIfNeeded(const Repair& repair)
{
    if (userDefaults_.get(repair.isDone)) {
        printLine(QStringLiteral("%1 already run, skipping").arg(repair.headline));
        return;
    }
    printLine(QStringLiteral("Running %1...").arg(repair.name));
    try {
        repair.run();
    } catch (const std::exception& error) {
        printLine(QStringLiteral("Error during %1: %2").arg(repair.name, localizedDescription(error)));
    }
    userDefaults_.set(repair.isDone, true);
    printLine(QStringLiteral("%1 completed").arg(repair.headline));
}

void MigrationManager::trimTranscriptions()
{
    const PersistentContainer& container = coreDataStack_.persistentContainer();
    const TranscriptionFetch all(container, {});
    printLine(QStringLiteral("Found %1 transcriptions to process").arg(all.count({})));
    PersistentContainer::Transaction transaction(container);
    int changed = 0;
    FetchRange rest;
    for (auto rows = all.rows(rest, batchRows); !rows.empty(); rows = all.rows(rest, batchRows)) {
        for (Transcription& row : rows) {
            if (!trim(row))
                continue;
            container.run(
                QStringLiteral("UPDATE Transcription SET transcription = ?2, formatted = ?3, terms = ?4 WHERE pk = ?1"),
                {row.objectID, row.transcription, row.formatted, searchTerms(row.transcription, row.formatted)});
            ++changed;
        }
        if (rows.back().objectID == std::numeric_limits<qint64>::min())
            break;
        rest.newest = rows.back().objectID - 1;
    }
    if (changed == 0) {
        printLine(QStringLiteral("No transcriptions needed trimming"));
        return;
    }
    transaction.commit();
    printLine(QStringLiteral("Trimmed %1 transcriptions").arg(changed));
    coreDataStack_.announceChanges();
}

void MigrationManager::deleteEmptyTranscriptions()
{
    const PersistentContainer& container = coreDataStack_.persistentContainer();
    const QString empty = QStringLiteral("transcription IS NULL OR transcription = ''");
    PersistentContainer::Transaction transaction(container);
    const int count = container.value(QStringLiteral("SELECT count(*) FROM Transcription WHERE %1").arg(empty)).toInt();
    printLine(QStringLiteral("Found %1 empty transcriptions to delete").arg(count));
    if (count == 0) {
        printLine(QStringLiteral("No empty transcriptions found"));
        return;
    }
    container.run(QStringLiteral("DELETE FROM Transcription WHERE %1").arg(empty));
    transaction.commit();
    printLine(QStringLiteral("Deleted %1 empty transcriptions").arg(count));
    coreDataStack_.announceChanges();
}

} // namespace vantro
