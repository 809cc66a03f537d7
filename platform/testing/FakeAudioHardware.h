#pragma once

#include "platform/AudioHardware.h"

#include <utility>

namespace vantro::doubles {

/// Microphones that the test plugs in and out.
class FakeAudioHardware final : public AudioHardware
{
    Q_OBJECT
public:
    [[nodiscard]] bool isReachable() override { return true; }
    [[nodiscard]] std::vector<AudioInputDevice> inputDevices() const override { return devices_; }
    [[nodiscard]] std::optional<AudioDeviceID> defaultInputDevice() const override { return default_; }

    void setDevices(std::vector<AudioInputDevice> devices, std::optional<AudioDeviceID> defaultDevice)
    {
        devices_ = std::move(devices);
        default_ = defaultDevice;
        Q_EMIT devicesChanged();
    }

private:
    std::vector<AudioInputDevice> devices_;
    std::optional<AudioDeviceID> default_;
};

} // namespace vantro::doubles
