#include "vantro/audio/HeadsetSwitch.h"

#include "base/Settings.h"
#include "base/UserDefaults.h"
#include "base/testing/ManualClock.h"
#include "platform/testing/FakeAudioCards.h"
#include "platform/testing/FakeAudioEngine.h"
#include "platform/testing/FakeAudioHardware.h"
#include "platform/testing/FakePermissions.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/AudioRecorder.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace vantro;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

const QString music = QStringLiteral("a2dp-sink");
const QString telephone = QStringLiteral("headset-head-unit");
const QString cardUid = QStringLiteral("bluez_card.AA_BB");
const AudioInputDevice builtIn{.id = 1, .uid = QStringLiteral("built-in"), .name = QStringLiteral("Built-in")};
const AudioInputDevice headset{
    .id = 2, .uid = QStringLiteral("bluez_input.AA:BB.0"), .name = QStringLiteral("Headphones")};

HeadsetCard card(const QString& active)
{
    return {.uid = cardUid,
            .name = QStringLiteral("Headphones"),
            .address = QStringLiteral("AA_BB"),
            .activeProfile = active,
            .headsetProfile = telephone};
}

class HeadsetSwitchTest : public ::testing::Test
{
protected:
    HeadsetSwitchTest()
    {
        cards.cards = {card(music)};
        hardware.setDevices({builtIn, headset}, builtIn.id);
        devices.addPrioritizedDevice(headset);
        devices.setInputMode(AudioInputMode::prioritized);
        hardware.setDevices({builtIn}, builtIn.id);
        defaults.set(setting::bluetoothHeadsetProfile, true);
    }

    doubles::ManualClock clock;
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeAudioHardware hardware;
    doubles::FakeAudioCards cards;
    AudioDeviceManager devices{hardware, defaults};
    doubles::FakePermissions permissions;
    doubles::FakeAudioEngines engines;
    AudioRecorder recorder{engines.factory(), devices, permissions, clock};
    std::optional<HeadsetSwitch> headsets{std::in_place, cards, devices, recorder, defaults, clock};
};

} // namespace

TEST(HeadsetPlan, SwitchesOnlyAHeadsetThatIsWantedMoreThanWhatIsThere)
{
    const std::vector<AudioInputDevice> present{builtIn};
    const auto plan = HeadsetSwitch::plan({headset.uid, builtIn.uid}, present, {card(music)});
    ASSERT_TRUE(plan);
    EXPECT_EQ(plan->microphone, headset.uid);
    EXPECT_EQ(plan->card.uid, cardUid);

    EXPECT_FALSE(HeadsetSwitch::plan({}, present, {card(music)})) << "the system decides";
    EXPECT_FALSE(HeadsetSwitch::plan({builtIn.uid, headset.uid}, present, {card(music)}));
    EXPECT_FALSE(HeadsetSwitch::plan({headset.uid}, {headset}, {card(telephone)})) << "its microphone is there";
    EXPECT_FALSE(HeadsetSwitch::plan({headset.uid}, present, {card(telephone)})) << "it is switched already";
    EXPECT_FALSE(HeadsetSwitch::plan({QStringLiteral("bluez_input.CC:DD.0")}, present, {card(music)}));
    HeadsetCard onlyMusic = card(music);
    onlyMusic.headsetProfile.clear();
    EXPECT_FALSE(HeadsetSwitch::plan({headset.uid}, present, {onlyMusic}));
}

TEST_F(HeadsetSwitchTest, RecordsWithWhatIsThereUntilTheHeadsetIsAndSwitchesBackAfterTheLastBlock)
{
    EXPECT_TRUE(recorder.startRecording());
    EXPECT_THAT(cards.asked, ElementsAre(Pair(cardUid, telephone)));
    ASSERT_NE(engines.current(), nullptr);
    EXPECT_EQ(engines.current()->selectedDevice(), builtIn.id);
    engines.current()->hear(4'800, 0.1F);
    hardware.setDevices({builtIn, headset}, builtIn.id);
    EXPECT_EQ(engines.current()->selectedDevice(), headset.id);
    EXPECT_EQ(engines.madeCount(), 2);
    hardware.setDevices({builtIn, headset}, headset.id);
    EXPECT_EQ(engines.madeCount(), 2);

    recorder.stopRecording();
    clock.advance(AudioRecorder::drainDelay);
    EXPECT_FALSE(recorder.takeSamples().empty());
    EXPECT_EQ(cards.asked.size(), 1U) << "the last word is still on its way";
    clock.advance(HeadsetSwitch::switchBackDelay);
    EXPECT_THAT(cards.asked, ElementsAre(Pair(cardUid, telephone), Pair(cardUid, music)));
}

TEST_F(HeadsetSwitchTest, WithoutAnyOtherMicrophoneTheRecordingWaitsForTheHeadset)
{
    hardware.setDevices({}, std::nullopt);
    engines.settings.startError = QStringLiteral("No microphone");
    EXPECT_TRUE(recorder.startRecording());
    clock.advance(AudioRecorder::expectedMicrophonePatience - 1ms);
    engines.settings.startError.reset();
    hardware.setDevices({headset}, headset.id);
    ASSERT_NE(engines.current(), nullptr);
    EXPECT_TRUE(engines.current()->isRunning());
    EXPECT_TRUE(recorder.isRecording());

    recorder.cancelRecording();
    engines.settings.startError = QStringLiteral("No microphone");
    clock.advance(HeadsetSwitch::switchBackDelay);
    hardware.setDevices({}, std::nullopt);
    EXPECT_TRUE(recorder.startRecording());
    clock.advance(AudioRecorder::expectedMicrophonePatience);
    EXPECT_TRUE(recorder.lostCapture()) << "it never came";
}

TEST_F(HeadsetSwitchTest, LeavesTheHeadsetAloneUnlessTheUserWantsItAndNeverLeavesItSwitched)
{
    defaults.set(setting::bluetoothHeadsetProfile, false);
    EXPECT_TRUE(recorder.startRecording());
    EXPECT_THAT(cards.asked, IsEmpty());
    recorder.cancelRecording();

    defaults.set(setting::bluetoothHeadsetProfile, true);
    EXPECT_TRUE(recorder.startRecording());
    recorder.cancelRecording();
    EXPECT_TRUE(recorder.startRecording()); // before it was switched back
    clock.advance(HeadsetSwitch::switchBackDelay);
    EXPECT_EQ(cards.asked.size(), 1U) << "the second recording needs it too";
    headsets.reset(); // the program ends
    EXPECT_THAT(cards.asked, ElementsAre(Pair(cardUid, telephone), Pair(cardUid, music)));
}
