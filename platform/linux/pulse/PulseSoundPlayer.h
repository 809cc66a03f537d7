#pragma once

#include "base/ThreadWaker.h"
#include "platform/SoundPlayer.h"

#include <memory>

namespace vantro {

class PulseConnection;
class PulsePlayback;

/// Plays through the program's connection to the sound server.
class PulseSoundPlayer final : public SoundPlayer
{
    Q_OBJECT
public:
    /// @p connection must outlive this object.
    explicit PulseSoundPlayer(PulseConnection& connection);
    ~PulseSoundPlayer() override;

    void play(std::vector<float> samples, std::size_t from) override;
    void stop() override;
    [[nodiscard]] bool isPlaying() const override { return playback_ != nullptr; }
    [[nodiscard]] std::size_t position() const override;

private:
    void look();

    PulseConnection& connection_;
    std::size_t position_ = 0; ///< where the last one ended
    ThreadWaker waker_;
    std::unique_ptr<PulsePlayback> playback_; ///< last: its thread calls the waker
};

} // namespace vantro
