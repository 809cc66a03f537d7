// The ways in which a dictation ends: what becomes of its recording, and what the user is told.
#include "base/Error.h"
#include "platform/Wording.h"
#include "vantro/app/Dictation.h"

namespace vantro {

void Dictation::stopFor(const std::exception_ptr& cause)
{
    try {
        std::rethrow_exception(cause);
    } catch (const GivenUp&) {
    } catch (const std::exception& error) {
        fail(localizedDescription(error));
    } catch (...) {
        fail(tr("Something unexpected went wrong."));
    }
}

void Dictation::fail(const QString& what)
{
    if (isOver())
        return;
    logger_.error(what);
    failure_ = what;
    notice_ = what;
    announce(transcript_, what);
    if (transcript_.trimmed().isEmpty() || !isTextSafe())
        fate_ = Fate::failed;
    else
        notice_ += QStringLiteral("\n\n") + saveFromLoss();
}

bool Dictation::isTextStored() const
{
    return !transcript_.trimmed().isEmpty() && parts_.store.hasLatest();
}

/// Without being delivered.
bool Dictation::isTextSafe() const
{
    return isTextStored() || parts_.delivery.canCopy();
}

/// A text that was neither delivered nor stored, such as a note when the disk is full, goes to the clipboard. Returns
/// where the user finds what was said.
QString Dictation::saveFromLoss()
{
    if (isTextStored())
        return tr("What you said is in the history, as it was said: copy it from there.");
    parts_.delivery.copy(transcript_);
    return tr("What you said is on the clipboard: paste it with %1.")
        .arg(wording::shownKeys(parts_.delivery.pasteKeys()));
}

void Dictation::cancelRecording()
{
    if (state_ == State::recording)
        cancel();
}

void Dictation::cancel()
{
    giveUp(Fate::cancelled);
}

void Dictation::discardRecording()
{
    if (state_ == State::recording)
        giveUp(Fate::done);
}

void Dictation::leave()
{
    giveUp(Fate::left);
}

void Dictation::giveUp(Fate fate)
{
    if (state_ >= State::delivering)
        return;
    const bool isStored = fate == Fate::cancelled && isTextStored();
    fate_ = isStored ? Fate::done : fate;
    failure_ = fate == Fate::left ? tr("vantro was quit. The recording is kept.") : tr("It was cancelled.");
    stop_.request_stop();
    rewriting_.request_stop();
    const auto anchor = launcherFrame();
    end();
    if (isStored)
        tellOfStoredText(anchor);
    spoken_.open(); // anywhere else run() notices on its own
}

void Dictation::tellOfStoredText(std::optional<QRect> launcherFrame)
{
    parts_.shell.showPasteHUD(launcherFrame, {},
                              mode_ == ProcessingMode::Notes
                                  ? tr("Cancelled. Your note is kept as you said it.")
                                  : tr("Cancelled. What you said is in the history, as you said it."));
}

/// Alerts come last because they take the keyboard focus.
void Dictation::end()
{
    if (isOver())
        return;
    keyboard_.end();
    ahead_.end();
    service_.reset();
    expectation_.reset();
    keepRest();
    awake_.reset();
    enter(State::over);
    parts_.recorder.setProcessingMode(ProcessingMode::Normal);
    const auto anchor = launcherFrame();
    closeLauncher();
    parts_.recorder.setBusy(false);
    parts_.shell.bringWindowsBack();
    if (isAgain_)
        parts_.shell.withdrawHUD();
    settleRecording(anchor);
    tellOfStoreProblem();
    over_.open();
}

/// What a recording that ends early has not handed over yet.
void Dictation::keepRest()
{
    const std::vector<float> rest = parts_.recorder.cancelRecording();
    if (owed_.recording && !owed_.recording->isFinished())
        owed_.recording->finish(rest);
}

void Dictation::settleRecording(std::optional<QRect> launcherFrame)
{
    const bool isLost = owed_.recording && owed_.recording->mayHoldSpeech() && fate_ >= Fate::failed;
    if (isLost && fate_ == Fate::failed) {
        parts_.recovery.offerFailed(owed_, notice_);
        return;
    }
    tellOfNotice();
    if (!isLost && owed_.recording && fate_ != Fate::handedOver)
        owed_.recording->discard();
    else if (isLost && fate_ == Fate::cancelled && isAgain_ && !owed_.isCancelled)
        parts_.recovery.keep(owed_);
    else if (isLost && fate_ == Fate::cancelled)
        parts_.recovery.offerCancelled(owed_, launcherFrame);
}

void Dictation::tellOfNotice()
{
    if (notice_.isEmpty())
        return;
    if (isUnrewritten_)
        parts_.shell.showRewritingFailure(notice_,
                                          [self = shared_from_this()](auto wanted) { self->bringAsSpoken(wanted); });
    else
        parts_.shell.showAlert(tr("Transcription Error"), notice_);
}

/// A recording that was too short to be one has not reached the engine.
void Dictation::tellOfSilence()
{
    if (state_ < State::transcribing)
        return;
    const auto anchor = launcherFrame();
    closeLauncher();
    parts_.shell.showPasteHUD(
        anchor, {},
        tr("Nothing was heard. Speak closer to the microphone, or choose another under Settings, Microphone."));
}

/// Long after the end, when the user has answered.
QCoro::Task<> Dictation::bringAsSpoken(Shell::AsSpoken wanted)
{
    const auto self = shared_from_this();
    parts_.delivery.returnTo(owed_.target.value_or(PasteDelivery::Target()));
    if (wanted == Shell::AsSpoken::paste)
        co_await paste(transcript_, std::nullopt);
    else
        copy(transcript_, std::nullopt);
}

void Dictation::tellOfStoreProblem()
{
    if (const auto problem = parts_.store.takeProblem()) {
        parts_.shell.showAlert(tr("Not in the History"),
                               tr("Your dictations are delivered but not stored: %1").arg(*problem));
    }
}

} // namespace vantro
