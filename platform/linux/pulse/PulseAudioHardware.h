#pragma once

#include "platform/AudioHardware.h"

namespace vantro {

class PulseConnection;

/// The sound server's microphones: id = PulseSource::id, stable while the program runs; uid = the source's name; name =
/// its description.
class PulseAudioHardware final : public AudioHardware
{
    Q_OBJECT
public:
    explicit PulseAudioHardware(PulseConnection& connection);

    [[nodiscard]] bool isReachable() override;
    [[nodiscard]] std::vector<AudioInputDevice> inputDevices() const override;
    [[nodiscard]] std::optional<AudioDeviceID> defaultInputDevice() const override;

private:
    void announceChange();

    PulseConnection& connection_;
    std::vector<AudioInputDevice> announcedDevices_;
    std::optional<AudioDeviceID> announcedDefault_;
};

} // namespace vantro
