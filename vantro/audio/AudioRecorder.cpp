#include "vantro/audio/AudioRecorder.h"

#include "base/Notifications.h"
#include "platform/Permissions.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/EngineSession.h"
#include "vantro/audio/SampleCollector.h"
#include "vantro/audio/TapConverter.h"

#include <QPointer>
#include <QUuid>

#include <limits>
#include <utility>

namespace vantro {

namespace {

constexpr double samplesPerSecond = 16'000.0;

Clock::Instant::rep steadyNow()
{
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

QString seconds(double value)
{
    return QString::number(value, 'f', 2);
}

} // namespace

AudioRecorder::AudioRecorder(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Permissions& permissions,
                             NotificationCenter& notifications, Clock& clock, RecordingProcessing& processing)
    : makeEngine_(std::move(makeEngine))
    , audioDeviceManager_(devices)
    , permissions_(permissions)
    , notifications_(notifications)
    , clock_(clock)
    , processing_(processing)
    , levelWaker_([this] {
        if (currentSession_)
            setCurrentAmplitude(tapLevel_.load());
    })
{
    connect(&audioDeviceManager_, &AudioDeviceManager::availableDevicesChanged, this, [this] {
        if (lostCapture_)
            retryRebuild();
    });
}

AudioRecorder::~AudioRecorder()
{
    // The audio thread must not outlive what it writes to.
    if (currentSession_)
        currentSession_->tearDown(nullptr);
}

std::optional<Clock::Instant> AudioRecorder::firstSampleAt() const
{
    const Clock::Instant::rep ticks = firstTap_.load();
    return ticks != 0 ? std::optional(Clock::Instant(Clock::Instant::duration(ticks))) : std::nullopt;
}

void AudioRecorder::startRecording()
{
    if (isRecording_ || isBusy_)
        return;
    if (!permissions_.microphoneAuthorized()) {
        logger_.error(QStringLiteral("Microphone access not granted"));
        return;
    }
    isMicrophoneExpected_ = false;
    setRecording(true);
    setBusy(true);
    collector_ = std::make_shared<SampleCollector>();
    activeRecordingID_ = QStringLiteral("audio-") + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    recordingStartedAt_ = clock_.now();
    firstTap_ = 0;
    beginGeneration();
    if (auto failure = startEngineSession()) {
        if (!isMicrophoneExpected_) {
            fail(failure->message);
            return;
        }
        isReconfiguring_ = true;
        awaitMicrophone(std::move(*failure));
    }
    isAwaitedByProcessing_ = true;
    processing_.recordingStarted();
}

// Fails with the recording left as it is.
std::optional<AudioRecorder::CaptureFailure> AudioRecorder::startEngineSession()
{
    logger_.info(QStringLiteral("Starting recording %1").arg(activeRecordingID_));
    auto engine = makeEngine_();
    const auto device = audioDeviceManager_.effectiveDeviceID();
    sessionDevice_ = device;
    const bool isSelected = device && selectDevice(*engine, *device);
    auto format = engine->deviceFormat().value_or(AudioFormat{});
    if (!format.isUsable())
        format = engine->inputFormat();

    auto converter = TapConverter::create(format);
    if (!converter) {
        logger_.error(QStringLiteral("Could not create the tap converter"));
        const QString text = tr("No usable audio input format was found.");
        return CaptureFailure{.message = text, .reason = text};
    }
    currentSession_ =
        std::make_shared<EngineSession>(std::move(engine), std::move(converter), isSelected, [this](float level) {
            if (firstTap_.load() == 0)
                firstTap_.store(steadyNow());
            tapLevel_.store(level);
            levelWaker_.wake();
        });
    currentSession_->observeConfiguration(this,
                                          [this, session = currentSession_.get()] { configurationChanged(session); });
    try {
        currentSession_->start(format, collector_);
    } catch (const AudioEngineError& error) {
        logger_.error(QStringLiteral("Failed to start audio engine: %1").arg(error.localizedDescription()));
        tearDown(currentSession_.get(), nullptr);
        return CaptureFailure{.message = tr("Could not start the microphone: %1").arg(error.localizedDescription()),
                              .reason = error.localizedDescription()};
    }
    logger_.info(QStringLiteral("Audio engine started successfully"));
    return std::nullopt;
}

bool AudioRecorder::selectDevice(AudioEngine& engine, AudioDeviceID device) const
{
    try {
        engine.selectInputDevice(device);
        return true;
    } catch (const AudioEngineError& error) {
        logger_.error(QStringLiteral("Failed to select input device %1: %2")
                          .arg(QString::number(device), error.localizedDescription()));
        return false;
    }
}

void AudioRecorder::tearDown(EngineSession* session, SampleCollector* drainInto)
{
    if (session == nullptr)
        return;
    session->tearDown(drainInto);
    if (session == currentSession_.get()) {
        currentSession_.reset();
        setCurrentAmplitude(0);
    }
}

void AudioRecorder::configurationChanged(const EngineSession* session)
{
    if (session != currentSession_.get())
        return;
    if (currentSession_->takeOwnConfigChange()) {
        logger_.info(QStringLiteral("Ignoring self-inflicted configuration change after device selection"));
        return;
    }
    if (!isReconfiguring_ && isRecording_ && currentSession_->isRunning())
        rebuildEngine();
}

void AudioRecorder::rebuildEngine()
{
    isReconfiguring_ = true;
    logger_.info(QStringLiteral("Audio configuration changed mid-recording; rebuilding the audio engine"));
    tearDown(currentSession_.get(), collector_.get());
    if (auto failure = startEngineSession())
        awaitMicrophone(std::move(*failure));
    else
        isReconfiguring_ = false;
}

void AudioRecorder::useExpectedMicrophone()
{
    isMicrophoneExpected_ = false;
    if (isRecording_ && currentSession_ && sessionDevice_ != audioDeviceManager_.effectiveDeviceID())
        rebuildEngine();
}

// A restarting sound server, a headset that changes its profile or a loose plug is back within a second or so.
void AudioRecorder::awaitMicrophone(CaptureFailure failure)
{
    lostCapture_ = std::move(failure);
    const auto patience = isMicrophoneExpected_ ? expectedMicrophonePatience : microphonePatience;
    clock_.callAfter(patience, this, [this, loss = ++lossCount_] {
        if (lostCapture_ && loss == lossCount_)
            giveUpRebuild();
    });
}

bool AudioRecorder::retryRebuild()
{
    if (auto failure = startEngineSession()) {
        lostCapture_ = std::move(failure);
        return false;
    }
    lostCapture_.reset();
    isReconfiguring_ = false;
    return true;
}

void AudioRecorder::giveUpRebuild()
{
    if (retryRebuild())
        return;
    if (collector_->sampleCount() >= minimumSampleCount)
        stopRecording();
    else
        fail(lostCapture_->message);
}

void AudioRecorder::stopRecording()
{
    if (!isRecording_)
        return;
    logger_.info(QStringLiteral("Stopping the recording"));
    setRecording(false);
    if (const auto lost = endReconfiguring()) {
        Q_EMIT captureLost(tr("The microphone was lost during the recording; what was said after that is missing. %1")
                               .arg(lost->reason));
    }
    Stopped stopped{.session = currentSession_,
                    .collector = std::exchange(collector_, nullptr),
                    .recordingID = activeRecordingID_,
                    .generation = recordingGeneration_,
                    .startedAt = recordingStartedAt_,
                    .mode = processingMode_,
                    .job = processing_.prepare(processingMode_)};
    notifications_.post(notification::recordingProcesses);
    process(std::move(stopped));
}

// Whoever resumes here may find the recorder gone.
QCoro::Task<> AudioRecorder::process(Stopped stopped)
{
    const QPointer<AudioRecorder> self(this);
    co_await clock_.sleepFor(drainDelay);
    if (!self)
        co_return;
    if (recordingGeneration_ != stopped.generation) {
        tearDown(stopped.session.get(), nullptr);
        stopped.collector->clear();
        co_return;
    }
    std::vector<float> samples = takeSamples(stopped);
    if (samples.size() < minimumSampleCount) {
        discardProcessing();
        finish(DictationResult(), stopped.mode);
        co_return;
    }
    logger_.info(QStringLiteral("Extracting transcription"));
    isAwaitedByProcessing_ = false;
    const DictationResult result = co_await stopped.job->run(stopped.recordingID, std::move(samples));
    if (self && recordingGeneration_ == stopped.generation)
        finish(result, stopped.mode);
}

std::vector<float> AudioRecorder::takeSamples(const Stopped& stopped)
{
    tearDown(stopped.session.get(), stopped.collector.get());
    std::vector<float> samples = stopped.collector->takeSamples();
    const std::chrono::duration<double> wallClock = clock_.now() - stopped.startedAt;
    logger_.info(QStringLiteral("Recording %1: wall clock %2s, captured %3s%4")
                     .arg(stopped.recordingID, seconds(wallClock.count()),
                          seconds(static_cast<double>(samples.size()) / samplesPerSecond),
                          stopped.collector->overflowed() ? QStringLiteral(" (hit the 10-minute cap)") : QString()));
    return samples;
}

void AudioRecorder::cancelRecording()
{
    if (isRecording_)
        cancelDictation();
}

void AudioRecorder::cancelDictation()
{
    if (!isBusy_)
        return;
    logger_.info(QStringLiteral("Canceling the recording"));
    beginGeneration();
    setRecording(false);
    setBusy(false);
    endReconfiguring();
    if (collector_)
        std::exchange(collector_, nullptr)->clear();
    tearDown(currentSession_.get(), nullptr);
    if (isAwaitedByProcessing_)
        discardProcessing();
    else
        processing_.runAbandoned();
}

void AudioRecorder::beginGeneration()
{
    if (recordingGeneration_ == std::numeric_limits<std::uint64_t>::max())
        qFatal("There are no recording generations left");
    ++recordingGeneration_;
}

std::optional<AudioRecorder::CaptureFailure> AudioRecorder::endReconfiguring()
{
    isReconfiguring_ = false;
    return std::exchange(lostCapture_, std::nullopt);
}

void AudioRecorder::discardProcessing()
{
    if (std::exchange(isAwaitedByProcessing_, false))
        processing_.recordingDiscarded();
}

void AudioRecorder::fail(QString message)
{
    endReconfiguring();
    collector_.reset();
    setRecording(false);
    setBusy(false);
    discardProcessing();
    postFinish(DictationResult({}, std::move(message)), processingMode_);
}

void AudioRecorder::finish(const DictationResult& result, ProcessingMode mode)
{
    postFinish(result, mode);
    setProcessingMode(ProcessingMode::Normal);
    setBusy(false);
}

void AudioRecorder::postFinish(const DictationResult& result, ProcessingMode mode)
{
    NotificationCenter::UserInfo info{{QStringLiteral("finalText"), result.text},
                                      {QStringLiteral("processingMode"), rawValue(mode)}};
    if (result.errorMessage) {
        info[QStringLiteral("hasError")] = true;
        info[QStringLiteral("errorMessage")] = *result.errorMessage;
    }
    notifications_.post(notification::recordingFinished, info);
}

void AudioRecorder::setProcessingMode(ProcessingMode mode)
{
    if (std::exchange(processingMode_, mode) != mode)
        Q_EMIT processingModeChanged();
}

void AudioRecorder::setRecording(bool recording)
{
    if (std::exchange(isRecording_, recording) != recording)
        Q_EMIT isRecordingChanged();
}

void AudioRecorder::setBusy(bool busy)
{
    if (std::exchange(isBusy_, busy) != busy)
        Q_EMIT isBusyChanged();
}

void AudioRecorder::setCurrentAmplitude(float amplitude)
{
    if (std::exchange(currentAmplitude_, amplitude) != amplitude)
        Q_EMIT currentAmplitudeChanged();
}

} // namespace vantro
