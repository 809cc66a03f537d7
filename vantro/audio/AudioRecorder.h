#pragma once

#include "base/Clock.h"
#include "base/Error.h"
#include "base/Logger.h"
#include "base/ThreadWaker.h"
#include "platform/AudioEngine.h"
#include "vantro/ai/ProcessingMode.h"

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

/// Why nothing can be captured.
class CaptureError : public Error
{
public:
    CaptureError(const QString& description, QString reason) : Error(description), reason_(std::move(reason)) {}

    /// The description without what was attempted, for a sentence that tells that itself.
    [[nodiscard]] const QString& reason() const { return reason_; }

private:
    QString reason_;
};

/// The microphone of one dictation: captures into a collector, survives changes of the audio route by rebuilding its
/// engine, and hands out the samples. Publishes what the interface shows of the dictation that uses it. Main thread
/// only; everything that it is given outlives it.
class AudioRecorder : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool isRecording READ isRecording NOTIFY isRecordingChanged)
    Q_PROPERTY(bool isBusy READ isBusy NOTIFY isBusyChanged)
    Q_PROPERTY(float currentAmplitude READ currentAmplitude NOTIFY currentAmplitudeChanged)
    Q_PROPERTY(
        vantro::ProcessingMode processingMode READ processingMode WRITE setProcessingMode NOTIFY processingModeChanged)
public:
    /// Between stop and the end of the capture, so that the last word arrives.
    static constexpr std::chrono::milliseconds drainDelay{150};
    /// How long a recording that has lost its microphone waits for another one.
    static constexpr std::chrono::milliseconds microphonePatience{1500};
    /// The same for one that is known to be coming: a headset needs seconds for another profile.
    static constexpr std::chrono::milliseconds expectedMicrophonePatience{5000};

    AudioRecorder(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Permissions& permissions, Clock& clock);
    /// Ends the capture.
    ~AudioRecorder() override;

    [[nodiscard]] bool isRecording() const { return isRecording_; }
    /// From the start until the dictation is over; set by the dictation.
    [[nodiscard]] bool isBusy() const { return isBusy_; }
    void setBusy(bool busy);
    /// 0..1, for the waveform.
    [[nodiscard]] float currentAmplitude() const { return currentAmplitude_; }
    /// When the first sound of the latest recording arrived; nothing before it has.
    [[nodiscard]] std::optional<Clock::Instant> firstSampleAt() const;
    /// The one in force when the recording is stopped counts.
    [[nodiscard]] ProcessingMode processingMode() const { return processingMode_; }
    void setProcessingMode(ProcessingMode mode);

    /// False, with nothing changed, while one runs or without permission. Throws CaptureError.
    [[nodiscard]] bool startRecording();
    /// The recording is over. The capture goes on until takeSamples(): what was spoken last is still on its way.
    void stopRecording();
    /// Ends the capture; 16 kHz mono, nominally -1..1.
    [[nodiscard]] std::vector<float> takeSamples();
    /// Throws away what was captured, before or after the stop.
    void cancelRecording();

    /// "audio-" and an identity of its own.
    [[nodiscard]] const QString& activeRecordingID() const { return activeRecordingID_; }
    [[nodiscard]] std::size_t sampleCount() const;
    /// Why nothing is being captured, while a microphone is waited for and when none has come.
    [[nodiscard]] const std::optional<CaptureError>& lostCapture() const { return lostCapture_; }

    /// A microphone is about to come, for the recording that begins: a start without any waits for it, for a while.
    void expectMicrophone() { isMicrophoneExpected_ = true; }
    /// It is there: a running recording goes on with the device that is the effective one now.
    void useExpectedMicrophone();

Q_SIGNALS:
    void isRecordingChanged();
    void isBusyChanged();
    void currentAmplitudeChanged();
    void processingModeChanged();
    /// The microphone was lost in the middle of a recording and no other has come: lostCapture() tells why.
    void captureGivenUp();

private:
    void startEngineSession();
    [[nodiscard]] bool selectDevice(AudioEngine& engine, AudioDeviceID device) const;
    void tearDown(SampleCollector* drainInto);
    void configurationChanged(const EngineSession* session);
    void rebuildEngine();
    void awaitMicrophone(CaptureError failure);
    bool retryRebuild();
    void discard();
    void setRecording(bool recording);
    void setCurrentAmplitude(float amplitude);

    bool isRecording_ = false;
    bool isBusy_ = false;
    float currentAmplitude_ = 0;
    ProcessingMode processingMode_ = ProcessingMode::Normal;
    std::unique_ptr<EngineSession> currentSession_;
    std::shared_ptr<SampleCollector> collector_;
    QString activeRecordingID_;
    Clock::Instant recordingStartedAt_;
    AudioEngineFactory makeEngine_;
    AudioDeviceManager& audioDeviceManager_;
    Permissions& permissions_;
    Clock& clock_;
    Logger logger_{"AudioRecorder"};

    bool isMicrophoneExpected_ = false;
    /// What the current session was told to record from.
    std::optional<AudioDeviceID> sessionDevice_;
    std::optional<CaptureError> lostCapture_;
    std::unique_ptr<QObject> patience_; ///< its destruction ends the wait for a microphone

    std::atomic<float> tapLevel_{0};
    std::atomic<Clock::Instant::rep> firstTap_{0}; ///< 0 until the first block of a recording
    ThreadWaker levelWaker_;
};

} // namespace vantro
