#include "vantro/app/Dictation.h"

#include "base/Notifications.h"
#include "base/SampleFormat.h"
#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/ai/AnswerSetAside.h"
#include "vantro/ai/DefaultMode.h"
#include "vantro/app/MissingAudio.h"
#include "vantro/app/ProcessingErrorMessage.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QScopeGuard>

#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto lateAudioPoll = 20ms;

} // namespace

std::shared_ptr<Dictation> Dictation::begin(const Parts& parts, Keyboard keyboard)
{
    std::shared_ptr<Dictation> dictation(new Dictation(parts));
    dictation->run(keyboard);
    return dictation;
}

std::shared_ptr<Dictation> Dictation::again(const Parts& parts, Owed owed)
{
    std::shared_ptr<Dictation> dictation(new Dictation(parts));
    dictation->owed_ = std::move(owed);
    dictation->isAgain_ = true;
    dictation->runAgain();
    return dictation;
}

Dictation::Dictation(const Parts& parts)
    : parts_(parts)
    , keyboard_(parts.keyEvents, parts.clock)
    , handover_(parts.delivery, parts.recovery, parts.shell)
    , ahead_({parts.transcription, parts.defaults, parts.session, parts.clock})
{
    if (parts_.defaults.get(setting::showWordsWhileSpeaking))
        connect(&ahead_, &RecognitionAhead::understood, this, &Dictation::understood);
}

Dictation::~Dictation() = default;

QCoro::Task<> Dictation::run(Keyboard keyboard)
{
    const auto self = shared_from_this(); // keeps this alive while it waits
    try {
        parts_.delivery.rememberTarget();
        startCapture();
        const auto engineUse = loadModel(); // while the user speaks
        openLauncher(keyboard);

        co_await spoken_.opened();
        endRecording();
        std::vector<float> samples = co_await drain();
        co_await bringText(std::move(samples));
    } catch (...) {
        stopFor(std::current_exception());
    }
    end();
}

/// The course of run() from drain() on.
QCoro::Task<> Dictation::runAgain()
{
    const auto self = shared_from_this();
    try {
        parts_.delivery.returnTo(owed_.target.value_or(PasteDelivery::Target()));
        const auto engineUse = loadModel();
        std::vector<float> samples = co_await readKept();
        co_await bringText(std::move(samples));
    } catch (...) {
        stopFor(std::current_exception());
    }
    end();
}

QCoro::Task<> Dictation::bringText(std::vector<float> samples)
{
    transcript_ = co_await transcribe(std::move(samples));
    text_ = co_await process(transcript_);
    announce(text_);
    co_await deliver(text_);
}

/// Comes before anything is shown: the user may start speaking at once.
void Dictation::startCapture()
{
    AudioRecorder& recorder = parts_.recorder;
    timings_.shortcut = parts_.clock.now();
    rule_ = applicationRuleFor(parts_.defaults, parts_.delivery.targetClass());
    mode_ = rule_ && rule_->mode ? *rule_->mode : defaultMode(parts_.defaults);
    recorder.setProcessingMode(mode_);
    connect(&recorder, &AudioRecorder::captureGivenUp, this, &Dictation::stop);
    connect(&recorder, &AudioRecorder::captureFull, this, &Dictation::stop);
    connect(&parts_.session, &SessionState::aboutToBeAway, this, &Dictation::stop);
    connect(&keyboard_, &KeyboardWatch::keyboardTaken, this, &Dictation::stop);
    try {
        if (!recorder.startRecording()) {
            notice_ = wording::noSoundServer();
            throw GivenUp();
        }
    } catch (const CaptureError& error) {
        throw Error(error.localizedDescription());
    }
    owed_ = {parts_.spool.keep(recorder.collector(), recorder.activeRecordingID(), mode_), parts_.delivery.target()};
    awake_ = parts_.session.delaySleep();
    recorder.setBusy(true);
    ahead_.follow(recorder.collector(), recorder.activeRecordingID());
    enter(State::recording);
    keyboard_.begin();
    expectService();
    connect(&recorder, &AudioRecorder::processingModeChanged, this, &Dictation::expectService);
}

TranscriptionFacade::EngineUse Dictation::loadModel()
{
    return parts_.transcription.prepare([weak = weak_from_this()] {
        const auto dictation = weak.lock();
        if (!dictation)
            return;
        dictation->isModelUsable_ = false;
        Q_EMIT dictation->modelFailed();
    });
}

void Dictation::expectService()
{
    if (state_ != State::recording)
        return;
    owed_.recording->setMode(parts_.recorder.processingMode());
    if (parts_.expectService)
        expectation_ = parts_.expectService(parts_.recorder.processingMode());
}

void Dictation::openLauncher(Keyboard keyboard)
{
    parts_.shell.putWindowsAside();
    launcher_ = parts_.shell.makeLauncher(*this);
    if (keyboard == Keyboard::taken)
        launcher_->makeKeyAndOrderFront();
    else
        launcher_->orderFront();
}

void Dictation::stop()
{
    if (state_ == State::recording)
        spoken_.open();
}

/// The mode and the settings count as they are at this moment.
void Dictation::endRecording()
{
    giveUpIfCancelled();
    timings_.stopped = parts_.clock.now();
    parts_.recorder.stopRecording();
    keyboard_.end();
    ahead_.expectEnd();
    mode_ = parts_.recorder.processingMode();
    if (const auto& lost = parts_.recorder.lostCapture(); lost && parts_.recorder.sampleCount() < minimumSampleCount)
        throw Error(lost->localizedDescription());
    notice_ = missingEnd(parts_.recorder);
    chooseHandler();
    enter(State::draining);
    parts_.notifications.post(notification::recordingProcesses);
    if (mode_ == ProcessingMode::Notes) {
        closeLauncher();
        parts_.shell.bringWindowsBack();
    }
}

void Dictation::chooseHandler()
{
    const auto handler = parts_.handlers.find(mode_);
    handler_ = (handler != parts_.handlers.end() ? handler->second : parts_.handlers.at(ProcessingMode::Normal)).get();
    if (parts_.chooseService)
        service_ = parts_.chooseService(mode_, rewriting_.get_token());
    showWriting();
}

void Dictation::showWriting()
{
    if (!service_)
        return;
    service_->listen([weak = weak_from_this()](const QString& piece) {
        // The model writes on a thread of its own.
        QMetaObject::invokeMethod(qApp, [weak, piece] {
            const auto self = weak.lock();
            if (self && self->state_ == State::processing)
                Q_EMIT self->writing(self->rewritten_ += piece);
        });
    });
}

/// The last words before the stop are still in the sound server's buffers.
QCoro::Task<std::vector<float>> Dictation::drain()
{
    co_await parts_.clock.sleepFor(AudioRecorder::drainDelay);
    const auto patienceEnds = *timings_.stopped + AudioRecorder::drainLimit;
    while (parts_.recorder.isBehind() && parts_.clock.now() < patienceEnds)
        co_await parts_.clock.sleepFor(lateAudioPoll);
    giveUpIfCancelled();
    std::vector<float> samples = parts_.recorder.takeSamples();
    timings_.firstSample = parts_.recorder.firstSampleAt();
    owed_.recording->finish(samples);
    awake_.reset();
    if (notice_.isEmpty())
        notice_ = missingParts(parts_.recorder);
    co_return samples;
}

QCoro::Task<std::vector<float>> Dictation::readKept()
{
    parts_.recorder.setBusy(true);
    parts_.shell.showTranscribing();
    mode_ = owed_.recording->header().mode;
    chooseHandler();
    enter(State::draining);
    std::vector<float> samples = co_await owed_.recording->samples();
    giveUpIfCancelled();
    co_return samples;
}

QCoro::Task<QString> Dictation::transcribe(std::vector<float> samples)
{
    if (samples.size() < minimumSampleCount)
        co_return QString();
    enter(State::transcribing);
    logger_.info(QStringLiteral("Extracting transcription"));
    const auto begun = std::chrono::steady_clock::now();
    const auto timed = qScopeGuard([this, begun] {
        timings_.engine =
            std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - begun);
    });
    TranscriptionFacade::Options options;
    options.stop = stop_.get_token();
    options.onProgress = [this](float fraction) {
        QMetaObject::invokeMethod(
            this, [this, fraction] { Q_EMIT transcriptionProgress(fraction); }, Qt::QueuedConnection);
    };
    options.onLanguage = [this](const QString& code) {
        spokenLanguage_ = code;
    };
    try {
        auto transcription = ahead_.transcribe(owed_.recording->id(), std::move(samples), options);
        QString transcript = co_await transcription;
        giveUpIfCancelled();
        co_return transcript;
    } catch (const std::exception& error) {
        giveUpIfCancelled();
        const QString description = localizedDescription(error);
        logger_.error(QStringLiteral("Transcription failed: ") + description);
        throw Error(tr("Failed to transcribe audio: ") + description);
    }
}

QCoro::Task<QString> Dictation::process(QString transcript)
{
    if (transcript.isEmpty())
        co_return transcript;
    enter(State::processing);
    logger_.info(QStringLiteral("Processing transcription"));
    parts_.store.expectText([textStored = parts_.textStored, recording = owed_.recording](const QUuid& id) {
        if (textStored)
            textStored(id, recording);
    });
    try {
        if (service_ && !spokenLanguage_.isEmpty())
            service_->expectLanguage(spokenLanguage_);
        QString text = co_await handler_->process(transcript, service_);
        giveUpIfCancelled();
        co_return text;
    } catch (const AnswerSetAside& doubt) {
        giveUpIfCancelled();
        logger_.info(doubt.localizedDescription());
        if (isWantedAsSpoken_)
            co_return transcript;
        handover_.setRemark(doubt.localizedDescription());
        co_return transcript;
    } catch (const std::exception& error) {
        giveUpIfCancelled();
        if (isWantedAsSpoken_)
            co_return transcript;
        logger_.error(QStringLiteral("Processing error: ") + localizedDescription(error));
        isUnrewritten_ = mode_ != ProcessingMode::Notes;
        throw Error(processingErrorMessage(error));
    }
}

QString Dictation::rewriter() const
{
    const bool mayBeRewritten = mode_ != ProcessingMode::Normal && mode_ != ProcessingMode::Notes;
    return state_ == State::processing && mayBeRewritten && service_ ? service_->name() : QString();
}

/// Its request fails at once, and process() goes on.
void Dictation::deliverAsSpoken()
{
    if (rewriter().isEmpty())
        return;
    isWantedAsSpoken_ = true;
    rewriting_.request_stop();
}

void Dictation::announce(const QString& finalText, const std::optional<QString>& errorMessage)
{
    timings_.textReady = parts_.clock.now();
    NotificationCenter::UserInfo info{{QStringLiteral("finalText"), finalText},
                                      {QStringLiteral("processingMode"), rawValue(mode_)}};
    if (errorMessage) {
        info[QStringLiteral("hasError")] = true;
        info[QStringLiteral("errorMessage")] = *errorMessage;
    }
    parts_.notifications.post(notification::recordingFinished, info);
}

/// A note was stored by its handler and is not delivered anywhere else.
QCoro::Task<> Dictation::deliver(QString text)
{
    text = rule_ ? textFor(*rule_, text.trimmed()) : text.trimmed();
    if (text.isEmpty())
        tellOfSilence();
    if (mode_ == ProcessingMode::Notes || text.isEmpty())
        co_return;
    enter(State::delivering);
    const auto anchor = launcherFrame();
    if (isAgain_ && !owed_.target)
        copy(owed_.earlierTexts.isEmpty() ? text : owed_.earlierTexts + QStringLiteral("\n\n") + text, anchor);
    else if (parts_.defaults.get(setting::autoPasteEnabled))
        co_await paste(text, anchor);
    else
        copy(text, anchor);
    if (parts_.defaults.get(setting::playSoundOnComplete))
        parts_.sounds.play(QStringLiteral("Blow"));
}

void Dictation::copy(const QString& text, std::optional<QRect> launcherFrame)
{
    if (!isTextSafe()) {
        fate_ = Fate::handedOver;
        parts_.recovery.keep(owed_);
    }
    handover_.copy(text, isTextStored(), isAgain_, launcherFrame);
}

QCoro::Task<> Dictation::paste(QString text, std::optional<QRect> launcherFrame)
{
    closeLauncher();
    fate_ = Fate::handedOver;
    const auto handover = handover_.paste(text, owed_, isTextStored(), launcherFrame);
    const auto outcome = co_await handover;
    if (outcome == PasteDelivery::Outcome::Pasted)
        timings_.pasted = parts_.clock.now();
}

std::optional<QRect> Dictation::launcherFrame() const
{
    return launcher_ ? std::optional(launcher_->frame()) : std::nullopt;
}

void Dictation::enter(State state)
{
    state_ = state;
    Q_EMIT stateChanged();
}

void Dictation::giveUpIfCancelled() const
{
    if (stop_.stop_requested())
        throw GivenUp();
}

void Dictation::closeLauncher()
{
    if (!launcher_)
        return;
    launcher_->closePanel();
    // Deferred: the panel may be the caller.
    QMetaObject::invokeMethod(
        this, [this] { launcher_.reset(); }, Qt::QueuedConnection);
}

} // namespace vantro
