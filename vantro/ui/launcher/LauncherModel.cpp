#include "vantro/ui/launcher/LauncherModel.h"

#include "vantro/app/Dictation.h"
#include "vantro/ui/launcher/WaveformItem.h"

#include <algorithm>
#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto barDuration = 5000ms / WaveformItem::barCount;
constexpr auto silenceBeforeNotice = 3s;
/// A muted or dead input often hisses: -70 dBFS, on the scale of AmplitudeSmoother.
constexpr float silence = 0.0022F;
constexpr auto recordingCap = 600s;
constexpr auto countdownFrom = 540s;

} // namespace

LauncherModel::LauncherModel(Dictation& dictation, Clock& clock, std::vector<Mode> modes, QString microphone,
                             QString note)
    : dictation_(dictation)
    , recorder_(dictation.recorder())
    , clock_(clock)
    , modes_(std::move(modes))
    , microphone_(std::move(microphone))
    , openedAt_(clock.now())
    , lastHeardAt_(openedAt_)
    , stoppedAt_(openedAt_)
    , note_(std::move(note))
    , notice_(note_)
{
    connect(&recorder_, &AudioRecorder::currentAmplitudeChanged, this,
            [this] { loudestSinceTick_ = std::max(loudestSinceTick_, recorder_.currentAmplitude()); });
    connect(&recorder_, &AudioRecorder::processingModeChanged, this, &LauncherModel::chosenModeChanged);
    connect(&dictation, &Dictation::stateChanged, this, &LauncherModel::followState);
    connect(&dictation, &Dictation::transcriptionProgress, this, &LauncherModel::setProgress);
    connect(&dictation, &Dictation::understood, this, &LauncherModel::showWords);
    connect(&dictation, &Dictation::writing, this, &LauncherModel::showWords);
    connect(&dictation, &Dictation::modelFailed, this, [this] { setNotice(currentNotice()); });
    connect(&ticker_, &QTimer::timeout, this, &LauncherModel::tick);
    ticker_.start(barDuration);
}

QString LauncherModel::processingText() const
{
    if (rewriter_.isEmpty())
        return tr("Transcribing...");
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(clock_.now() - rewritingSince_).count();
    return seconds == 0 ? tr("Rewriting with %1...").arg(rewriter_)
                        : tr("Rewriting with %1... %2 s").arg(rewriter_).arg(seconds);
}

QList<qreal> LauncherModel::levels() const
{
    return {levels_.begin(), levels_.end()};
}

std::chrono::seconds LauncherModel::elapsed() const
{
    const auto until = processing_ ? stoppedAt_ : clock_.now();
    return std::chrono::duration_cast<std::chrono::seconds>(until - openedAt_);
}

QString LauncherModel::timeText() const
{
    const auto seconds = timeRunsOut() ? std::max(recordingCap - elapsed(), 0s) : elapsed();
    return QStringLiteral("%1:%2").arg(seconds / 60s).arg((seconds % 60s).count(), 2, 10, QLatin1Char('0'));
}

bool LauncherModel::timeRunsOut() const
{
    return elapsed() >= countdownFrom;
}

QStringList LauncherModel::modeNames() const
{
    QStringList names;
    for (const Mode& mode : modes_)
        names << mode.name;
    return names;
}

int LauncherModel::chosenMode() const
{
    const auto chosen = std::ranges::find(modes_, recorder_.processingMode(), &Mode::mode);
    return chosen != modes_.end() ? static_cast<int>(chosen - modes_.begin()) : -1;
}

void LauncherModel::setEndingHint(const QString& ending, const QString& cancel)
{
    endingHint_ = ending;
    cancelHint_ = cancel;
    Q_EMIT hintsChanged();
}

void LauncherModel::chooseMode(int index)
{
    if (!processing_ && index >= 0 && index < static_cast<int>(modes_.size()))
        recorder_.setProcessingMode(modes_[static_cast<std::size_t>(index)].mode);
}

void LauncherModel::setProgress(float fraction)
{
    if (static_cast<qreal>(fraction) <= progress_)
        return;
    progress_ = static_cast<qreal>(fraction);
    Q_EMIT progressChanged();
}

/// Not the final text: whoever speaks on changes it.
void LauncherModel::showWords(const QString& text)
{
    words_ = text.simplified();
    if (!words_.isEmpty())
        words_ += QStringLiteral(" \u2026");
    Q_EMIT wordsChanged();
}

/// A line that is full would say that nothing is to come any more.
void LauncherModel::followRewriting()
{
    const QString rewriter = dictation_.rewriter();
    if (rewriter == rewriter_)
        return;
    rewriter_ = rewriter;
    rewritingSince_ = clock_.now();
    // Without the keyboard it is a button alone.
    const QString hint = takesDigits_ ? tr("<Return> As spoken") : tr("As spoken");
    setEndingHint(rewriter_.isEmpty() ? QString() : hint, cancelHint_);
    Q_EMIT processingChanged();
    countRewriting();
}

void LauncherModel::countRewriting()
{
    if (!rewriter_.isEmpty())
        clock_.callAfter(1s, this, [this] {
            Q_EMIT processingChanged();
            countRewriting();
        });
}

void LauncherModel::followState()
{
    followRewriting();
    if (processing_ || dictation_.state() != Dictation::State::draining)
        return;
    stoppedAt_ = clock_.now();
    processing_ = true;
    ticker_.stop();
    setNotice({});
    Q_EMIT processingChanged();
}

void LauncherModel::tick()
{
    const float level = std::max(std::exchange(loudestSinceTick_, 0.0F), recorder_.currentAmplitude());
    const bool timeMoved =
        elapsed() != std::chrono::duration_cast<std::chrono::seconds>(clock_.now() - barDuration - openedAt_);
    levels_.push_back(static_cast<qreal>(level));
    if (levels_.size() > WaveformItem::barCount)
        levels_.pop_front();
    if (level > silence)
        lastHeardAt_ = clock_.now();
    setNotice(currentNotice());
    Q_EMIT levelsChanged();
    if (timeMoved)
        Q_EMIT timeChanged();
}

/// A model that cannot be loaded is worse than silence.
QString LauncherModel::currentNotice() const
{
    if (!dictation_.isModelUsable())
        return tr("The speech model cannot be loaded. What you say is kept.");
    if (recorder_.isStalled())
        return tr("%1 sends nothing any more. Trying again...").arg(microphone_);
    return clock_.now() - lastHeardAt_ >= silenceBeforeNotice ? tr("No sound from %1. Is it muted?").arg(microphone_)
                                                              : note_;
}

void LauncherModel::setNotice(const QString& notice)
{
    if (notice_ == notice)
        return;
    notice_ = notice;
    Q_EMIT noticeChanged();
}

} // namespace vantro
