#pragma once

#include "base/UserDefaults.h"
#include "platform/Platform.h"
#include "vantro/audio/AudioDeviceManager.h"

namespace vantro {

/// What the device commands work on.
struct DevicesSession
{
    /// The device that a dictation would record from now; null if none.
    [[nodiscard]] const AudioInputDevice* used() const;
    [[nodiscard]] bool isDefault(const AudioInputDevice& device) const;
    /// The position in the priority list, from 1; 0 for a device that is not in it.
    [[nodiscard]] int rank(const QString& uid) const;

    UserDefaults defaults{UserDefaults::standardPath()};
    Platform sound = makePlatform(PlatformPart::microphones);
    /// Before the manager, whose constructor looks at the devices.
    bool isReachable = sound.audioHardware->isReachable();
    AudioDeviceManager devices{*sound.audioHardware, defaults};
    bool json = false;
};

/// "vantro devices list".
int listDevices(const DevicesSession& session);
/// "vantro devices watch": prints the list whenever it changes, until Ctrl-C.
int watchDevices(DevicesSession& session);

} // namespace vantro
