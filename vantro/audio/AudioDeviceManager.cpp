#include "vantro/audio/AudioDeviceManager.h"

#include "base/UserDefaults.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vantro {

namespace {

const QString modeKey = QStringLiteral("audioInputMode");
const QString deviceKey = QStringLiteral("selectedAudioDeviceID");
const QString deviceUidKey = QStringLiteral("selectedAudioDeviceUID");
const QString prioritiesKey = QStringLiteral("prioritizedDevices");

std::optional<AudioDeviceID> storedDevice(const UserDefaults& defaults)
{
    const auto number = defaults.integer(deviceKey);
    if (!number || *number < 0 || *number > std::numeric_limits<AudioDeviceID>::max())
        return std::nullopt;
    return static_cast<AudioDeviceID>(*number);
}

} // namespace

AudioDeviceManager::AudioDeviceManager(AudioHardware& hardware, UserDefaults& defaults)
    : hardware_(hardware)
    , defaults_(defaults)
    , availableDevices_(hardware.inputDevices())
    , selectedDeviceID_(storedDevice(defaults))
    , selectedUid_(defaults.string(deviceUidKey).value_or(QString()))
    , inputMode_(audioInputModeFromRawValue(defaults.string(modeKey).value_or(QString()))
                     .value_or(AudioInputMode::systemDefault))
    , prioritizedDevices_(decodePrioritizedDevices(defaults.data(prioritiesKey).value_or(QByteArray())))
{
    followSelectedDevice();
    connect(&hardware_, &AudioHardware::devicesChanged, this, &AudioDeviceManager::refreshAvailableDevices);
}

std::optional<AudioDeviceID> AudioDeviceManager::effectiveDeviceID() const
{
    switch (inputMode_) {
    case AudioInputMode::systemDefault:
        return std::nullopt;
    case AudioInputMode::custom:
        if (const auto device = customDeviceID())
            return device;
        break;
    case AudioInputMode::prioritized:
        if (const auto device = firstPrioritizedDeviceID())
            return device;
        break;
    }
    return hardware_.defaultInputDevice();
}

std::optional<AudioDeviceID> AudioDeviceManager::customDeviceID() const
{
    if (!selectedDeviceID_)
        return std::nullopt;
    const auto found = std::ranges::find(availableDevices_, *selectedDeviceID_, &AudioInputDevice::id);
    // Without a stored identifier the number is all there is to go by.
    const bool isTheOne = found != availableDevices_.end() && (selectedUid_.isEmpty() || found->uid == selectedUid_);
    return isTheOne ? selectedDeviceID_ : std::nullopt;
}

std::optional<AudioDeviceID> AudioDeviceManager::firstPrioritizedDeviceID() const
{
    std::vector<PrioritizedDevice> order = prioritizedDevices_;
    std::ranges::stable_sort(order, {}, &PrioritizedDevice::priority);
    for (const PrioritizedDevice& wanted : order) {
        if (const AudioInputDevice* const device = availableDevice(wanted.id))
            return device->id;
    }
    return std::nullopt;
}

const AudioInputDevice* AudioDeviceManager::availableDevice(const QString& uid) const
{
    const auto found = std::ranges::find(availableDevices_, uid, &AudioInputDevice::uid);
    return found != availableDevices_.end() ? &*found : nullptr;
}

void AudioDeviceManager::refreshAvailableDevices()
{
    std::vector<AudioInputDevice> devices = hardware_.inputDevices();
    if (devices == availableDevices_)
        return;
    availableDevices_ = std::move(devices);
    followSelectedDevice();
    Q_EMIT availableDevicesChanged();
}

void AudioDeviceManager::followSelectedDevice()
{
    const AudioInputDevice* const device = selectedUid_.isEmpty() ? nullptr : availableDevice(selectedUid_);
    if (device != nullptr && selectedDeviceID_ && device->id != *selectedDeviceID_)
        setSelectedDeviceID(device->id);
}

void AudioDeviceManager::setInputMode(AudioInputMode mode)
{
    if (mode == inputMode_)
        return;
    inputMode_ = mode;
    defaults_.setString(modeKey, rawValue(mode));
    Q_EMIT inputModeChanged();
}

void AudioDeviceManager::setSelectedDeviceID(std::optional<AudioDeviceID> device)
{
    const auto found =
        device ? std::ranges::find(availableDevices_, *device, &AudioInputDevice::id) : availableDevices_.end();
    const QString uid = found != availableDevices_.end() ? found->uid : QString();
    if (device == selectedDeviceID_ && uid == selectedUid_)
        return;
    selectedDeviceID_ = device;
    selectedUid_ = uid;
    if (device)
        defaults_.setInteger(deviceKey, *device);
    else
        defaults_.remove(deviceKey);
    if (uid.isEmpty())
        defaults_.remove(deviceUidKey);
    else
        defaults_.setString(deviceUidKey, uid);
    Q_EMIT selectedDeviceIDChanged();
}

void AudioDeviceManager::setPrioritizedDevices(const std::vector<PrioritizedDevice>& devices)
{
    if (devices == prioritizedDevices_)
        return;
    prioritizedDevices_ = devices;
    defaults_.setData(prioritiesKey, encodePrioritizedDevices(devices));
    Q_EMIT prioritizedDevicesChanged();
}

} // namespace vantro
