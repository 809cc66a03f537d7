#pragma once

#include "platform/AudioEngine.h"

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace vantro {

/// An input device. `id` is stable within this run, `uid` across runs.
struct AudioInputDevice
{
    AudioDeviceID id = 0;
    QString uid;
    QString name;

    friend bool operator==(const AudioInputDevice&, const AudioInputDevice&) = default;
};

/// The machine's microphones, without loudspeaker monitors. Main thread only; reads from a cache that is updated in the
/// background, so calls do not block once the sound server has answered for the first time.
class AudioHardware : public QObject
{
    Q_OBJECT
public:
    /// Whether a sound server answers. Blocks for at most one second, only right after the program's start.
    [[nodiscard]] virtual bool isReachable() = 0;
    [[nodiscard]] virtual std::vector<AudioInputDevice> inputDevices() const = 0;
    /// nullopt if there is no microphone or the sound server does not answer.
    [[nodiscard]] virtual std::optional<AudioDeviceID> defaultInputDevice() const = 0;

Q_SIGNALS:
    /// A device was added, removed or changed, or the default changed.
    void devicesChanged();
};

} // namespace vantro
