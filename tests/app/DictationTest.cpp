// One dictation from the shortcut to the delivered text: everything of the program but the adapters, the windows and
// the speech engine is the real thing.
#include "base/Notifications.h"
#include "base/Settings.h"
#include "tests/app/DictationFixture.h"

using namespace vantro;

TEST_F(DictationWithoutModel, ShowsTheDownloadInsteadOfTheLauncherUntilTheModelIsThere)
{
    EXPECT_EQ(downloads, QStringList{QStringLiteral("tiny.en")}) << "at the start";
    pressShortcut();
    EXPECT_EQ(openPanels, 0) << "nobody should speak in vain";
    EXPECT_EQ(downloads.size(), 2) << "the window is brought back";

    notifications.post(notification::modelDownloaded);
    EXPECT_TRUE(downloads.isEmpty()) << "the window closes by itself";
    pressShortcut();
    EXPECT_EQ(openPanels, 0) << "it was another model";
    isModelReady = true;
    notifications.post(notification::modelDownloaded);
    dictate(QStringLiteral("Now it works."));
    EXPECT_EQ(delivered, QStringLiteral("Now it works."));
}

TEST_F(Dictation, LaunchRunsItsStepsInOrderAndShowsWhatIsMissing)
{
    EXPECT_EQ(steps, QStringList{QStringLiteral("model")});
    steps.clear();
    defaults.set(setting::checkForUpdatesOnLaunch, true);
    permissions.microphone = false;
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(steps, QStringList({QStringLiteral("update check"), QStringLiteral("onboarding"), QStringLiteral("model"),
                                  QStringLiteral("onboarding")}))
        << "shown once more when the model turns out to be there";
    notifications.post(notification::onboardingClosed);
    EXPECT_EQ(steps.last(), QStringLiteral("onboarding closed"));
}

TEST_F(Dictation, PutsOwnWindowsAsideAndBringsBackThoseThatWereThere)
{
    settingsWindow.visible = true;
    pressShortcut();
    EXPECT_FALSE(settingsWindow.visible);
    delegate.cancelDictation();
    notifications.post(notification::launcherClosed);
    EXPECT_TRUE(settingsWindow.visible);
    EXPECT_FALSE(historyWindow.visible) << "it was not there before";

    historyWindow.visible = true;
    delegate.setSandboxMode(true);
    pressShortcut();
    EXPECT_TRUE(settingsWindow.visible && historyWindow.visible) << "practice hides nothing";
}

TEST_F(Dictation, EndOfTheProcessThrowsTheRecordingAwayAndGivesTheClipboardBack)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    speak(16'000);
    delegate.applicationWillTerminate();
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_EQ(openPanels, 0);

    pressShortcut();
    speak(16'000);
    stopAndDrain();
    provider.answer(QStringLiteral("Pasted."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Pasted."));
    delegate.applicationWillTerminate();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("former")) << "without the usual wait";
}

TEST_F(Dictation, EndsInTheWindowThatTheUserWasWorkingIn)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    EXPECT_EQ(openPanels, 1);
    EXPECT_EQ(provider.prepared, 1) << "the model loads while the user speaks";
    speak(16'000);
    stopAndDrain();
    EXPECT_EQ(openPanels, 1) << "the panel stays while the text is made";
    EXPECT_EQ(provider.sampleCount, 16'000U);
    provider.answer(QStringLiteral(" Hello there.\n"));
    pump();
    EXPECT_EQ(openPanels, 0);
    EXPECT_EQ(delivered, QStringLiteral("Hello there."));
    EXPECT_EQ(workspace.frontWindow(), editor);
    EXPECT_EQ(store.rows, QStringList{QStringLiteral(" Hello there.\n")});
    EXPECT_FALSE(recorder.isBusy());
    clock.advance(300ms);
    pump();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("former"));
    EXPECT_EQ(provider.ended, 1);
}

TEST_F(Dictation, WithoutAutoPasteLeavesTheTextOnTheClipboardAndSaysSo)
{
    defaults.set(setting::autoPasteEnabled, false);
    dictate(QStringLiteral("Keep me."));
    EXPECT_FALSE(delivered);
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("Keep me."));
    ASSERT_EQ(huds.size(), 1U);
    EXPECT_EQ(huds.front(), QRect(1, 2, 500, 200)) << "the HUD starts where the launcher was";
    EXPECT_EQ(openPanels, 0);
}

TEST_F(Dictation, SoundsOnlyWhenTheUserWantsItAndTextWasDelivered)
{
    dictate(QStringLiteral("In silence."));
    EXPECT_TRUE(sounds.played.isEmpty());
    defaults.set(setting::playSoundOnComplete, true);
    dictate(QStringLiteral(" "));
    EXPECT_TRUE(sounds.played.isEmpty());
    dictate(QStringLiteral("And now?"));
    EXPECT_EQ(sounds.played, QStringList{QStringLiteral("Blow")});
}

TEST_F(Dictation, NeverPastesIntoAnotherWindow)
{
    pressShortcut();
    speak(16'000);
    workspace.closeWindow(editor);
    stopAndDrain();
    provider.answer(QStringLiteral("For the editor only."));
    pump();
    clock.advance(600ms);
    pump();
    EXPECT_FALSE(delivered);
    EXPECT_TRUE(keyEvents.posted().empty());
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("For the editor only."));
    EXPECT_EQ(huds.size(), 1U);
}

TEST_F(Dictation, WithNothingSaidClosesWithoutATrace)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    speak(4'799);
    stopAndDrain();
    EXPECT_FALSE(provider.isAsked()) << "under 0.3 s nothing is transcribed";
    EXPECT_EQ(openPanels, 0);

    dictate(QStringLiteral(" \n "));
    EXPECT_EQ(openPanels, 0);
    EXPECT_TRUE(alerts.isEmpty());
    EXPECT_TRUE(huds.empty());
    EXPECT_EQ(pasteboard.changes(clipboard), 0);
    EXPECT_EQ(provider.ended, 2) << "the model is released after either";
}

TEST_F(Dictation, IgnoresTheShortcutWhileOneIsUnderWay)
{
    for (int i = 0; i < 10; ++i)
        pressShortcut();
    EXPECT_EQ(openPanels, 1);
    EXPECT_EQ(engines.madeCount(), 1);
    speak(16'000);
    stopAndDrain();
    pressShortcut();
    EXPECT_EQ(engines.madeCount(), 1);
    provider.answer(QStringLiteral("Once."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Once."));
    dictate(QStringLiteral("Again."));
    EXPECT_EQ(delivered, QStringLiteral("Again."));
}

TEST_F(Dictation, CancelledAtAnyMomentDeliversNothingAndLeavesTheNextOneFree)
{
    pressShortcut();
    speak(16'000);
    delegate.cancelDictation(); // while recording
    pump();
    EXPECT_EQ(openPanels, 0);
    EXPECT_FALSE(recorder.isBusy());

    pressShortcut();
    speak(16'000);
    delegate.stopRecording();
    delegate.cancelDictation(); // while draining
    clock.advance(150ms);
    pump();
    EXPECT_FALSE(provider.isAsked());

    pressShortcut();
    speak(16'000);
    stopAndDrain();
    ASSERT_TRUE(provider.isAsked());
    const int endedBefore = provider.ended;
    const int cancelledBefore = provider.cancelled;
    delegate.cancelDictation(); // while transcribing
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_EQ(provider.cancelled, cancelledBefore + 1) << "the engine need not finish what nobody wants";

    pressShortcut(); // before the engine has noticed
    provider.answer(QStringLiteral("Nobody wants this."));
    pump();
    EXPECT_EQ(provider.ended, endedBefore) << "the model stays for the dictation that is being recorded";
    delegate.cancelDictation();
    pump();
    EXPECT_EQ(provider.ended, endedBefore + 1);

    EXPECT_FALSE(delivered);
    EXPECT_TRUE(alerts.isEmpty());
    dictate(QStringLiteral("Wanted."));
    EXPECT_EQ(delivered, QStringLiteral("Wanted."));
}
