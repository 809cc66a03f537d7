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
/// through at once. Main thread only.
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

    void refreshAvailableDevices();
    void setInputMode(AudioInputMode mode);
    /// Nothing forgets the choice.
    void setSelectedDeviceID(std::optional<AudioDeviceID> device);
    void setPrioritizedDevices(const std::vector<PrioritizedDevice>& devices);

Q_SIGNALS:
    void availableDevicesChanged();
    void selectedDeviceIDChanged();
    void inputModeChanged();
    void prioritizedDevicesChanged();

private:
    [[nodiscard]] const AudioInputDevice* customDevice(const std::vector<AudioInputDevice>& present) const;
    [[nodiscard]] const AudioInputDevice* firstPrioritizedDevice(const std::vector<AudioInputDevice>& present) const;
    void followSelectedDevice();

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
