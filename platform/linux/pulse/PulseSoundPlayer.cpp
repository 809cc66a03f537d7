#include "platform/linux/pulse/PulseSoundPlayer.h"

#include "platform/Wording.h"
#include "platform/linux/pulse/PulseConnection.h"
#include "platform/linux/pulse/PulsePlayback.h"

#include <utility>

namespace vantro {

PulseSoundPlayer::PulseSoundPlayer(PulseConnection& connection) : connection_(connection), waker_([this] { look(); }) {}

PulseSoundPlayer::~PulseSoundPlayer() = default;

void PulseSoundPlayer::play(std::vector<float> samples, std::size_t from)
{
    playback_.reset();
    position_ = from;
    if (connection_.serverAnswers())
        playback_ =
            std::make_unique<PulsePlayback>(connection_.loop(), std::move(samples), from, [this] { waker_.wake(); });
    else
        Q_EMIT ended(wording::noSoundServer());
}

void PulseSoundPlayer::stop()
{
    position_ = position();
    playback_.reset();
}

std::size_t PulseSoundPlayer::position() const
{
    return playback_ ? playback_->position() : position_;
}

void PulseSoundPlayer::look()
{
    if (!playback_ || playback_->state() == PulsePlayback::State::Playing)
        return;
    const bool hasFailed = playback_->state() == PulsePlayback::State::Failed;
    stop();
    Q_EMIT ended(hasFailed ? tr("The sound server does not play the recording. Look at the sound settings.")
                           : QString());
}

} // namespace vantro
