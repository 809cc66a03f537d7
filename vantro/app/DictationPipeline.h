#pragma once

#include "base/Logger.h"
#include "vantro/ai/ModeHandler.h"
#include "vantro/app/TranscriptionFacade.h"
#include "vantro/audio/RecordingProcessing.h"

#include <QObject>

#include <chrono>
#include <map>
#include <memory>

namespace vantro {

/// What becomes of a recording: transcribed by the selected engine, then handled by the mode that was in force when it
/// was stopped. Main thread.
class DictationPipeline final : public QObject, public RecordingProcessing
{
    Q_OBJECT
public:
    using Handlers = std::map<ProcessingMode, std::unique_ptr<ModeHandler>>;

    /// @p handlers must hold one for Normal; a mode without a handler is handled as Normal.
    DictationPipeline(TranscriptionFacade& facade, Handlers handlers);

    void recordingStarted() override;
    void recordingDiscarded() override;
    void runAbandoned() override;
    std::unique_ptr<DictationJob> prepare(ProcessingMode mode) override;

    /// The modes a user can choose, in their order.
    [[nodiscard]] std::vector<ProcessingMode> modes() const;
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
    TranscriptionFacade::EngineUse recordingUse_; ///< until a job takes it over
    std::chrono::microseconds lastEngineTime_{0};
};

} // namespace vantro
