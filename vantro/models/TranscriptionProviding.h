#pragma once

#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>
#include <optional>
#include <stop_token>
#include <vector>

namespace vantro {

/// A piece of the transcript as an engine that knows its tokens found it; times from the start of the recording.
struct TranscribedToken
{
    QString piece; ///< U+2581 marks the start of a word
    std::chrono::duration<double> start{};
    std::chrono::duration<double> end{};
    float confidence = 0; ///< 0..1
};

struct TranscriptionRequest
{
    QString recordingID;
    std::vector<float> samples; ///< 16 kHz mono, nominally -1..1
    TranscriptionModel model;
    /// A language code or "auto"; the user's setting when absent.
    std::optional<QString> language;
    /// Called on the engine's thread with 0..1.
    std::function<void(float)> onProgress;
    /// Called on the main thread before the text is there, by engines that know their tokens.
    std::function<void(const std::vector<TranscribedToken>&)> onTokens = {};
    /// Ends this transcription, wherever it stands, and no other one.
    std::stop_token stop = {};
};

/// The recognising half of a speech engine. Main thread; the heavy work is done on the engine's own.
class TranscriptionProviding
{
public:
    virtual ~TranscriptionProviding() = default;

    /// A recording has begun that @p model will transcribe: what can be done before the stop is begun now.
    virtual void prepare(const TranscriptionModel& model) = 0;
    /// The final text, with the user's replacements applied. Throws an Error, soon when it is stopped: also while it
    /// waits for other work or for its model.
    virtual QCoro::Task<QString> transcribe(TranscriptionRequest request) = 0;
    /// No dictation is under way any more, delivered or not: what was held for them may go.
    virtual void dictationEnded() = 0;
};

} // namespace vantro
