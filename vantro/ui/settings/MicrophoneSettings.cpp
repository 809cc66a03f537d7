#include "vantro/ui/settings/MicrophoneSettings.h"

#include "vantro/audio/AudioInputMode.h"

#include <algorithm>
#include <utility>

namespace vantro {

MicrophoneSettings::MicrophoneSettings(AudioEngineFactory makeEngine, AudioDeviceManager& devices, Clock& clock)
    : devices_(devices)
    , monitor_(std::move(makeEngine), devices, clock)
{
    connect(&monitor_, &MicrophoneMonitor::changed, this, &MicrophoneSettings::levelChanged);
    connect(&devices_, &AudioDeviceManager::availableDevicesChanged, this, &MicrophoneSettings::changed);
    connect(&devices_, &AudioDeviceManager::selectedDeviceIDChanged, this, &MicrophoneSettings::follow);
    connect(&devices_, &AudioDeviceManager::inputModeChanged, this, &MicrophoneSettings::follow);
    connect(&devices_, &AudioDeviceManager::prioritizedDevicesChanged, this, &MicrophoneSettings::follow);
}

/// Shows the level of the microphone that a dictation would use now.
void MicrophoneSettings::follow()
{
    if (monitor_.isRunning()) {
        monitor_.stop();
        monitor_.start();
    }
    Q_EMIT changed();
}

QStringList MicrophoneSettings::modes() const
{
    QStringList captions;
    for (const AudioInputMode mode : allAudioInputModes)
        captions << caption(mode);
    return captions;
}

void MicrophoneSettings::setMode(int mode)
{
    if (mode < 0 || mode >= static_cast<int>(allAudioInputModes.size()))
        return;
    devices_.setInputMode(allAudioInputModes.at(static_cast<std::size_t>(mode)));
    // The priority list starts with all connected microphones.
    if (devices_.inputMode() == AudioInputMode::prioritized) {
        for (const AudioInputDevice& device : std::vector(devices_.availableDevices()))
            devices_.addPrioritizedDevice(device);
    }
    Q_EMIT changed();
}

QStringList MicrophoneSettings::devices() const
{
    QStringList names;
    for (const AudioInputDevice& device : devices_.availableDevices())
        names << device.name;
    return names;
}

int MicrophoneSettings::device() const
{
    const auto& present = devices_.availableDevices();
    const auto found = std::ranges::find_if(
        present, [this](const AudioInputDevice& device) { return devices_.selectedDeviceID() == device.id; });
    return found != present.end() ? static_cast<int>(found - present.begin()) : -1;
}

void MicrophoneSettings::setDevice(int index)
{
    const auto& present = devices_.availableDevices();
    if (index >= 0 && index < static_cast<int>(present.size()))
        devices_.setSelectedDeviceID(present[static_cast<std::size_t>(index)].id);
}

QString MicrophoneSettings::inUse() const
{
    const QString name = devices_.effectiveDeviceName();
    return name.isEmpty() ? tr("No microphone is connected.") : tr("In use now: %1").arg(name);
}

QStringList MicrophoneSettings::order() const
{
    QStringList names;
    for (const PrioritizedDevice& device : devices_.priorityOrder())
        names << device.name;
    return names;
}

void MicrophoneSettings::prefer(int index)
{
    const auto order = devices_.priorityOrder();
    if (index > 0 && index < static_cast<int>(order.size()))
        devices_.movePrioritizedDevice(order[static_cast<std::size_t>(index)].id, static_cast<std::size_t>(index) - 1);
}

void MicrophoneSettings::setListening(bool listening)
{
    if (listening)
        monitor_.start();
    else
        monitor_.stop();
    Q_EMIT changed();
}

} // namespace vantro
