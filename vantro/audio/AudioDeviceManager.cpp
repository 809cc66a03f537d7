#include "vantro/audio/AudioDeviceManager.h"

#include "base/Settings.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace vantro {

namespace {

std::optional<AudioDeviceID> storedDevice(const UserDefaults& defaults)
{
    const qint64 number = defaults.get(setting::selectedAudioDeviceID);
    if (number < 0 || number > std::numeric_limits<AudioDeviceID>::max())
        return std::nullopt;
    return static_cast<AudioDeviceID>(number);
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
{
    adoptSelectedDevice();
    adoptInputMode();
    adoptPrioritizedDevices();
    connect(&hardware_, &AudioHardware::devicesChanged, this, &AudioDeviceManager::refreshAvailableDevices);
    connect(&defaults_, &UserDefaults::changed, this, &AudioDeviceManager::adoptSetting);
}

void AudioDeviceManager::adoptSetting(const QString& key)
{
    if (key == setting::selectedAudioDeviceID.key || key == setting::selectedAudioDeviceUID.key)
        adoptSelectedDevice();
    else if (key == setting::audioInputMode.key)
        adoptInputMode();
    else if (key == setting::prioritizedDevices.key)
        adoptPrioritizedDevices();
}

void AudioDeviceManager::adoptSelectedDevice()
{
    const auto former = std::pair(selectedDeviceID_, selectedUid_);
    selectedDeviceID_ = storedDevice(defaults_);
    selectedUid_ = defaults_.get(setting::selectedAudioDeviceUID);
    // Device IDs are local to each process.
    if (const AudioInputDevice* const device = customDevice(availableDevices_))
        selectedDeviceID_ = device->id;
    if (former != std::pair(selectedDeviceID_, selectedUid_))
        Q_EMIT selectedDeviceIDChanged();
}

void AudioDeviceManager::adoptInputMode()
{
    inputMode_ =
        audioInputModeFromRawValue(defaults_.get(setting::audioInputMode)).value_or(AudioInputMode::systemDefault);
    Q_EMIT inputModeChanged();
}

void AudioDeviceManager::adoptPrioritizedDevices()
{
    prioritizedDevices_ = decodePrioritizedDevices(defaults_.get(setting::prioritizedDevices));
    Q_EMIT prioritizedDevicesChanged();
}

// Queries the hardware, because availableDevices_ may be one notification behind.
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
    // Without a stored UID, fall back to the ID.
    return selectedUid_.isEmpty() ? deviceWith(&AudioInputDevice::id, *selectedDeviceID_, present)
                                  : deviceWith(&AudioInputDevice::uid, selectedUid_, present);
}

const AudioInputDevice* AudioDeviceManager::firstPrioritizedDevice(const std::vector<AudioInputDevice>& present) const
{
    for (const PrioritizedDevice& wanted : priorityOrder()) {
        if (const AudioInputDevice* const device = deviceWith(&AudioInputDevice::uid, wanted.id, present))
            return device;
    }
    return nullptr;
}

QString AudioDeviceManager::effectiveDeviceName() const
{
    const auto chosen = effectiveDeviceID();
    const auto id = chosen ? chosen : hardware_.defaultInputDevice();
    const auto device =
        std::ranges::find_if(availableDevices_, [&](const auto& present) { return id == std::optional(present.id); });
    return device != availableDevices_.end() ? device->name : QString();
}

std::vector<QString> AudioDeviceManager::wantedDevices() const
{
    std::vector<QString> wanted;
    if (inputMode_ == AudioInputMode::custom && !selectedUid_.isEmpty())
        wanted.push_back(selectedUid_);
    if (inputMode_ == AudioInputMode::prioritized)
        std::ranges::transform(priorityOrder(), std::back_inserter(wanted), &PrioritizedDevice::id);
    return wanted;
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

// Not written back: IDs are local to this process, and every other process would correct it in turn.
void AudioDeviceManager::followSelectedDevice()
{
    const AudioInputDevice* const device = customDevice(availableDevices_);
    if (device == nullptr || device->id == selectedDeviceID_)
        return;
    selectedDeviceID_ = device->id;
    Q_EMIT selectedDeviceIDChanged();
}

void AudioDeviceManager::setInputMode(AudioInputMode mode)
{
    if (mode != inputMode_)
        defaults_.set(setting::audioInputMode, rawValue(mode));
}

void AudioDeviceManager::setSelectedDeviceID(std::optional<AudioDeviceID> device)
{
    const AudioInputDevice* const known =
        device ? deviceWith(&AudioInputDevice::id, *device, availableDevices_) : nullptr;
    const QString uid = known != nullptr ? known->uid : QString();
    if (device == selectedDeviceID_ && uid == selectedUid_)
        return;
    // The UID first: the ID is derived from it.
    if (uid.isEmpty())
        defaults_.remove(setting::selectedAudioDeviceUID.key);
    else
        defaults_.set(setting::selectedAudioDeviceUID, uid);
    if (device)
        defaults_.set(setting::selectedAudioDeviceID, *device);
    else
        defaults_.remove(setting::selectedAudioDeviceID.key);
}

void AudioDeviceManager::setPrioritizedDevices(const std::vector<PrioritizedDevice>& devices)
{
    if (devices != prioritizedDevices_)
        defaults_.set(setting::prioritizedDevices, encodePrioritizedDevices(devices));
}

std::vector<PrioritizedDevice> AudioDeviceManager::priorityOrder() const
{
    std::vector<PrioritizedDevice> order = prioritizedDevices_;
    std::ranges::stable_sort(order, {}, &PrioritizedDevice::priority);
    return order;
}

void AudioDeviceManager::setPriorityOrder(std::vector<PrioritizedDevice> order)
{
    int priority = 0;
    for (PrioritizedDevice& device : order)
        device.priority = ++priority;
    setPrioritizedDevices(order);
}

void AudioDeviceManager::addPrioritizedDevice(const AudioInputDevice& device)
{
    defaults_.change([&] {
        std::vector<PrioritizedDevice> order = priorityOrder();
        if (std::ranges::find(order, device.uid, &PrioritizedDevice::id) != order.end())
            return;
        order.push_back({.id = device.uid, .name = device.name});
        setPriorityOrder(std::move(order));
    });
}

void AudioDeviceManager::removePrioritizedDevice(const QString& uid)
{
    defaults_.change([&] {
        std::vector<PrioritizedDevice> order = priorityOrder();
        if (std::erase_if(order, [&uid](const auto& device) { return device.id == uid; }) > 0)
            setPriorityOrder(std::move(order));
    });
}

void AudioDeviceManager::movePrioritizedDevice(const QString& uid, std::size_t position)
{
    defaults_.change([&] {
        std::vector<PrioritizedDevice> order = priorityOrder();
        const auto found = std::ranges::find(order, uid, &PrioritizedDevice::id);
        if (found == order.end())
            return;
        PrioritizedDevice device = std::move(*found);
        order.erase(found);
        order.insert(order.begin() + static_cast<std::ptrdiff_t>(std::min(position, order.size())), std::move(device));
        setPriorityOrder(std::move(order));
    });
}

} // namespace vantro
