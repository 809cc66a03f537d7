#pragma once

#include "base/Clock.h"
#include "base/Logger.h"
#include "platform/AudioCards.h"
#include "platform/AudioHardware.h"

#include <QObject>

#include <chrono>
#include <optional>
#include <vector>

namespace vantro {

class AudioDeviceManager;
class AudioRecorder;
class UserDefaults;

/// While recording, switches a preferred Bluetooth headset from a playback-only profile to its headset profile. Only if
/// "bluetoothHeadsetProfile" is set, because playback drops to telephone quality meanwhile. Until the headset's
/// microphone appears, the recording uses the current one. Main thread.
class HeadsetSwitch : public QObject
{
    Q_OBJECT
public:
    /// Delay after the recording, so that its last block is not cut off.
    static constexpr std::chrono::milliseconds switchBackDelay{300};

    struct Plan
    {
        HeadsetCard card;
        /// UID of the microphone that should appear.
        QString microphone;
    };

    /// What to switch: the headset of the first of @p wanted (UIDs, most preferred first) that has one; nothing if that
    /// microphone or a more preferred one is present.
    static std::optional<Plan> plan(const std::vector<QString>& wanted, const std::vector<AudioInputDevice>& present,
                                    const std::vector<HeadsetCard>& cards);

    /// Everything must outlive this object.
    HeadsetSwitch(AudioCards& cards, AudioDeviceManager& devices, AudioRecorder& recorder, const UserDefaults& defaults,
                  Clock& clock);
    /// Switches the headset back.
    ~HeadsetSwitch() override;

private:
    void recordingChanged();
    void begin();
    void devicesChanged();
    void switchBack();

    Logger logger_{"HeadsetSwitch"};
    AudioCards& cards_;
    AudioDeviceManager& devices_;
    AudioRecorder& recorder_;
    const UserDefaults& defaults_;
    Clock& clock_;
    /// The switched headset with its previous profile.
    std::optional<Plan> switched_;
    /// Its microphone has not appeared yet.
    bool isAwaited_ = false;
    std::uint64_t recordingCount_ = 0;
};

} // namespace vantro
