#include "vantro/app/HoldToTalk.h"

#include "base/Settings.h"
#include "base/testing/ManualClock.h"
#include "platform/KeyCode.h"
#include "platform/testing/FakeAudioEngine.h"
#include "platform/testing/FakeAudioHardware.h"
#include "platform/testing/FakeHotKeyManager.h"
#include "platform/testing/FakePermissions.h"
#include "tests/audio/FakeProcessing.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/AudioRecorder.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace std::chrono_literals;
using namespace vantro;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr doubles::FakeHotKeyManager::Combination ctrlAltD{2, Modifier::command | Modifier::option};
constexpr doubles::FakeHotKeyManager::Combination f9{101, 0};

class HoldToTalkTest : public ::testing::Test
{
protected:
    HoldToTalkTest()
    {
        hardware.setDevices({{.id = 1, .uid = QStringLiteral("mic"), .name = QStringLiteral("Mic")}}, 1);
        use(ctrlAltD);
        hold(true);
    }

    void hold(bool on) { defaults.set(setting::holdToTalk, on); }
    void use(doubles::FakeHotKeyManager::Combination keys)
    {
        shortcuts.setShortcut(KeyboardShortcuts::Name::openModal,
                              KeyboardShortcuts::Shortcut({keys.keyCode}, keys.modifiers));
    }
    void start(const char* how)
    {
        calls.emplace_back(how);
        recorder.startRecording();
    }

    doubles::ManualClock clock;
    NotificationCenter notifications;
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeAudioHardware hardware;
    AudioDeviceManager devices{hardware, defaults};
    doubles::FakePermissions permissions;
    doubles::FakeAudioEngines engines;
    vantro::testing::FakeProcessing processing{clock};
    AudioRecorder recorder{engines.factory(), devices, permissions, notifications, clock, processing};
    doubles::FakeHotKeyManager hotKeys;
    KeyboardShortcuts shortcuts{hotKeys, defaults, notifications};
    std::vector<std::string> calls;
    HoldToTalk holdToTalk{shortcuts,
                          recorder,
                          defaults,
                          clock,
                          {.open = [this] { start("open"); },
                           .openAside = [this] { start("aside"); },
                           .stop =
                               [this] {
                                   calls.emplace_back("stop");
                                   recorder.stopRecording();
                               },
                           .cancel =
                               [this] {
                                   calls.emplace_back("cancel");
                                   recorder.cancelDictation();
                               }}};
};

} // namespace

TEST_F(HoldToTalkTest, ByDefaultTheReleaseOpensTheLauncher)
{
    hold(false);
    hotKeys.press(ctrlAltD);
    EXPECT_THAT(calls, IsEmpty());
    hotKeys.release(ctrlAltD);
    EXPECT_THAT(calls, ElementsAre("open"));
}

TEST_F(HoldToTalkTest, RecordsWhileTheShortcutIsHeldAndForgetsATap)
{
    hotKeys.press(ctrlAltD);
    EXPECT_TRUE(recorder.isRecording());
    clock.advance(300ms);
    hotKeys.release(ctrlAltD);
    EXPECT_THAT(calls, ElementsAre("aside", "stop"));
    recorder.cancelDictation();

    calls.clear();
    hotKeys.press(ctrlAltD);
    clock.advance(299ms);
    hotKeys.release(ctrlAltD);
    EXPECT_THAT(calls, ElementsAre("aside", "cancel"));
    EXPECT_FALSE(recorder.isBusy());
}

TEST_F(HoldToTalkTest, APressDuringTheTranscriptionStartsNothingAndItsReleaseEndsNothing)
{
    hotKeys.press(ctrlAltD);
    clock.advance(2s);
    hotKeys.release(ctrlAltD);
    ASSERT_TRUE(recorder.isBusy());
    calls.clear();
    hotKeys.strike(ctrlAltD);
    EXPECT_THAT(calls, IsEmpty());
}

TEST_F(HoldToTalkTest, TheReleaseConcernsOnlyTheRecordingThatThePressHasStarted)
{
    hotKeys.press(ctrlAltD);
    clock.advance(2s);
    recorder.cancelRecording(); // "vantro cancel"
    recorder.startRecording();  // "vantro start"
    calls.clear();
    hotKeys.release(ctrlAltD);
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_TRUE(recorder.isRecording());
}

TEST_F(HoldToTalkTest, ARecordingNeverOutlivesItsShortcut)
{
    hotKeys.press(ctrlAltD);
    clock.advance(2s);
    use(f9); // its release will never be told
    EXPECT_THAT(calls, ElementsAre("aside", "stop"));
    recorder.cancelDictation();

    calls.clear();
    hotKeys.press(f9);
    clock.advance(2s);
    hotKeys.lose(f9, QStringLiteral("the display is gone"));
    EXPECT_THAT(calls, ElementsAre("aside", "stop"));
    recorder.cancelDictation();
}

TEST_F(HoldToTalkTest, TheSettingOfThePressCountsForItsRelease)
{
    hotKeys.press(ctrlAltD);
    clock.advance(1s);
    hold(false);
    hotKeys.release(ctrlAltD);
    EXPECT_THAT(calls, ElementsAre("aside", "stop"));
    recorder.cancelDictation();

    calls.clear();
    hotKeys.press(ctrlAltD);
    hold(true);
    hotKeys.release(ctrlAltD);
    EXPECT_THAT(calls, ElementsAre("open"));
}
