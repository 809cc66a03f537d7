#pragma once

#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/ai/ProcessingMode.h"

#include <QString>
#include <QUuid>
#include <qcoro/qcorotask.h>

#include <memory>

namespace vantro {

/// The store of dictations as the mode handlers see it. When an operation returns, its data is on disk; otherwise it
/// throws Error. Main thread.
class TranscriptionStoring
{
public:
    virtual ~TranscriptionStoring() = default;

    /// Returns its id.
    virtual QUuid saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) = 0;
    /// Stores it without a formatted text; pass the returned id to updateFormatted().
    virtual QUuid saveTranscription(const QString& transcription, ProcessingMode mode) = 0;
    /// Does nothing when the row no longer exists.
    virtual void updateFormatted(const QUuid& id, const QString& formatted) = 0;
    /// Stores an answer of the language model that was not believed, and why. Does nothing when the row no longer
    /// exists.
    virtual void setAside(const QUuid& id, const QString& answer, const QString& reason) = 0;

    /// Adds to today's notes, and returns its id.
    virtual QCoro::Task<QUuid> addNote(QString transcription) = 0;
    /// Rewrites today's summary; a failure is printed and leaves the old one.
    virtual QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) = 0;
};

} // namespace vantro
