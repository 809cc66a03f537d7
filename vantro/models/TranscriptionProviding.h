#pragma once

#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <QStringList>
#include <qcoro/qcorotask.h>

#include <chrono>
#include <functional>
#include <optional>
#include <span>
#include <stop_token>
#include <vector>

namespace vantro {

/// A token of the transcript, or a segment of it where an engine knows no times of its tokens; times are relative to
/// the start of the recording.
struct TranscribedToken
{
    QString piece; ///< U+2581 marks the start of a word
    std::chrono::duration<double> start{};
    std::chrono::duration<double> end{};
    float confidence = 0; ///< 0..1; 0 of a segment
};

/// A place in a recording where one of the user's words may have been said. Scores are natural logarithms.
struct VocabularyPlace
{
    QString term;
    QString heard; ///< the words there
    std::chrono::duration<double> start{};
    std::chrono::duration<double> end{};
    float similarity = 0;  ///< 0..1
    float scoreBefore = 0; ///< of the passage as it was heard
    float scoreAfter = 0;  ///< with the term
    float bias = 0;        ///< in favour of the term
    bool isReplaced = false;
};

/// What an engine has done with the user's words.
struct VocabularyReport
{
    enum class Way {
        none,     ///< there are none
        prompt,   ///< they were given to the model as a text that precedes the recording
        boosting, ///< they were looked for in the recording
    };
    Way way = Way::none;
    QString problem = {}; ///< why they were not; otherwise empty
    std::vector<VocabularyPlace> places = {};
    QStringList notLookedFor = {}; ///< words that are too short or too long, or cannot be spelled
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
    /// Called on the main thread before transcribe() returns, by engines that provide tokens.
    std::function<void(const std::vector<TranscribedToken>&)> onTokens = {};
    /// Cancels this transcription at any stage.
    std::stop_token stop = {};
    /// Nobody waits for it yet: at most one processor.
    bool isAhead = false;
    /// Instead of the user's words.
    std::optional<QStringList> terms = {};
    /// Multiplies the words' own weights.
    double termWeight = 1;
    /// The file of the model that looks for them; the downloaded one when empty.
    QString boostingModel = {};
    /// Called on the main thread before transcribe() returns.
    std::function<void(const VocabularyReport&)> onVocabulary = {};
    /// The same with the code of the language that was heard, by engines that know it.
    std::function<void(const QString&)> onLanguage = {};
};

/// A recording that goes on.
struct UnfinishedRecording
{
    const QString& id;
    const TranscriptionModel& model;
    std::span<const float> samples; ///< from the beginning: 16 kHz mono, nominally -1..1
    bool mayHaveEnded = false;      ///< speech has paused
    /// Called on the main thread with what was said until such a pause.
    std::function<void(const QString&)> onWords;
};

/// The recognition half of a speech engine. Main thread; the work is done on the engine's own thread.
class TranscriptionProviding
{
public:
    virtual ~TranscriptionProviding() = default;

    /// Called when a recording starts that @p model will transcribe, to load it in the meantime. Never throws; returns
    /// why it cannot be used, or nothing when it can or is not wanted any more.
    virtual QCoro::Task<QString> prepare(TranscriptionModel model) = 0;
    /// Returns the final text with the user's replacements applied. Throws Error; soon after a stop request, even while
    /// waiting for other work or for the model.
    virtual QCoro::Task<QString> transcribe(TranscriptionRequest request) = 0;
    /// Recognises what has been said so far, in the background, so that transcribe() with the same recordingID finds it
    /// done. Called whenever samples have come. Returns false where this engine does not do that, or not yet.
    virtual bool hear(const UnfinishedRecording& /*recording*/) { return false; }
    /// The recording has ended, and its text is waited for.
    virtual void hurry() {}
    /// For engines that do not hear(): how many samples of an unfinished recording are transcribed anew at each pause,
    /// because they cost no more than a few. None when 0.
    [[nodiscard]] virtual std::size_t aheadLimit() const { return 0; }
    /// Whether transcribe() tells the times of tokens, and not of segments alone.
    [[nodiscard]] virtual bool timesTokens() const { return false; }
    /// Whether the user's words are looked for in the recording with the catalogue's boosting model.
    [[nodiscard]] virtual bool boostsWords() const { return false; }
    /// Called when no dictation is active any more, whether delivered or not; resources may be released.
    virtual void dictationEnded() = 0;
    /// Whether a model is in memory, or is about to be.
    [[nodiscard]] virtual bool holdsModel() const = 0;
    /// Gives the memory of the loaded model back, once the work under way has ended.
    virtual void unload() = 0;
};

} // namespace vantro
