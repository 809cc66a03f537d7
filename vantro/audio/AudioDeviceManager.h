#pragma once

#include "platform/AudioHardware.h"
#include "vantro/audio/AudioInputMode.h"
#include "vantro/audio/PrioritizedDevice.h"

#include <QObject>

#include <optional>
#include <vector>

namespace vantro {

class UserDefaults;

/// The microphones that are there, the user's way of picking one, and the one to record from. Settings are written
/// through at once, and what another process writes ("vantro devices") is adopted. Main thread only.
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

    /// The device to record from; none means: the system's default, without selecting any. A chosen device that is
    /// unplugged, and in prioritized mode a list of which nothing is there, give the system default's number.
    [[nodiscard]] std::optional<AudioDeviceID> effectiveDeviceID() const;

    /// Of the device that would be recorded from now, the system's default included; empty when there is none.
    [[nodiscard]] QString effectiveDeviceName() const;

    /// The unique identifiers of the microphones that the user would record from, the most wanted first, whether they
    /// are there or not; empty when the system decides.
    [[nodiscard]] std::vector<QString> wantedDevices() const;

    void refreshAvailableDevices();
    void setInputMode(AudioInputMode mode);
    /// Nothing forgets the choice.
    void setSelectedDeviceID(std::optional<AudioDeviceID> device);
    void setPrioritizedDevices(const std::vector<PrioritizedDevice>& devices);

    /// The list in the order in which it is tried.
    [[nodiscard]] std::vector<PrioritizedDevice> priorityOrder() const;
    /// Puts a device behind all others; one that is listed stays where it is.
    void addPrioritizedDevice(const AudioInputDevice& device);
    void removePrioritizedDevice(const QString& uid);
    /// @p position counts from 0; behind the end means last.
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
    /// The selected device's unique identifier, by which it is found again when its number is another one in a later
    /// run.
    QString selectedUid_;
    AudioInputMode inputMode_ = AudioInputMode::systemDefault;
    std::vector<PrioritizedDevice> prioritizedDevices_;
};

} // namespace vantro
