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

/// Switches a Bluetooth headset that the user wants to record from, and that plays music in a profile without a
/// microphone, to its headset profile while a recording runs, and back afterwards. Only when the setting
/// "bluetoothHeadsetProfile" is on: what plays on the headset sounds like a telephone meanwhile. Until the headset's
/// microphone is there the recording runs with the one that is. Main thread.
class HeadsetSwitch : public QObject
{
    Q_OBJECT
public:
    /// After the recording, so that its last block is not cut off.
    static constexpr std::chrono::milliseconds switchBackDelay{300};

    struct Plan
    {
        HeadsetCard card;
        /// The wanted microphone that the switch is to bring.
        QString microphone;
    };

    /// Which headset to switch: the one of the first wanted microphone, unless that microphone, or one that is wanted
    /// more, is there.
    static std::optional<Plan> plan(const std::vector<QString>& wanted, const std::vector<AudioInputDevice>& present,
                                    const std::vector<HeadsetCard>& cards);

    /// Everything outlives this object.
    HeadsetSwitch(AudioCards& cards, AudioDeviceManager& devices, AudioRecorder& recorder, const UserDefaults& defaults,
                  Clock& clock);
    /// A headset that is still switched is switched back.
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
    /// What was switched, with the profile that it had.
    std::optional<Plan> switched_;
    /// Its microphone is not there yet.
    bool isAwaited_ = false;
    std::uint64_t recordingCount_ = 0;
};

} // namespace vantro
