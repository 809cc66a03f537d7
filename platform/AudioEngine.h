#pragma once

#include "base/Error.h"

#include <QObject>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace vantro {

using AudioDeviceID = std::uint32_t;

/// 32-bit float, non-interleaved.
struct AudioFormat
{
    double sampleRateHz = 0;
    std::uint32_t channelCount = 0;

    /// Whether it is a valid recording format.
    [[nodiscard]] bool isUsable() const { return sampleRateHz > 0 && channelCount > 0; }
    friend bool operator==(const AudioFormat&, const AudioFormat&) = default;
};

/// A block of audio, valid only during the tap call.
class AudioTapBuffer
{
public:
    AudioTapBuffer(std::span<const float* const> channels, std::size_t frameLength)
        : channels_(channels)
        , frameLength_(frameLength)
    {
    }

    [[nodiscard]] std::size_t channelCount() const { return channels_.size(); }
    [[nodiscard]] std::size_t frameLength() const { return frameLength_; }
    [[nodiscard]] std::span<const float> channel(std::size_t index) const { return {channels_[index], frameLength_}; }

private:
    std::span<const float* const> channels_;
    std::size_t frameLength_;
};

class AudioEngineError : public Error
{
public:
    using Error::Error;
};

/// Captures from one input device for a single session. All calls on the main thread; the tap is called on the system's
/// audio thread, never after removeTap() or stop() has returned.
class AudioEngine : public QObject
{
    Q_OBJECT
public:
    /// Called on the audio thread with blocks of exactly the requested number of frames; the last one, delivered during
    /// stop(), may be shorter.
    using Tap = std::function<void(const AudioTapBuffer&)>;

    /// Selects @p device instead of the system's default input. Throws AudioEngineError and stays on the default if
    /// that fails. After a successful selection, the engine emits exactly one configurationChanged() of its own once it
    /// runs.
    virtual void selectInputDevice(AudioDeviceID device) = 0;

    /// The selected device's native format; nullopt if none is selected or it is unknown.
    [[nodiscard]] virtual std::optional<AudioFormat> deviceFormat() const = 0;
    /// The default input's native format. A common format if there is no microphone, so that start() can report that;
    /// not usable if the format cannot be determined.
    [[nodiscard]] virtual AudioFormat inputFormat() const = 0;

    virtual void installTap(std::size_t blockFrames, AudioFormat format, Tap tap) = 0;
    virtual void removeTap() = 0;

    /// Returns once audio is flowing. Throws AudioEngineError with a sentence for the user. Never opens a loudspeaker
    /// monitor in place of a microphone.
    virtual void start() = 0;
    /// Delivers the remaining audio to the tap, then ends the capture. A no-op when not running.
    virtual void stop() = 0;
    /// True from a successful start() until stop(), even if the device fails in between.
    [[nodiscard]] virtual bool isRunning() const = 0;
    /// Says that no blocks have come for a while. If the sound system answers, so that only this capture is dead,
    /// configurationChanged() follows. Returns at once.
    virtual void reportStall() = 0;

Q_SIGNALS:
    /// The device was lost, moved, suspended or changed, the default input changed while in use, a stalled capture has
    /// to be made anew, or selectInputDevice() took effect. Emitted on the main thread; a slot may destroy the engine.
    void configurationChanged();
};

using AudioEngineFactory = std::function<std::unique_ptr<AudioEngine>()>;

} // namespace vantro
