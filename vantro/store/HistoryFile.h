#pragma once

#include "base/Clock.h"
#include "vantro/ai/TranscriptionStoring.h"

#include <QJsonObject>
#include <QString>

namespace vantro {

/// The history as one file of JSON lines: a line per saved dictation and a line per later change of one. Only ever
/// appended to, and synced to disk with every line, so that a crash costs nothing that was acknowledged.
class HistoryFile final : public TranscriptionStoring
{
public:
    HistoryFile(QString path, Clock& clock);

    /// "vantro/history.jsonl" below the XDG data folder.
    static QString standardPath();

    void saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) override;
    QUuid saveTranscription(const QString& transcription, ProcessingMode mode) override;
    void updateFormatted(const QUuid& id, const QString& formatted) override;
    QCoro::Task<> addNote(QString transcription) override;
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) override;

private:
    QUuid insert(const QString& transcription, const QString& formatted, ProcessingMode mode);
    void append(const QJsonObject& row);

    QString path_;
    Clock& clock_;
};

} // namespace vantro
