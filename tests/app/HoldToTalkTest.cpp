// The two ways to use the shortcut.
#include "tests/app/DictationFixture.h"

using namespace vantro;

namespace {

constexpr doubles::FakeHotKeyManager::Combination f9{101, 0};

class HoldToTalkTest : public DictationTest
{
protected:
    HoldToTalkTest() { hold(true); }

    void hold(bool on) { defaults.set(setting::holdToTalk, on); }
    void press(std::chrono::milliseconds duration)
    {
        hotKeys.press(keys);
        clock.advance(duration);
    }
    [[nodiscard]] bool isProcessing() const { return recorder.isBusy() && !recorder.isRecording(); }
    void finish()
    {
        delegate.cancelDictation();
        pump();
    }
};

} // namespace

TEST_F(HoldToTalkTest, ByDefaultTheReleaseOpensTheLauncherWhichTakesTheKeyboard)
{
    hold(false);
    hotKeys.press(keys);
    EXPECT_FALSE(recorder.isRecording());
    hotKeys.release(keys);
    EXPECT_TRUE(recorder.isRecording());
    EXPECT_NE(workspace.frontWindow(), editor);
}

TEST_F(HoldToTalkTest, RecordsWhileTheShortcutIsHeldAndForgetsATap)
{
    press(300ms);
    EXPECT_TRUE(recorder.isRecording());
    EXPECT_EQ(workspace.frontWindow(), editor) << "the keyboard stays where it is";
    hotKeys.release(keys);
    EXPECT_TRUE(isProcessing());
    finish();

    press(299ms);
    hotKeys.release(keys);
    EXPECT_FALSE(recorder.isBusy());
}

TEST_F(HoldToTalkTest, APressDuringTheTranscriptionStartsNothingAndItsReleaseEndsNothing)
{
    press(2s);
    hotKeys.release(keys);
    ASSERT_TRUE(isProcessing());
    hotKeys.strike(keys);
    EXPECT_TRUE(isProcessing());
    EXPECT_EQ(engines.madeCount(), 1);
}

TEST_F(HoldToTalkTest, TheReleaseConcernsOnlyTheRecordingThatThePressHasStarted)
{
    press(2s);
    delegate.cancelDictation();       // "vantro cancel"
    delegate.showLauncherAndRecord(); // "vantro start"
    hotKeys.release(keys);
    EXPECT_TRUE(recorder.isRecording());
}

TEST_F(HoldToTalkTest, ARecordingNeverOutlivesItsShortcut)
{
    press(2s);
    shortcuts.setShortcut(KeyboardShortcuts::Name::openModal, KeyboardShortcuts::Shortcut({f9.keyCode}, f9.modifiers));
    EXPECT_TRUE(isProcessing()) << "the release would never be told";
    finish();

    hotKeys.press(f9);
    clock.advance(2s);
    hotKeys.lose(f9, QStringLiteral("the display is gone"));
    EXPECT_TRUE(isProcessing());
}

TEST_F(HoldToTalkTest, AHoldAfterACancelIsANewRecording)
{
    press(1s);
    speak(16'000);
    delegate.cancelDictation();
    hotKeys.release(keys);
    ASSERT_TRUE(shell.undo);
    press(1s);
    EXPECT_TRUE(recorder.isRecording());
    EXPECT_FALSE(shell.undo) << "the one before is given up with it";
}

TEST_F(HoldToTalkTest, TheProgramMayEndWhileTheShortcutIsHeld)
{
    auto held = std::make_unique<HoldToTalk>(
        shortcuts, defaults, clock, [this](auto keyboard) { return delegate.showLauncherAndRecord(keyboard); });
    press(1s);
    held.reset();
    EXPECT_TRUE(recorder.isRecording());
}

TEST_F(HoldToTalkTest, TheSettingOfThePressCountsForItsRelease)
{
    press(1s);
    hold(false);
    hotKeys.release(keys);
    EXPECT_TRUE(isProcessing());
    finish();

    hotKeys.press(keys);
    hold(true);
    hotKeys.release(keys);
    EXPECT_TRUE(recorder.isRecording());
}
