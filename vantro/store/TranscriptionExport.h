#pragma once

#include "base/Error.h"
#include "vantro/store/Entities.h"

#include <QJsonObject>
#include <QString>

#include <functional>
#include <optional>

class QIODevice;

namespace vantro {

// The formats in which dictations leave the history. Any thread.

enum class ExportFormat { json, csv, markdown };
/// "json", "csv" or "markdown".
[[nodiscard]] std::optional<ExportFormat> exportFormatFrom(const QString& name);
/// By the extension of @p file; JSON by default.
[[nodiscard]] ExportFormat exportFormatOf(const QString& file);

/// Calls its argument with one dictation after another.
using Transcriptions = std::function<void(const std::function<void(const Transcription&)>&)>;
void exportTranscriptions(const Transcriptions& all, ExportFormat format, QIODevice& target);
/// Into a file that only the user can read, which appears or is replaced as a whole. Throws Error.
void exportTranscriptions(const Transcriptions& all, ExportFormat format, const QString& path);

[[nodiscard]] QJsonObject toJson(const Transcription& row);
/// For files: UTC with milliseconds; null for an invalid date.
[[nodiscard]] QJsonValue jsonDate(const QDateTime& date);
/// For people: local time to the minute.
[[nodiscard]] QString shownDate(const QDateTime& date);

} // namespace vantro
