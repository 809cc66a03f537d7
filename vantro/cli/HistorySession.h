#pragma once

#include "vantro/store/CoreDataStack.h"

#include <QJsonObject>

#include <functional>
#include <optional>

class QIODevice;

namespace vantro {

/// What the commands about history and notes work on. The constructor does not open the store.
struct HistorySession
{
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

/// The identity meant by each of @p words, which are beginnings of identities as @p find answers them. Writes what is
/// wrong and answers nothing when one means none or several; @p exitCode is then set.
std::optional<std::vector<QUuid>>
identitiesFrom(const QStringList& words, const QString& noun,
               const std::function<std::vector<QUuid>(const QString&, int limit)>& find, int& exitCode);
/// Whether the user wants what @p question asks: @p yes says so already, else a person at the terminal is asked. Writes
/// why not, and sets @p exitCode.
bool isConfirmed(const QString& question, bool yes, int& exitCode);

enum class ExportFormat { json, csv, markdown };
/// "json", "csv" or "markdown".
std::optional<ExportFormat> exportFormatFrom(const QString& name);
/// By the ending of a file's name.
ExportFormat exportFormatOf(const QString& file);
/// Writes the dictations that pass @p filter to @p target. Throws StoreError.
void exportHistory(const CoreDataStack& store, const HistoryFilter& filter, int limit, ExportFormat format,
                   QIODevice& target);

} // namespace vantro
