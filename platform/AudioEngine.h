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

    /// Whether anything can be recorded in it.
    [[nodiscard]] bool isUsable() const { return sampleRateHz > 0 && channelCount > 0; }
    friend bool operator==(const AudioFormat&, const AudioFormat&) = default;
};

/// One block from the microphone, valid during the tap call only.
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

/// Captures from one input device. Made for one session and thrown away after it. All calls on the main thread; the tap
/// is called on the system's audio thread, never after removeTap() or stop() has returned.
class AudioEngine : public QObject
{
    Q_OBJECT
public:
    /// Called on the audio thread with blocks of exactly the agreed number of frames (the last one, delivered while
    /// stop() runs, may be shorter).
    using Tap = std::function<void(const AudioTapBuffer&)>;

    /// Records from @p device instead of the system's default input. Throws AudioEngineError when that cannot be done;
    /// the engine then stays on the default. After a successful selection the engine announces exactly one
    /// configurationChanged() of its own making, once it runs.
    virtual void selectInputDevice(AudioDeviceID device) = 0;

    /// The selected device's own stream format; nothing when none is selected or it cannot be read.
    [[nodiscard]] virtual std::optional<AudioFormat> deviceFormat() const = 0;
    /// The format the input node delivers when left alone. Without any microphone a usual one, so that start() is
    /// reached and can say why there is no sound; not usable when the format cannot be told.
    [[nodiscard]] virtual AudioFormat inputFormat() const = 0;

    virtual void installTap(std::size_t blockFrames, AudioFormat format, Tap tap) = 0;
    virtual void removeTap() = 0;

    /// Returns once sound is on its way. Throws AudioEngineError with a sentence for the user. A loudspeaker's monitor
    /// is never opened in a microphone's place.
    virtual void start() = 0;
    /// Delivers what was captured until now to the tap, then ends the capture. Does nothing when not running.
    virtual void stop() = 0;
    /// True from a successful start() until stop(), also when the device has died in between.
    [[nodiscard]] virtual bool isRunning() const = 0;

Q_SIGNALS:
    /// The device was lost, moved, suspended or changed, the default input changed under an engine that follows it, or
    /// the echo of selectInputDevice(). Emitted on the main thread; a slot may destroy the engine.
    void configurationChanged();
};

using AudioEngineFactory = std::function<std::unique_ptr<AudioEngine>()>;

} // namespace vantro
