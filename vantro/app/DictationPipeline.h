#pragma once

#include "base/Logger.h"
#include "vantro/ai/ModeHandler.h"
#include "vantro/app/TranscriptionFacade.h"
#include "vantro/audio/RecordingProcessing.h"

#include <QObject>

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <stop_token>

namespace vantro {

/// What becomes of a recording: transcribed by the selected engine, then handled by the mode that was in force when it
/// was stopped. Main thread.
class DictationPipeline final : public QObject, public RecordingProcessing
{
    Q_OBJECT
public:
    using Handlers = std::map<ProcessingMode, std::unique_ptr<ModeHandler>>;

    /// The language models, as far as a dictation needs them. Both may be missing.
    struct FormatServices
    {
        /// The one that serves a mode, at the moment of stopping.
        std::function<std::shared_ptr<FormatRequestServicing>(ProcessingMode)> choose;
        /// A recording has begun: a connection may be opened that its end will need.
        std::function<void()> expectUse;
    };

    /// @p handlers must hold one for Normal; a mode without a handler is handled as Normal.
    DictationPipeline(TranscriptionFacade& facade, Handlers handlers, FormatServices formatServices = {});

    void recordingStarted() override;
    void recordingDiscarded() override;
    void runAbandoned() override;
    std::unique_ptr<DictationJob> prepare(ProcessingMode mode) override;

    /// How long the engine took for the last transcription.
    [[nodiscard]] std::chrono::microseconds lastEngineTime() const { return lastEngineTime_; }

Q_SIGNALS:
    /// 0..1 while the engine works. Emitted on the main thread.
    void transcriptionProgress(float fraction);

private:
    class Job;

    QCoro::Task<QString> transcribe(QString recordingID, std::vector<float> samples);

    Logger logger_{"AudioRecorder"};
    TranscriptionFacade& facade_;
    Handlers handlers_;
    FormatServices formatServices_;
    std::weak_ptr<FormatRequestServicing> serviceInUse_; ///< of the job that runs
    TranscriptionFacade::EngineUse recordingUse_;        ///< until a job takes it over
    std::stop_source stop_;                              ///< of the transcription that runs
    std::chrono::microseconds lastEngineTime_{0};
};

} // namespace vantro
