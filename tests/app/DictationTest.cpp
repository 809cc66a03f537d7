// One dictation from the shortcut to the delivered text: everything of the program but the adapters, the windows and
// the speech engine is the real thing.
#include "tests/app/DictationFixture.h"

using namespace vantro;

TEST_F(DictationWithoutModel, ShowsTheDownloadInsteadOfTheLauncherUntilTheModelIsThere)
{
    provider.state = ModelStatus::State::missing;
    EXPECT_EQ(shell.downloads, QStringList{QStringLiteral("tiny.en")}) << "at the start";
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 0) << "nobody should speak in vain";
    EXPECT_EQ(shell.downloads.size(), 2) << "the window is brought back";

    notifications.post(notification::modelDownloaded);
    EXPECT_TRUE(shell.downloads.isEmpty()) << "the window closes by itself";
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 0) << "it was another model";
    isModelReady = true;
    provider.state = ModelStatus::State::ready;
    notifications.post(notification::modelDownloaded);
    dictate(QStringLiteral("Now it works."));
    EXPECT_EQ(delivered, QStringLiteral("Now it works."));
}

TEST_F(DictationTest, AModelThatHasGoneIsMissedAtTheShortcutAndABrokenOneWhileTheUserSpeaks)
{
    provider.state = ModelStatus::State::missing;
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 0) << "nobody should speak in vain";
    EXPECT_EQ(shell.downloads, QStringList{QStringLiteral("tiny.en")});
    EXPECT_FALSE(recorder.isBusy());
    provider.state = ModelStatus::State::ready;
    pressShortcut();
    ASSERT_EQ(shell.openPanels, 1) << "it has been put back by hand";
    EXPECT_TRUE(shell.downloads.isEmpty()) << "the window closes by itself";
    delegate.cancelDictation();
    provider.state = ModelStatus::State::missing;
    models.select(*catalogue.find(QStringLiteral("Parakeet v3 (Fluid)")));
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 1) << "this one is there";
    delegate.cancelDictation();

    neuralProvider.whyUnusable = QStringLiteral("broken");
    bool isToldUsable = true;
    shell.onLauncher = [&](const Dictation& dictation) {
        isToldUsable = dictation.isModelUsable();
    };
    pressShortcut();
    EXPECT_FALSE(isToldUsable);
    EXPECT_TRUE(recorder.isRecording()) << "what is said is kept";
}

TEST_F(DictationTest, LaunchRunsItsStepsInOrderAndShowsWhatIsMissing)
{
    EXPECT_EQ(shell.steps, QStringList{QStringLiteral("model")});
    shell.steps.clear();
    defaults.set(setting::checkForUpdatesOnLaunch, true);
    permissions.microphone = false;
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(shell.steps, QStringList({QStringLiteral("update check"), QStringLiteral("onboarding"),
                                        QStringLiteral("model"), QStringLiteral("onboarding")}))
        << "shown once more when the model turns out to be there";
    notifications.post(notification::onboardingClosed);
    EXPECT_EQ(shell.steps.last(), QStringLiteral("onboarding closed"));
}

TEST_F(DictationTest, KeepsOwnWindowsAsideUntilTheTextIsInItsWindow)
{
    pressShortcut();
    EXPECT_TRUE(shell.areWindowsAside);
    delegate.cancelDictation();
    EXPECT_FALSE(shell.areWindowsAside);

    pressShortcut();
    speak(16'000);
    stopAndDrain();
    workspace.setActivationPolicy([](auto) {});
    shell.launcher->closePanel(); // by a click into another window
    workspace.focus(otherWindow);
    provider.answer(QStringLiteral("Wait."));
    pump();
    EXPECT_TRUE(shell.areWindowsAside) << "not between the text and the window it is meant for";
    clock.advance(600ms);
    pump();
    EXPECT_FALSE(shell.areWindowsAside);
}

TEST_F(DictationTest, IsUnderWayUntilTheTextIsDelivered)
{
    pressShortcut();
    speak(16'000);
    stopAndDrain();
    workspace.setActivationPolicy([](auto) {});
    shell.launcher->closePanel();
    workspace.focus(otherWindow); // the keyboard does not come back by itself
    provider.answer(QStringLiteral("First."));
    pump();
    EXPECT_TRUE(recorder.isBusy());
    pressShortcut();
    delegate.cancelDictation();
    EXPECT_EQ(engines.madeCount(), 1) << "a recording that the delivery would disturb";
    clock.advance(600ms);
    pump();
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("First."));
    pressShortcut();
    EXPECT_EQ(engines.madeCount(), 2);
}

TEST_F(DictationTest, WaitsForAudioFromBeforeTheStopThatIsLate)
{
    const auto speakLate = [this] {
        pressShortcut();
        speak(8'000);
        pump(); // the first block is noticed
        clock.advance(900ms);
        pump();
        stopAndDrain();
        EXPECT_FALSE(provider.isAsked()) << "0.4 s are on their way";
    };
    speakLate();
    speak(8'000);
    clock.advance(100ms);
    pump();
    EXPECT_EQ(provider.sampleCount, 16'000U);
    provider.answer(QStringLiteral("All of it."));
    pump();

    clock.advance(1min);
    pump();
    speakLate();
    clock.advance(AudioRecorder::drainLimit);
    pump();
    EXPECT_EQ(provider.sampleCount, 8'000U) << "what never comes is not waited for";
}

TEST_F(DictationTest, AnnouncesItsMilestonesWithTheModeOfTheStop)
{
    std::vector<NotificationCenter::UserInfo> starts;
    std::vector<NotificationCenter::UserInfo> finishes;
    const auto start = notifications.observe(QStringLiteral("recorder:process:start"),
                                             [&](const auto& info) { starts.push_back(info); });
    const auto finish =
        notifications.observe(QStringLiteral("recorder:finish"), [&](const auto& info) { finishes.push_back(info); });
    defaults.set(setting::defaultProcessingMode, QStringLiteral("Grammar"));
    pressShortcut();
    EXPECT_EQ(recorder.processingMode(), ProcessingMode::Grammar);
    recorder.setProcessingMode(ProcessingMode::Email);
    speak(16'000);
    delegate.stopRecording();
    EXPECT_EQ(starts, std::vector<NotificationCenter::UserInfo>{{}});
    recorder.setProcessingMode(ProcessingMode::Custom);
    clock.advance(150ms);
    pump();
    provider.answer(QStringLiteral("Dear all"));
    pump();
    const NotificationCenter::UserInfo success{{QStringLiteral("finalText"), QStringLiteral("Dear all")},
                                               {QStringLiteral("processingMode"), QStringLiteral("Email")}};
    EXPECT_EQ(finishes, std::vector<NotificationCenter::UserInfo>{success});
    EXPECT_EQ(recorder.processingMode(), ProcessingMode::Normal);
}

TEST_F(DictationTest, EndOfTheProcessEndsTheRecordingAndGivesTheClipboardBack)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    speak(16'000);
    delegate.applicationWillTerminate();
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_EQ(shell.openPanels, 0);

    pressShortcut();
    speak(16'000);
    stopAndDrain();
    provider.answer(QStringLiteral("Pasted."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Pasted."));
    delegate.applicationWillTerminate();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("former")) << "without the usual wait";
}

TEST_F(DictationTest, EndsInTheWindowThatTheUserWasWorkingIn)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 1);
    EXPECT_EQ(provider.prepared, 1) << "the model loads while the user speaks";
    speak(16'000);
    stopAndDrain();
    EXPECT_EQ(shell.openPanels, 1) << "the panel stays while the text is made";
    EXPECT_EQ(provider.sampleCount, 16'000U);
    provider.answer(QStringLiteral(" Hello there.\n"));
    pump();
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_EQ(delivered, QStringLiteral("Hello there."));
    EXPECT_EQ(workspace.frontWindow(), editor);
    EXPECT_EQ(store.rows, QStringList{QStringLiteral(" Hello there.\n")});
    EXPECT_FALSE(recorder.isBusy());
    clock.advance(300ms);
    pump();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("former"));
    EXPECT_EQ(provider.ended, 1);
}

TEST_F(DictationTest, SoundsOnlyWhenTheUserWantsItAndTextWasDelivered)
{
    dictate(QStringLiteral("In silence."));
    EXPECT_TRUE(sounds.played.isEmpty());
    defaults.set(setting::playSoundOnComplete, true);
    dictate(QStringLiteral(" "));
    EXPECT_TRUE(sounds.played.isEmpty());
    dictate(QStringLiteral("And now?"));
    EXPECT_EQ(sounds.played, QStringList{QStringLiteral("Blow")});
}

TEST_F(DictationTest, WithNothingSaidLeavesAllAsItWasAndSaysThatNothingWasHeard)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    speak(4'799);
    stopAndDrain();
    EXPECT_FALSE(provider.isAsked()) << "under 0.3 s nothing is transcribed";
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_TRUE(shell.huds.empty()) << "a tap says nothing";

    dictate(QStringLiteral(" \n "));
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_TRUE(shell.alerts.isEmpty());
    ASSERT_EQ(shell.huds.size(), 1U);
    EXPECT_TRUE(shell.huds.front().reason.startsWith(QStringLiteral("Nothing was heard.")));
    EXPECT_EQ(pasteboard.changes(clipboard), 0);
    EXPECT_EQ(provider.ended, 2) << "the model is released after either";
}

TEST_F(DictationTest, WhoPressesTheShortcutTooSoonReadsThatNothingIsRecorded)
{
    pressShortcut();
    pressShortcut();
    EXPECT_TRUE(shell.huds.empty()) << "the launcher is there";
    speak(16'000);
    stopAndDrain();
    pressShortcut();
    ASSERT_EQ(shell.huds.size(), 1U);
    EXPECT_EQ(shell.huds.front().reason, QStringLiteral("Still working on the last dictation."));
    EXPECT_FALSE(recorder.isRecording());
}

TEST_F(DictationTest, CancelledAtAnyMomentDeliversNothingAndLeavesTheNextOneFree)
{
    pressShortcut();
    speak(16'000);
    delegate.cancelDictation(); // while recording
    pump();
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_FALSE(recorder.isBusy());

    startNext();
    speak(16'000);
    delegate.stopRecording();
    delegate.cancelDictation(); // while draining
    clock.advance(150ms);
    pump();
    EXPECT_FALSE(provider.isAsked());

    startNext();
    speak(16'000);
    stopAndDrain();
    ASSERT_TRUE(provider.isAsked());
    const int endedBefore = provider.ended;
    delegate.cancelDictation(); // while transcribing
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_TRUE(provider.stop.stop_requested()) << "the engine need not finish what nobody wants";

    startNext(); // before the engine has noticed
    provider.answer(QStringLiteral("Nobody wants this."));
    pump();
    EXPECT_EQ(provider.ended, endedBefore) << "the model stays for the dictation that is being recorded";
    delegate.cancelDictation();
    pump();
    EXPECT_EQ(provider.ended, endedBefore + 1);

    EXPECT_FALSE(delivered);
    EXPECT_TRUE(shell.alerts.isEmpty());
    clock.advance(Recovery::undoTime);
    dictate(QStringLiteral("Wanted."));
    EXPECT_EQ(delivered, QStringLiteral("Wanted."));
}
