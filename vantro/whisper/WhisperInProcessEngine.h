#pragma once

#include "base/Error.h"
#include "base/Logger.h"
#include "base/SerialExecutor.h"
#include "vantro/models/FileVersion.h"
#include "vantro/models/TranscriptionProviding.h"

#include <QFuture>
#include <QString>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

struct whisper_context;

namespace vantro {

class WhisperInProcessError : public Error
{
public:
    enum class Kind { modelLoadFailed, transcriptionFailed, modelNotLoaded };

    static WhisperInProcessError modelLoadFailed(const QString& path);
    static WhisperInProcessError transcriptionFailed(std::int32_t code);
    static WhisperInProcessError modelNotLoaded();
    /// Thrown by a stopped transcription.
    static WhisperInProcessError stopped();

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    WhisperInProcessError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    Kind kind_;
};

/// Runs whisper.cpp in this process with at most one model in memory. Calls may come from any thread; they run in order
/// on the engine's own, and callers await their futures. The provider decides when to load, warm up and unload.
class WhisperInProcessEngine
{
public:
    struct Request
    {
        std::vector<float> samples;            ///< 16 kHz mono, nominally -1..1
        QString language;                      ///< a whisper language code, or "auto" to detect it
        QString prompt;                        ///< may be empty
        std::function<void(float)> onProgress; ///< 0..1, on the engine's thread
        std::stop_token stop;                  ///< ends this transcription
        /// Gets the segments of the text with their times; may be null.
        std::shared_ptr<std::vector<TranscribedToken>> segments = {};
        /// Gets the code of the language that was heard, unless the model knows English only; may be null.
        std::shared_ptr<QString> spokenLanguage = {};
        bool isAhead = false; ///< nobody waits for it yet: one thread
    };

    WhisperInProcessEngine();
    /// Waits for pending work; stop transcriptions first to end sooner.
    ~WhisperInProcessEngine();
    WhisperInProcessEngine(const WhisperInProcessEngine&) = delete;
    WhisperInProcessEngine& operator=(const WhisperInProcessEngine&) = delete;

    /// A no-op when this file is loaded and has not been replaced since. A failed load (modelLoadFailed) keeps the
    /// loaded model.
    [[nodiscard]] QFuture<void> load(const QString& modelPath);
    /// Runs a second of silence through a model that has not run since it was loaded, so that the first dictation finds
    /// it paged in. Aborts as soon as other work arrives. Failures are only logged.
    QFuture<void> warmUp();
    /// Returns the trimmed text. Throws modelNotLoaded, transcriptionFailed or stopped.
    [[nodiscard]] QFuture<QString> transcribe(Request request);
    /// The transcriptions asked for so far are waited for now: those that run ahead get as many threads as others, even
    /// in the middle of their work.
    void hurry();
    QFuture<void> unload();
    /// False while a first model is still being loaded.
    [[nodiscard]] bool holdsModel() const { return isResident_; }

private:
    struct ResidentModel
    {
        whisper_context* context = nullptr;
        FileVersion file;
        bool isWarm = false; ///< it has run once since it was loaded
    };

    template <typename Work>
    auto enqueue(Work work);
    void loadNow(const QString& modelPath);
    void warmUpNow();
    [[nodiscard]] QString transcribeNow(const Request& request, int number);
    void unloadNow();

    Logger logger_{"WhisperInProcess"};
    std::optional<ResidentModel> resident_; ///< worker thread only
    std::atomic<bool> isResident_ = false;  ///< whether it has a value
    std::atomic<int> waitingCount_ = 0;     ///< queued work; aborts a warm-up
    std::atomic<int> transcriptionCount_ = 0;
    std::atomic<int> hurriedCount_ = 0; ///< how many of them are waited for
    SerialExecutor executor_;           ///< last: its destructor waits for work that uses the other members
};

} // namespace vantro
