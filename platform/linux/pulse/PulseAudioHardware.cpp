#include "platform/linux/pulse/PulseAudioHardware.h"

#include "platform/linux/pulse/PulseConnection.h"

#include <utility>

namespace vantro {

PulseAudioHardware::PulseAudioHardware(PulseConnection& connection)
    : connection_(connection)
    , announcedDevices_(inputDevices())
    , announcedDefault_(defaultInputDevice())
{
    connect(&connection_, &PulseConnection::updated, this, &PulseAudioHardware::announceChange);
}

bool PulseAudioHardware::isReachable()
{
    return connection_.serverAnswers();
}

std::vector<AudioInputDevice> PulseAudioHardware::inputDevices() const
{
    std::vector<AudioInputDevice> devices;
    for (const PulseSource* source : connection_.snapshot().microphones())
        devices.push_back({.id = source->id, .uid = source->name, .name = source->description});
    return devices;
}

std::optional<AudioDeviceID> PulseAudioHardware::defaultInputDevice() const
{
    const PulseSource* const source = connection_.snapshot().defaultMicrophone();
    return source != nullptr ? std::optional(source->id) : std::nullopt;
}

void PulseAudioHardware::announceChange()
{
    std::vector<AudioInputDevice> devices = inputDevices();
    const auto standard = defaultInputDevice();
    if (devices == announcedDevices_ && standard == announcedDefault_)
        return;
    announcedDevices_ = std::move(devices);
    announcedDefault_ = standard;
    Q_EMIT devicesChanged();
}

} // namespace vantro
