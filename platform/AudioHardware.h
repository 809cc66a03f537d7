#pragma once

#include "platform/AudioEngine.h"

#include <QObject>
#include <QString>

#include <optional>
#include <vector>

namespace vantro {

/// Something to record from. `id` is stable while the program runs; `uid` is the same in every run.
struct AudioInputDevice
{
    AudioDeviceID id = 0;
    QString uid;
    QString name;

    friend bool operator==(const AudioInputDevice&, const AudioInputDevice&) = default;
};

/// The machine's microphones. Loudspeaker monitors are not listed. Main thread only; answers come from a copy that is
/// kept up to date in the background, so no call waits for the sound server once it has answered the first time.
class AudioHardware : public QObject
{
    Q_OBJECT
public:
    /// Whether there is a sound server that answers. Waits for it at most one second, right after the program's start.
    [[nodiscard]] virtual bool isReachable() = 0;
    [[nodiscard]] virtual std::vector<AudioInputDevice> inputDevices() const = 0;
    /// None when there is no microphone or the sound server does not answer.
    [[nodiscard]] virtual std::optional<AudioDeviceID> defaultInputDevice() const = 0;

Q_SIGNALS:
    /// A device came, went or changed, or the default changed.
    void devicesChanged();
};

} // namespace vantro
