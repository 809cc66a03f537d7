#pragma once

#include "vantro/cli/Command.h"
#include "vantro/store/CoreDataStack.h"

#include <QJsonObject>

#include <functional>
#include <optional>

class QIODevice;

namespace vantro {

/// What the commands about history and notes work on. Throws StoreError when the store cannot be opened.
struct HistorySession
{
    HistorySession() { store.loadPersistentStores(); }

    SystemClock clock;
    CoreDataStack store{clock};
};

/// Calls @p visit for the newest @p limit dictations that pass @p filter, newest first; 0: for all. Throws StoreError.
void forEachTranscription(const CoreDataStack& store, const HistoryFilter& filter, int limit,
                          const std::function<void(const Transcription&)>& visit);

QJsonObject toJson(const Transcription& row);
/// As it is written to files: UTC with milliseconds; a missing date is null.
QJsonValue jsonDate(const QDateTime& date);
/// As a person reads it: local time to the minute.
QString shownDate(const QDateTime& date);
/// The beginning of an identity, which is enough to name it.
QString shortIdentity(const QUuid& id);
/// The moment a person means by "2026-11-01", "2026-11-01T10:00", "today", "yesterday" or "7d" (days ago).
std::optional<QDateTime> momentFrom(const QString& text, const QDateTime& now);

/// The identity meant by each of @p words, which are beginnings of identities as @p find answers them. Throws
/// CommandError when one means none or several.
std::vector<QUuid> identitiesFrom(const QStringList& words, const QString& noun,
                                  const std::function<std::vector<QUuid>(const QString&, int limit)>& find);
/// Whether the user wants what @p question asks: --yes says so already, else a person at the terminal is asked, and
/// told that nothing was done. Throws CommandError when there is none.
bool isConfirmed(const QString& question, const CommandCall& call);

enum class ExportFormat { json, csv, markdown };
/// "json", "csv" or "markdown".
std::optional<ExportFormat> exportFormatFrom(const QString& name);
/// By the ending of a file's name.
ExportFormat exportFormatOf(const QString& file);
/// Writes the dictations that pass @p filter to @p target. Throws StoreError.
void exportHistory(const CoreDataStack& store, const HistoryFilter& filter, int limit, ExportFormat format,
                   QIODevice& target);

} // namespace vantro
