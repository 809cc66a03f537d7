#include "vantro/audio/HeadsetSwitch.h"

#include "base/Settings.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/AudioRecorder.h"

#include <algorithm>
#include <utility>

namespace vantro {

namespace {

bool isPresent(const QString& uid, const std::vector<AudioInputDevice>& present)
{
    return std::ranges::find(present, uid, &AudioInputDevice::uid) != present.end();
}

/// UIDs contain the address with colons or with underscores.
bool belongsTo(const QString& uid, const HeadsetCard& card)
{
    return !card.address.isEmpty() && QString(uid).replace(QLatin1Char(':'), QLatin1Char('_')).contains(card.address);
}

} // namespace

std::optional<HeadsetSwitch::Plan> HeadsetSwitch::plan(const std::vector<QString>& wanted,
                                                       const std::vector<AudioInputDevice>& present,
                                                       const std::vector<HeadsetCard>& cards)
{
    for (const QString& uid : wanted) {
        if (isPresent(uid, present))
            return std::nullopt;
        const auto card = std::ranges::find_if(cards, [&uid](const auto& c) { return belongsTo(uid, c); });
        if (card != cards.end() && !card->headsetProfile.isEmpty() && card->headsetProfile != card->activeProfile)
            return Plan{*card, uid};
    }
    return std::nullopt;
}

HeadsetSwitch::HeadsetSwitch(AudioCards& cards, AudioDeviceManager& devices, AudioRecorder& recorder,
                             const UserDefaults& defaults, Clock& clock)
    : cards_(cards)
    , devices_(devices)
    , recorder_(recorder)
    , defaults_(defaults)
    , clock_(clock)
{
    connect(&recorder_, &AudioRecorder::isRecordingChanged, this, &HeadsetSwitch::recordingChanged);
    connect(&devices_, &AudioDeviceManager::availableDevicesChanged, this, &HeadsetSwitch::devicesChanged);
}

HeadsetSwitch::~HeadsetSwitch()
{
    switchBack();
}

void HeadsetSwitch::recordingChanged()
{
    ++recordingCount_;
    if (recorder_.isRecording()) {
        begin();
        return;
    }
    isAwaited_ = false;
    if (switched_)
        clock_.callAfter(switchBackDelay, this, [this, count = recordingCount_] {
            if (count == recordingCount_)
                switchBack();
        });
}

void HeadsetSwitch::begin()
{
    // Still switched from the previous recording.
    if (switched_ || !defaults_.get(setting::bluetoothHeadsetProfile))
        return;
    const auto wanted = plan(devices_.wantedDevices(), devices_.availableDevices(), cards_.headsets());
    if (!wanted)
        return;
    logger_.info(QStringLiteral("Switching %1 to its headset profile while vantro records").arg(wanted->card.name));
    switched_ = wanted;
    isAwaited_ = true;
    recorder_.expectMicrophone();
    cards_.setProfile(wanted->card.uid, wanted->card.headsetProfile);
}

void HeadsetSwitch::devicesChanged()
{
    if (!isAwaited_ || !isPresent(switched_->microphone, devices_.availableDevices()))
        return;
    isAwaited_ = false;
    recorder_.useExpectedMicrophone();
}

void HeadsetSwitch::switchBack()
{
    if (const auto former = std::exchange(switched_, std::nullopt)) {
        logger_.info(QStringLiteral("Switching %1 back").arg(former->card.name));
        cards_.setProfile(former->card.uid, former->card.activeProfile);
    }
}

} // namespace vantro
