#pragma once

#include "base/Error.h"
#include "base/Logger.h"
#include "base/SerialExecutor.h"

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
    /// What a transcription throws that was stopped.
    static WhisperInProcessError stopped();

    [[nodiscard]] Kind kind() const { return kind_; }

private:
    WhisperInProcessError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    Kind kind_;
};

/// Runs whisper.cpp inside this process with at most one model in memory. Calls may come from any thread; they are
/// carried out one after another on the engine's own, and their futures are awaited by the caller. The engine executes;
/// when to load, warm up and unload is its provider's policy.
class WhisperInProcessEngine
{
public:
    struct Request
    {
        std::vector<float> samples;            ///< 16 kHz mono, nominally -1..1
        QString language;                      ///< a whisper language code, or "auto" to have it recognised
        QString prompt;                        ///< may be empty
        std::function<void(float)> onProgress; ///< 0..1, on the engine's thread
        std::stop_token stop;                  ///< ends this transcription
    };

    WhisperInProcessEngine();
    /// Waits for what was asked for: whoever wants to end sooner stops the transcriptions first.
    ~WhisperInProcessEngine();
    WhisperInProcessEngine(const WhisperInProcessEngine&) = delete;
    WhisperInProcessEngine& operator=(const WhisperInProcessEngine&) = delete;

    /// Does nothing when this very file is loaded. A failed load (modelLoadFailed) leaves the loaded model in place.
    [[nodiscard]] QFuture<void> load(const QString& modelPath);
    /// Runs a second of silence through the model, so that the first dictation finds everything paged in. Failures are
    /// logged only. Gives way at once to whatever is asked for afterwards.
    QFuture<void> warmUp();
    /// The text, trimmed at both ends. Throws modelNotLoaded, transcriptionFailed or stopped.
    [[nodiscard]] QFuture<QString> transcribe(Request request);
    QFuture<void> unload();

private:
    struct ResidentModel
    {
        whisper_context* context = nullptr;
        QString modelPath;
    };

    template <typename Work>
    auto enqueue(Work work);
    void loadNow(const QString& modelPath);
    void warmUpNow();
    [[nodiscard]] QString transcribeNow(const Request& request);
    void unloadNow();

    Logger logger_{"WhisperInProcess"};
    std::optional<ResidentModel> resident_; ///< worker thread only
    std::atomic<int> waitingCount_ = 0;     ///< what a warm-up gives way to
    SerialExecutor executor_;               ///< last: its destructor waits for work that uses the members above
};

} // namespace vantro
