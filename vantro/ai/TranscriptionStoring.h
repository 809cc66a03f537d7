#pragma once

#include "vantro/ai/FormatRequestServicing.h"
#include "vantro/ai/ProcessingMode.h"

#include <QString>
#include <QUuid>
#include <qcoro/qcorotask.h>

#include <memory>

namespace vantro {

/// Where dictations are kept, as the mode handlers see it. Main thread. Every operation has stored durably when it
/// returns, or throws an Error.
class TranscriptionStoring
{
public:
    virtual ~TranscriptionStoring() = default;

    virtual void saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) = 0;
    /// Without a formatted text yet; the identity is for updateFormatted().
    virtual QUuid saveTranscription(const QString& transcription, ProcessingMode mode) = 0;
    /// Does nothing when there is no such row any more.
    virtual void updateFormatted(const QUuid& id, const QString& formatted) = 0;

    /// A note of today.
    virtual QCoro::Task<> addNote(QString transcription) = 0;
    /// Writes today's summary anew; a failure is printed and leaves the former one.
    virtual QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) = 0;
};

} // namespace vantro
