#pragma once

#include "platform/AudioHardware.h"
#include "vantro/audio/AudioInputMode.h"
#include "vantro/audio/PrioritizedDevice.h"

#include <QObject>

#include <optional>
#include <vector>

namespace vantro {

class UserDefaults;

/// The available microphones, the user's choice, and the device to record from. Setters write through to the settings,
/// and changes by other processes ("vantro devices") are adopted. Main thread only.
class AudioDeviceManager : public QObject
{
    Q_OBJECT
public:
    AudioDeviceManager(AudioHardware& hardware, UserDefaults& defaults);

    /// In the system's order.
    [[nodiscard]] const std::vector<AudioInputDevice>& availableDevices() const { return availableDevices_; }
    [[nodiscard]] std::optional<AudioDeviceID> selectedDeviceID() const { return selectedDeviceID_; }
    [[nodiscard]] AudioInputMode inputMode() const { return inputMode_; }
    [[nodiscard]] const std::vector<PrioritizedDevice>& prioritizedDevices() const { return prioritizedDevices_; }

    /// The device to record from; nullopt means the system default, without an explicit selection. Falls back to the
    /// system default's ID when the chosen device, or every prioritized one, is unplugged.
    [[nodiscard]] std::optional<AudioDeviceID> effectiveDeviceID() const;

    /// Name of the device that a recording would use now, system default included; empty if there is none.
    [[nodiscard]] QString effectiveDeviceName() const;

    /// The UIDs of the microphones that the user prefers, most preferred first, whether present or not; empty when the
    /// system decides.
    [[nodiscard]] std::vector<QString> wantedDevices() const;

    void refreshAvailableDevices();
    void setInputMode(AudioInputMode mode);
    /// nullopt clears the selection.
    void setSelectedDeviceID(std::optional<AudioDeviceID> device);
    void setPrioritizedDevices(const std::vector<PrioritizedDevice>& devices);

    /// Sorted by priority.
    [[nodiscard]] std::vector<PrioritizedDevice> priorityOrder() const;
    /// Appends a device; no-op if it is already listed.
    void addPrioritizedDevice(const AudioInputDevice& device);
    void removePrioritizedDevice(const QString& uid);
    /// @p position is zero-based and clamped to the end.
    void movePrioritizedDevice(const QString& uid, std::size_t position);

Q_SIGNALS:
    void availableDevicesChanged();
    void selectedDeviceIDChanged();
    void inputModeChanged();
    void prioritizedDevicesChanged();

private:
    [[nodiscard]] const AudioInputDevice* customDevice(const std::vector<AudioInputDevice>& present) const;
    [[nodiscard]] const AudioInputDevice* firstPrioritizedDevice(const std::vector<AudioInputDevice>& present) const;
    void followSelectedDevice();
    void adoptSetting(const QString& key);
    void adoptSelectedDevice();
    void adoptInputMode();
    void adoptPrioritizedDevices();
    void setPriorityOrder(std::vector<PrioritizedDevice> order);

    AudioHardware& hardware_;
    UserDefaults& defaults_;
    std::vector<AudioInputDevice> availableDevices_;
    std::optional<AudioDeviceID> selectedDeviceID_;
    /// The selected device's UID, which is stable across runs, unlike its ID.
    QString selectedUid_;
    AudioInputMode inputMode_ = AudioInputMode::systemDefault;
    std::vector<PrioritizedDevice> prioritizedDevices_;
};

} // namespace vantro
