#pragma once

#include "base/Clock.h"
#include "base/Error.h"
#include "base/Logger.h"
#include "base/ThreadWaker.h"
#include "platform/AudioEngine.h"
#include "vantro/ai/ProcessingMode.h"
#include "vantro/audio/CaptureWatch.h"

#include <QObject>
#include <QString>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <vector>

namespace vantro {

class AudioDeviceManager;
class EngineSession;
class Permissions;
class SampleCollector;

/// Why capturing failed.
class CaptureError : public Error
{
public:
    CaptureError(const QString& description, QString reason) : Error(description), reason_(std::move(reason)) {}

    /// The cause alone, for a sentence that already says what was attempted.
    [[nodiscard]] const QString& reason() const { return reason_; }

private:
    QString reason_;
};

/// Captures one dictation's audio into a collector, rebuilds its engine when the audio route changes, and publishes the
/// dictation's state for the user interface. Main thread only; everything passed in must outlive it.
class AudioRecorder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isRecording READ isRecording NOTIFY isRecordingChanged)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY isBusyChanged)
    Q_PROPERTY(float currentAmplitude READ currentAmplitude NOTIFY currentAmplitudeChanged)
    Q_PROPERTY(
        vantro::ProcessingMode processingMode READ processingMode WRITE setProcessingMode NOTIFY processingModeChanged)
public:
    /// Time between stop and the end of the capture, so that the last word arrives.
    static constexpr std::chrono::milliseconds drainDelay{150};
    /// The most that the end of the capture waits for audio from before the stop.
    static constexpr std::chrono::milliseconds drainLimit{1000};
    /// How long a recording that lost its microphone waits for another one.
    static constexpr std::chrono::milliseconds microphonePatience{1500};
    /// The same when a microphone is expected: a headset takes seconds to change its profile.
    static constexpr std::chrono::milliseconds expectedMicrophonePatience{5000};

    AudioRecorder(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Permissions& permissions, Clock& clock);
    /// Ends the capture.
    ~AudioRecorder() override;

    [[nodiscard]] bool isRecording() const { return isRecording_; }
    /// From the start to the end of the dictation, which sets it.
    [[nodiscard]] bool isBusy() const { return isBusy_; }
    void setBusy(bool busy);
    /// 0..1, for the waveform.
    [[nodiscard]] float currentAmplitude() const { return currentAmplitude_; }
    /// When the latest recording's first block arrived; nullopt until then.
    [[nodiscard]] std::optional<Clock::Instant> firstSampleAt() const;
    /// The value at the time of the stop applies.
    [[nodiscard]] ProcessingMode processingMode() const { return processingMode_; }
    void setProcessingMode(ProcessingMode mode);

    /// Returns false if already recording or without permission. Throws CaptureError.
    [[nodiscard]] bool startRecording();
    /// Ends the recording. The capture continues until takeSamples(), because the last audio is still arriving.
    void stopRecording();
    /// After the stop: whether audio from before it has not arrived yet, as on a machine that is short of time.
    [[nodiscard]] bool isBehind() const;
    /// Ends the capture and returns its samples: 16 kHz mono, nominally -1..1.
    [[nodiscard]] std::vector<float> takeSamples();
    /// Ends the capture, before or after the stop, and returns what it had.
    std::vector<float> cancelRecording();

    /// "audio-" and a UUID.
    [[nodiscard]] const QString& activeRecordingID() const { return activeRecordingID_; }
    [[nodiscard]] std::size_t sampleCount() const;
    /// Whether the microphone has delivered nothing for a second or more, while recording.
    [[nodiscard]] bool isStalled() const { return watch_.isStalled(); }
    /// Whether the recording is as long as one may be; nothing is added to it any more.
    [[nodiscard]] bool isFull() const;
    /// How much of the recording, from its first block to takeSamples(), the microphone did not deliver.
    [[nodiscard]] std::chrono::duration<double> missing() const { return missing_; }
    /// Where the capture's samples arrive; null without a capture.
    [[nodiscard]] std::shared_ptr<const SampleCollector> collector() const { return collector_; }
    /// Why there is no capture, while waiting for a microphone and after giving up.
    [[nodiscard]] const std::optional<CaptureError>& lostCapture() const { return lostCapture_; }

    /// Announces a microphone for the recording that is starting: a start without any device waits for it.
    void expectMicrophone() { isMicrophoneExpected_ = true; }
    /// The expected microphone has arrived: a running recording switches to the effective device.
    void useExpectedMicrophone();

Q_SIGNALS:
    void isRecordingChanged();
    void isBusyChanged();
    void currentAmplitudeChanged();
    void processingModeChanged();
    void isStalledChanged();
    /// The microphone was lost during a recording and none has replaced it; see lostCapture().
    void captureGivenUp();
    /// The recording has become as long as one may be; see isFull().
    void captureFull();

private:
    void startEngineSession();
    [[nodiscard]] bool selectDevice(AudioEngine& engine, AudioDeviceID device) const;
    void tearDown(SampleCollector* drainInto);
    void configurationChanged(const EngineSession* session);
    void rebuildEngine();
    void reportStall();
    [[nodiscard]] std::chrono::duration<double> missingOf(const SampleCollector& collector, Clock::Instant until) const;
    void awaitMicrophone(CaptureError failure);
    bool retryRebuild();
    void discard();
    void setRecording(bool recording);
    void setCurrentAmplitude(float amplitude);
    void lookWhetherFull();

    bool isRecording_ = false;
    bool isBusy_ = false;
    float currentAmplitude_ = 0;
    ProcessingMode processingMode_ = ProcessingMode::Normal;
    std::unique_ptr<EngineSession> currentSession_;
    std::shared_ptr<SampleCollector> collector_;
    QString activeRecordingID_;
    Clock::Instant recordingStartedAt_;
    Clock::Instant stoppedAt_;
    AudioEngineFactory makeEngine_;
    AudioDeviceManager& audioDeviceManager_;
    Permissions& permissions_;
    Clock& clock_;
    Logger logger_{"AudioRecorder"};

    bool isMicrophoneExpected_ = false;
    /// The device requested for the current session.
    std::optional<AudioDeviceID> sessionDevice_;
    std::optional<CaptureError> lostCapture_;
    CaptureWatch watch_;
    std::optional<Clock::Instant> heardSince_; ///< the first block, as noticed on the main thread
    std::chrono::duration<double> missing_{};
    bool isFullTold_ = false;
    std::unique_ptr<QObject> patience_; ///< destroying it ends the wait for a microphone

    std::atomic<float> tapLevel_{0};
    std::atomic<Clock::Instant::rep> firstTap_{0}; ///< steady clock ticks; 0 until a recording's first block
    ThreadWaker levelWaker_;
};

} // namespace vantro
