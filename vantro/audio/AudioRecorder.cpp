#include "vantro/audio/AudioRecorder.h"

#include "base/SampleFormat.h"
#include "platform/Permissions.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/EngineSession.h"
#include "vantro/audio/SampleCollector.h"
#include "vantro/audio/TapConverter.h"

#include <QUuid>

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

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
                             Clock& clock)
    : makeEngine_(std::move(makeEngine))
    , audioDeviceManager_(devices)
    , permissions_(permissions)
    , clock_(clock)
    , watch_(clock)
    , levelWaker_([this] {
        if (!heardSince_)
            heardSince_ = clock_.now();
        if (currentSession_)
            setCurrentAmplitude(tapLevel_.load());
        lookWhetherFull();
    })
{
    connect(&watch_, &CaptureWatch::isStalledChanged, this, [this] {
        if (watch_.isStalled())
            setCurrentAmplitude(0);
        Q_EMIT isStalledChanged();
    });
    connect(&watch_, &CaptureWatch::stalledTooLong, this, &AudioRecorder::reportStall);
    connect(&audioDeviceManager_, &AudioDeviceManager::availableDevicesChanged, this, [this] {
        if (patience_)
            retryRebuild();
    });
}

AudioRecorder::~AudioRecorder()
{
    // The audio thread must not outlive the collector.
    if (currentSession_)
        currentSession_->tearDown(nullptr);
}

std::optional<Clock::Instant> AudioRecorder::firstSampleAt() const
{
    const Clock::Instant::rep ticks = firstTap_.load();
    return ticks != 0 ? std::optional(Clock::Instant(Clock::Instant::duration(ticks))) : std::nullopt;
}

std::size_t AudioRecorder::sampleCount() const
{
    return collector_ ? collector_->sampleCount() : 0;
}

bool AudioRecorder::isFull() const
{
    return sampleCount() >= maximumSampleCount;
}

void AudioRecorder::lookWhetherFull()
{
    if (isRecording_ && isFull() && !std::exchange(isFullTold_, true))
        Q_EMIT captureFull();
}

bool AudioRecorder::startRecording()
{
    if (collector_)
        return false;
    if (!permissions_.microphoneAuthorized()) {
        logger_.error(QStringLiteral("Microphone access not granted"));
        return false;
    }
    isMicrophoneExpected_ = false;
    lostCapture_.reset();
    collector_ = std::make_shared<SampleCollector>();
    activeRecordingID_ = QStringLiteral("audio-") + QUuid::createUuid().toString(QUuid::WithoutBraces).toUpper();
    recordingStartedAt_ = clock_.now();
    firstTap_ = 0;
    watch_.clear();
    heardSince_.reset();
    missing_ = {};
    isFullTold_ = false;
    setRecording(true); // a slot may call expectMicrophone()
    try {
        startEngineSession();
    } catch (CaptureError& error) {
        if (!isMicrophoneExpected_) {
            discard();
            throw;
        }
        awaitMicrophone(std::move(error));
    }
    return true;
}

// On failure, leaves the recording unchanged.
void AudioRecorder::startEngineSession()
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
        throw CaptureError(text, text);
    }
    currentSession_ =
        std::make_unique<EngineSession>(std::move(engine), std::move(converter), isSelected, [this](float level) {
            if (firstTap_.load() == 0)
                firstTap_.store(steadyNow());
            tapLevel_.store(level);
            levelWaker_.wake();
        });
    currentSession_->observeConfiguration(this,
                                          [this, session = currentSession_.get()] { configurationChanged(session); });
    try {
        currentSession_->start(format, collector_, [this] { watch_.noteBlock(); });
    } catch (const AudioEngineError& error) {
        logger_.error(QStringLiteral("Failed to start audio engine: %1").arg(error.localizedDescription()));
        tearDown(nullptr);
        throw CaptureError(tr("Could not start the microphone: %1").arg(error.localizedDescription()),
                           error.localizedDescription());
    }
    watch_.begin();
    logger_.info(QStringLiteral("Audio engine started successfully"));
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

void AudioRecorder::tearDown(SampleCollector* drainInto)
{
    if (!currentSession_)
        return;
    watch_.end();
    currentSession_->tearDown(drainInto);
    currentSession_.reset();
    setCurrentAmplitude(0);
}

void AudioRecorder::configurationChanged(const EngineSession* session)
{
    if (session != currentSession_.get())
        return;
    if (currentSession_->takeOwnConfigChange()) {
        logger_.info(QStringLiteral("Ignoring self-inflicted configuration change after device selection"));
        return;
    }
    if (isRecording_ && currentSession_->isRunning())
        rebuildEngine();
}

void AudioRecorder::rebuildEngine()
{
    logger_.info(QStringLiteral("Audio configuration changed mid-recording; rebuilding the audio engine"));
    tearDown(collector_.get());
    try {
        startEngineSession();
    } catch (CaptureError& error) {
        awaitMicrophone(std::move(error));
    }
}

void AudioRecorder::reportStall()
{
    if (!isRecording_ || !currentSession_)
        return;
    logger_.error(QStringLiteral("The microphone delivers nothing"));
    currentSession_->reportStall();
}

std::chrono::duration<double> AudioRecorder::missingOf(const SampleCollector& collector, Clock::Instant until) const
{
    if (!heardSince_ || collector.overflowed())
        return {};
    const std::chrono::duration<double> heard = until - *heardSince_;
    return std::max(heard - durationOf(collector.sampleCount()), std::chrono::duration<double>(0));
}

void AudioRecorder::useExpectedMicrophone()
{
    isMicrophoneExpected_ = false;
    if (isRecording_ && currentSession_ && sessionDevice_ != audioDeviceManager_.effectiveDeviceID())
        rebuildEngine();
}

// A restarting sound server, a headset changing its profile or a loose plug recovers within a second or so.
void AudioRecorder::awaitMicrophone(CaptureError failure)
{
    lostCapture_ = std::move(failure);
    patience_ = std::make_unique<QObject>();
    const auto limit = isMicrophoneExpected_ ? expectedMicrophonePatience : microphonePatience;
    clock_.callAfter(limit, patience_.get(), [this] {
        if (retryRebuild())
            return;
        patience_.reset();
        Q_EMIT captureGivenUp();
    });
}

bool AudioRecorder::retryRebuild()
{
    try {
        startEngineSession();
    } catch (CaptureError& error) {
        lostCapture_ = std::move(error);
        return false;
    }
    lostCapture_.reset();
    patience_.reset();
    return true;
}

void AudioRecorder::stopRecording()
{
    if (!isRecording_)
        return;
    logger_.info(QStringLiteral("Stopping the recording"));
    patience_.reset();
    stoppedAt_ = clock_.now();
    setRecording(false);
}

bool AudioRecorder::isBehind() const
{
    return currentSession_ && !watch_.isStalled() &&
           missingOf(*collector_, stoppedAt_) > std::chrono::duration<double>(0);
}

std::vector<float> AudioRecorder::takeSamples()
{
    const auto collector = std::exchange(collector_, nullptr);
    tearDown(collector.get());
    missing_ = missingOf(*collector, clock_.now());
    std::vector<float> samples = collector->takeSamples();
    const std::chrono::duration<double> wallClock = clock_.now() - recordingStartedAt_;
    logger_.info(QStringLiteral("Recording %1: wall clock %2s, captured %3s%4")
                     .arg(activeRecordingID_, seconds(wallClock.count()), seconds(durationOf(samples.size()).count()),
                          collector->overflowed() ? QStringLiteral(" (hit the 10-minute cap)") : QString()));
    return samples;
}

std::vector<float> AudioRecorder::cancelRecording()
{
    if (!collector_)
        return {};
    logger_.info(QStringLiteral("Canceling the recording"));
    const auto collector = collector_;
    tearDown(collector.get());
    discard();
    return collector->takeSamples();
}

void AudioRecorder::discard()
{
    patience_.reset();
    tearDown(nullptr);
    collector_.reset();
    setRecording(false);
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
