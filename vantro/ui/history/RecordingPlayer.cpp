#include "vantro/ui/history/RecordingPlayer.h"

#include "base/SampleFormat.h"
#include "vantro/sound/AudioFile.h"

#include <QPointer>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vantro {

namespace {

constexpr std::chrono::milliseconds pulse{100};

} // namespace

RecordingPlayer::RecordingPlayer(KeptAudio& audio, SoundPlayer& player, HistoryChanges& changes)
    : audio_(audio)
    , player_(player)
    , changes_(changes)
{
    pulse_.setInterval(pulse);
    connect(&pulse_, &QTimer::timeout, this, &RecordingPlayer::changed);
    connect(&player_, &SoundPlayer::ended, this, &RecordingPlayer::ended);
    connect(&audio_, &KeptAudio::changed, this, &RecordingPlayer::look);
}

RecordingPlayer::~RecordingPlayer()
{
    player_.stop();
}

void RecordingPlayer::show(const QUuid& recording)
{
    if (std::exchange(recording_, recording) == recording)
        return;
    pause();
    from_ = 0;
    look();
}

/// A recording is written a moment after its dictation, and may be deleted before it.
void RecordingPlayer::look()
{
    const QString file = audio_.folder().file(recording_);
    if (file_ != file) {
        pause();
        file_ = file;
        duration_ = AudioFile::duration(file);
        samples_.reset();
    }
    Q_EMIT changed();
}

double RecordingPlayer::position() const
{
    return durationOf(isPlaying() ? player_.position() : from_).count();
}

void RecordingPlayer::toggle()
{
    if (isPlaying())
        pause();
    else if (exists())
        play();
}

void RecordingPlayer::pause()
{
    if (!isPlaying())
        return;
    player_.stop();
    pulse_.stop();
    from_ = player_.position();
    Q_EMIT changed();
}

void RecordingPlayer::seek(double seconds)
{
    const bool wasPlaying = isPlaying();
    from_ = static_cast<std::size_t>(std::clamp(seconds, 0.0, duration()) * sampleRateHz);
    if (wasPlaying)
        start();
    Q_EMIT changed();
}

QCoro::Task<> RecordingPlayer::play()
{
    const QPointer<RecordingPlayer> self(this);
    const QString file = file_;
    QString problem;
    if (!samples_) {
        std::vector<float> samples;
        try {
            const auto reading = reader_.run([file] { return AudioFile::read(file).samples; });
            samples = co_await reading;
        } catch (const Error& error) {
            problem = error.localizedDescription();
        }
        if (!self || file != file_)
            co_return;
        samples_ = std::move(samples);
    }
    changes_.setProblem(problem);
    if (!problem.isEmpty())
        samples_.reset();
    else if (!isPlaying())
        start();
}

void RecordingPlayer::start()
{
    if (from_ >= samples_->size())
        from_ = 0;
    pulse_.start();
    player_.play(*samples_, from_);
    Q_EMIT changed();
}

void RecordingPlayer::ended(const QString& problem)
{
    pulse_.stop();
    from_ = problem.isEmpty() ? 0 : player_.position();
    if (!problem.isEmpty())
        changes_.setProblem(problem);
    Q_EMIT changed();
}

QString RecordingPlayer::inWords(double seconds) const
{
    const int whole = static_cast<int>(std::floor(seconds));
    constexpr int perMinute = 60;
    return QStringLiteral("%1:%2").arg(whole / perMinute).arg(whole % perMinute, 2, 10, QLatin1Char('0'));
}

} // namespace vantro
