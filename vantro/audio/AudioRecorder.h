#pragma once

#include "base/Clock.h"
#include "base/Logger.h"
#include "base/NotificationCenter.h"
#include "base/ThreadWaker.h"
#include "platform/AudioEngine.h"
#include "vantro/ai/ProcessingMode.h"
#include "vantro/audio/RecordingProcessing.h"

#include <QObject>
#include <QString>
#include <qcoro/qcorotask.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

class AudioDeviceManager;
class EngineSession;
class Permissions;
class SampleCollector;

/// Owns the microphone and one dictation's course: idle, recording (isRecording and isBusy), processing (isBusy alone),
/// idle. Posts "recorder:process:start" when a stopped recording goes into processing, and "recorder:finish" with
/// "finalText", "processingMode" and, after a failure, "hasError" and "errorMessage" when a dictation has ended. Main
/// thread only; everything that it is given outlives it.
class AudioRecorder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isRecording READ isRecording NOTIFY isRecordingChanged)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY isBusyChanged)
    Q_PROPERTY(float currentAmplitude READ currentAmplitude NOTIFY currentAmplitudeChanged)
    Q_PROPERTY(
        vantro::ProcessingMode processingMode READ processingMode WRITE setProcessingMode NOTIFY processingModeChanged)
public:
    /// 0.3 s; what is shorter is not transcribed.
    static constexpr std::size_t minimumSampleCount = 4'800;
    /// Between stop and the end of the capture, so that the last word arrives.
    static constexpr std::chrono::milliseconds drainDelay{150};
    /// How long a recording that has lost its microphone waits for another one.
    static constexpr std::chrono::milliseconds microphonePatience{1500};
    /// The same for one that is known to be coming: a headset needs seconds for another profile.
    static constexpr std::chrono::milliseconds expectedMicrophonePatience{5000};

    AudioRecorder(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Permissions& permissions,
                  NotificationCenter& notifications, Clock& clock, RecordingProcessing& processing);
    /// Ends the capture; a dictation in processing ends without a word.
    ~AudioRecorder() override;

    [[nodiscard]] bool isRecording() const { return isRecording_; }
    [[nodiscard]] bool isBusy() const { return isBusy_; }
    /// 0..1, for the waveform.
    [[nodiscard]] float currentAmplitude() const { return currentAmplitude_; }
    /// When the first sound of the latest recording arrived; nothing before it has.
    [[nodiscard]] std::optional<Clock::Instant> firstSampleAt() const;
    /// The one in force when the recording is stopped counts.
    [[nodiscard]] ProcessingMode processingMode() const { return processingMode_; }
    void setProcessingMode(ProcessingMode mode);

    /// Refused while a recording runs or is being processed. A microphone that cannot be started is told by
    /// "recorder:finish", before this returns.
    void startRecording();
    /// A microphone is about to come, for the recording that begins: a start without any waits for it, for a while.
    void expectMicrophone() { isMicrophoneExpected_ = true; }
    /// It is there: a running recording goes on with the device that is the effective one now.
    void useExpectedMicrophone();
    /// Ends the recording and begins to process it; returns at once.
    void stopRecording();
    /// Throws a running recording away; does nothing once it is stopped.
    void cancelRecording();
    /// The same at every stage: what is being processed is dropped too, and nothing is told of it.
    void cancelDictation();

Q_SIGNALS:
    void isRecordingChanged();
    void isBusyChanged();
    void currentAmplitudeChanged();
    void processingModeChanged();
    /// The microphone was lost in the middle of a recording and there was no other. What had been said is processed as
    /// after a stop; @p message tells the user.
    void captureLost(const QString& message);

private:
    struct CaptureFailure
    {
        QString message;
        QString reason;
    };
    /// What a stopped recording takes along.
    struct Stopped
    {
        std::shared_ptr<EngineSession> session;
        std::shared_ptr<SampleCollector> collector;
        QString recordingID;
        std::uint64_t generation;
        Clock::Instant startedAt;
        ProcessingMode mode;
        std::unique_ptr<DictationJob> job;
    };

    [[nodiscard]] std::optional<CaptureFailure> startEngineSession();
    [[nodiscard]] bool selectDevice(AudioEngine& engine, AudioDeviceID device) const;
    void tearDown(EngineSession* session, SampleCollector* drainInto);
    void configurationChanged(const EngineSession* session);
    void rebuildEngine();
    void awaitMicrophone(CaptureFailure failure);
    bool retryRebuild();
    void giveUpRebuild();
    /// What the recording had lost, when that is why it is being rebuilt.
    std::optional<CaptureFailure> endReconfiguring();
    QCoro::Task<> process(Stopped stopped);
    [[nodiscard]] std::vector<float> takeSamples(const Stopped& stopped);
    void beginGeneration();
    void discardProcessing();
    void fail(QString message);
    void finish(const DictationResult& result, ProcessingMode mode);
    void postFinish(const DictationResult& result, ProcessingMode mode);
    void setRecording(bool recording);
    void setBusy(bool busy);
    void setCurrentAmplitude(float amplitude);

    bool isRecording_ = false;
    bool isBusy_ = false;
    float currentAmplitude_ = 0;
    ProcessingMode processingMode_ = ProcessingMode::Normal;
    std::shared_ptr<EngineSession> currentSession_;
    std::shared_ptr<SampleCollector> collector_;
    QString activeRecordingID_;
    std::uint64_t recordingGeneration_ = 0;
    Clock::Instant recordingStartedAt_;
    AudioEngineFactory makeEngine_;
    AudioDeviceManager& audioDeviceManager_;
    Permissions& permissions_;
    NotificationCenter& notifications_;
    Clock& clock_;
    RecordingProcessing& processing_;
    Logger logger_{"AudioRecorder"};
    bool isReconfiguring_ = false;

    /// The processing side was told of a recording and neither runs its job nor knows that nothing comes of it.
    bool isAwaitedByProcessing_ = false;
    bool isMicrophoneExpected_ = false;
    /// What the current session was told to record from.
    std::optional<AudioDeviceID> sessionDevice_;
    /// Why there is no session in the middle of a recording, while a microphone is waited for.
    std::optional<CaptureFailure> lostCapture_;
    std::uint64_t lossCount_ = 0;

    std::atomic<float> tapLevel_{0};
    std::atomic<Clock::Instant::rep> firstTap_{0}; ///< 0 until the first block of a recording
    ThreadWaker levelWaker_;
};

} // namespace vantro
