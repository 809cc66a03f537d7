#include "platform/linux/pulse/PulseAudioHardware.h"

#include "platform/linux/pulse/PulseConnection.h"

#include <utility>

namespace vantro {

PulseAudioHardware::PulseAudioHardware(PulseConnection& connection) : connection_(connection)
{
    connect(&connection_, &PulseConnection::updated, this, &PulseAudioHardware::update);
    update();
}

void PulseAudioHardware::update()
{
    const PulseSnapshot& snapshot = connection_.snapshot();
    std::vector<AudioInputDevice> devices;
    for (const PulseSource* source : snapshot.microphones())
        devices.push_back({.id = source->id, .uid = source->name, .name = source->description});
    const PulseSource* const standard = snapshot.defaultMicrophone();
    const auto standardId = standard != nullptr ? std::optional(standard->id) : std::nullopt;
    if (devices == devices_ && standardId == default_)
        return;
    devices_ = std::move(devices);
    default_ = standardId;
    Q_EMIT devicesChanged();
}

} // namespace vantro
