#pragma once

#include "vantro/ai/ProcessingMode.h"

#include <QString>
#include <qcoro/qcorotask.h>

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace vantro {

/// How one dictation ended. With an error message the text is the raw transcript, or empty when there is none.
struct DictationResult
{
    // With its members listed in braces GCC 12 destroys an aggregate twice in a coroutine (docs/development.md).
    explicit DictationResult(QString text = {}, std::optional<QString> errorMessage = std::nullopt)
        : text(std::move(text))
        , errorMessage(std::move(errorMessage))
    {
    }

    QString text;
    std::optional<QString> errorMessage;
};

/// One stopped recording on its way to a text; mode, configuration and format service were fixed when it was made.
class DictationJob
{
public:
    virtual ~DictationJob() = default;

    /// @p samples: 16 kHz mono, nominally -1..1. Reports every failure in the result; throws nothing. Main thread.
    virtual QCoro::Task<DictationResult> run(QString recordingID, std::vector<float> samples) = 0;
};

/// What the recorder needs of the rest of the program. Every recordingStarted() is followed by exactly one of
/// DictationJob::run(), which runAbandoned() may follow, and recordingDiscarded(). Main thread only.
class RecordingProcessing
{
public:
    virtual ~RecordingProcessing() = default;

    /// A recording has begun: what the stop will need (the speech model) can be made ready meanwhile.
    virtual void recordingStarted() = 0;
    /// The recording was cancelled, failed or was too short: nothing will come of it, nor of a job prepared for it.
    virtual void recordingDiscarded() = 0;
    /// Nobody waits any more for the job that runs: it may end as soon as it can.
    virtual void runAbandoned() = 0;
    /// Fixes everything that counts at the moment of stopping.
    virtual std::unique_ptr<DictationJob> prepare(ProcessingMode mode) = 0;
};

} // namespace vantro
