#include "vantro/app/Dictation.h"

#include "base/Notifications.h"
#include "base/SampleFormat.h"
#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/ai/DefaultMode.h"
#include "vantro/app/ProcessingErrorMessage.h"

#include <QMetaObject>
#include <QScopeGuard>

#include <cmath>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

/// Of what the microphone did not deliver.
constexpr auto worthTelling = 1s;

} // namespace

class Dictation::Failure : public Error
{
public:
    explicit Failure(const QString& message, QString transcript = {})
        : Error(message)
        , transcript_(std::move(transcript))
    {
    }

    /// The text recognised before the failure; may be empty.
    [[nodiscard]] const QString& transcript() const { return transcript_; }

private:
    QString transcript_;
};

std::shared_ptr<Dictation> Dictation::begin(const Parts& parts, Keyboard keyboard)
{
    const std::shared_ptr<Dictation> dictation(new Dictation(parts));
    dictation->run(keyboard);
    return dictation;
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
        const QString transcript = co_await transcribe(std::move(samples));
        const QString text = co_await process(transcript);
        announce(text);
        co_await deliver(text);
    } catch (const Failure& failure) {
        fail(failure);
    } catch (const GivenUp&) {
    }
    end();
}

/// Comes before anything is shown: the user may start speaking at once.
void Dictation::startCapture()
{
    AudioRecorder& recorder = parts_.recorder;
    timings_.shortcut = parts_.clock.now();
    mode_ = defaultMode(parts_.defaults);
    recorder.setProcessingMode(mode_);
    connect(&recorder, &AudioRecorder::captureGivenUp, this, &Dictation::stop);
    try {
        if (!recorder.startRecording()) {
            notice_ = wording::noSoundServer();
            throw GivenUp();
        }
    } catch (const CaptureError& error) {
        throw Failure(error.localizedDescription());
    }
    recorder.setBusy(true);
    enter(State::recording);
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
    if (state_ == State::recording && parts_.expectService)
        parts_.expectService(parts_.recorder.processingMode());
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
    mode_ = parts_.recorder.processingMode();
    noteLostMicrophone();
    const auto handler = parts_.handlers.find(mode_);
    handler_ = (handler != parts_.handlers.end() ? handler->second : parts_.handlers.at(ProcessingMode::Normal)).get();
    if (parts_.chooseService)
        service_ = parts_.chooseService(mode_, stop_.get_token());
    enter(State::draining);
    parts_.notifications.post(notification::recordingProcesses);
    if (mode_ == ProcessingMode::Notes) {
        closeLauncher();
        parts_.shell.bringWindowsBack();
    }
}

void Dictation::noteLostMicrophone()
{
    const auto& lost = parts_.recorder.lostCapture();
    if (!lost)
        return;
    if (parts_.recorder.sampleCount() < minimumSampleCount)
        throw Failure(lost->localizedDescription());
    notice_ =
        tr("The microphone was lost during the recording. Anything said after that is missing. %1").arg(lost->reason());
}

/// The last words before the stop are still in the sound server's buffers.
QCoro::Task<std::vector<float>> Dictation::drain()
{
    co_await parts_.clock.sleepFor(AudioRecorder::drainDelay);
    giveUpIfCancelled();
    std::vector<float> samples = parts_.recorder.takeSamples();
    noteGaps();
    co_return samples;
}

void Dictation::noteGaps()
{
    const auto missing = parts_.recorder.missing();
    if (notice_.isEmpty() && missing >= worthTelling)
        notice_ = tr("The microphone sent nothing for %1 s of this recording. Anything said then is missing.")
                      .arg(std::lround(missing.count()));
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
    try {
        auto transcription =
            parts_.transcription.transcribe(parts_.recorder.activeRecordingID(), std::move(samples), options);
        QString transcript = co_await transcription;
        giveUpIfCancelled();
        co_return transcript;
    } catch (const std::exception& error) {
        giveUpIfCancelled();
        const QString description = localizedDescription(error);
        logger_.error(QStringLiteral("Transcription failed: ") + description);
        throw Failure(QStringLiteral("Failed to transcribe audio: ") + description);
    }
}

QCoro::Task<QString> Dictation::process(QString transcript)
{
    if (transcript.isEmpty())
        co_return transcript;
    enter(State::processing);
    logger_.info(QStringLiteral("Processing transcription"));
    try {
        QString text = co_await handler_->process(transcript, service_);
        giveUpIfCancelled();
        co_return text;
    } catch (const std::exception& error) {
        giveUpIfCancelled();
        logger_.error(QStringLiteral("Processing error: ") + localizedDescription(error));
        throw Failure(processingErrorMessage(error), transcript);
    }
}

void Dictation::announce(const QString& finalText, const std::optional<QString>& errorMessage)
{
    timings_.textReady = parts_.clock.now();
    timings_.firstSample = parts_.recorder.firstSampleAt();
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
    text = text.trimmed();
    if (mode_ == ProcessingMode::Notes || text.isEmpty())
        co_return;
    enter(State::delivering);
    const QRect launcherFrame = launcher_->frame();
    if (parts_.defaults.get(setting::autoPasteEnabled)) {
        co_await paste(text, launcherFrame);
    } else {
        parts_.delivery.copy(text);
        parts_.shell.showPasteHUD(launcherFrame, parts_.delivery.pasteKeys(), {});
    }
    if (parts_.defaults.get(setting::playSoundOnComplete))
        parts_.sounds.play(QStringLiteral("Blow"));
}

QCoro::Task<> Dictation::paste(QString text, QRect launcherFrame)
{
    closeLauncher();
    const auto outcome = co_await parts_.delivery.deliver(text);
    if (outcome == PasteDelivery::Outcome::Pasted)
        timings_.pasted = parts_.clock.now();
    const QString reason = parts_.delivery.explanation(outcome);
    if (!reason.isEmpty())
        parts_.shell.showPasteHUD(launcherFrame, parts_.delivery.pasteKeys(), reason);
}

void Dictation::fail(const Failure& failure)
{
    announce(failure.transcript(), failure.localizedDescription());
    notice_ = failure.localizedDescription();
    if (const QString where = saveFromLoss(failure.transcript()); !where.isEmpty())
        notice_ += QStringLiteral("\n\n") + where;
}

/// A text that was neither delivered nor stored, such as a note when the disk is full, goes to the clipboard. Returns
/// where the user finds what was said, and what to do next.
QString Dictation::saveFromLoss(const QString& text)
{
    if (state_ < State::transcribing) // nothing was said
        return {};
    if (text.trimmed().isEmpty())
        return tr("What you said was not kept. Please say it again.");
    if (parts_.store.hasLatest())
        return tr("What you said is in the history, as it was said: copy it from there.");
    parts_.delivery.copy(text);
    return tr("What you said is on the clipboard: paste it with %1.").arg(parts_.delivery.pasteKeys());
}

void Dictation::cancelRecording()
{
    if (state_ == State::recording)
        cancel();
}

void Dictation::cancel()
{
    if (state_ >= State::delivering)
        return;
    stop_.request_stop();
    end();
    spoken_.open(); // anywhere else run() notices on its own
}

/// Alerts come last because they take the keyboard focus.
void Dictation::end()
{
    if (isOver())
        return;
    enter(State::over);
    parts_.recorder.cancelRecording();
    parts_.recorder.setProcessingMode(ProcessingMode::Normal);
    closeLauncher();
    parts_.recorder.setBusy(false);
    parts_.shell.bringWindowsBack();
    if (!notice_.isEmpty())
        parts_.shell.showAlert(tr("Transcription Error"), notice_);
    tellOfStoreProblem();
}

void Dictation::tellOfStoreProblem()
{
    if (const auto problem = parts_.store.takeProblem()) {
        parts_.shell.showAlert(tr("Not in the History"),
                               tr("Your dictations are delivered but not stored: %1").arg(*problem));
    }
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
