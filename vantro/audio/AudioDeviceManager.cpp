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

template <typename Member, typename Value>
const AudioInputDevice* deviceWith(Member member, const Value& value, const std::vector<AudioInputDevice>& devices)
{
    const auto found = std::ranges::find(devices, value, member);
    return found != devices.end() ? &*found : nullptr;
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

// Asks the hardware itself: the list that is shown may be an announcement behind.
std::optional<AudioDeviceID> AudioDeviceManager::effectiveDeviceID() const
{
    if (inputMode_ == AudioInputMode::systemDefault)
        return std::nullopt;
    const std::vector<AudioInputDevice> present = hardware_.inputDevices();
    const AudioInputDevice* const device =
        inputMode_ == AudioInputMode::custom ? customDevice(present) : firstPrioritizedDevice(present);
    return device != nullptr ? std::optional(device->id) : hardware_.defaultInputDevice();
}

const AudioInputDevice* AudioDeviceManager::customDevice(const std::vector<AudioInputDevice>& present) const
{
    if (!selectedDeviceID_)
        return nullptr;
    // Without a stored identifier the number is all there is to go by.
    return selectedUid_.isEmpty() ? deviceWith(&AudioInputDevice::id, *selectedDeviceID_, present)
                                  : deviceWith(&AudioInputDevice::uid, selectedUid_, present);
}

const AudioInputDevice* AudioDeviceManager::firstPrioritizedDevice(const std::vector<AudioInputDevice>& present) const
{
    std::vector<PrioritizedDevice> order = prioritizedDevices_;
    std::ranges::stable_sort(order, {}, &PrioritizedDevice::priority);
    for (const PrioritizedDevice& wanted : order) {
        if (const AudioInputDevice* const device = deviceWith(&AudioInputDevice::uid, wanted.id, present))
            return device;
    }
    return nullptr;
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
    const AudioInputDevice* const device = customDevice(availableDevices_);
    if (device != nullptr && device->id != selectedDeviceID_)
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
    const AudioInputDevice* const known =
        device ? deviceWith(&AudioInputDevice::id, *device, availableDevices_) : nullptr;
    const QString uid = known != nullptr ? known->uid : QString();
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
