// What a user is told, and what is not lost, when a dictation fails.
#include "base/SampleFormat.h"
#include "tests/WaitFor.h"
#include "tests/app/DictationFixture.h"

using namespace vantro;

TEST_F(DictationTest, TellsWhyAFailedOneDeliversNothing)
{
    pressShortcut();
    speak(16'000);
    stopAndDrain();
    provider.fail(QStringLiteral("Could not load the whisper model at /models/x.bin"));
    pump();
    EXPECT_EQ(shell.alerts.takeLast(),
              QStringLiteral("Failed to transcribe audio: Could not load the whisper model at /models/x.bin\n\n"
                             "Your recording is kept. Transcribe it now?"));
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_FALSE(delivered) << "nothing is delivered after an error";
    dictate(QStringLiteral("It works."));
    EXPECT_EQ(delivered, QStringLiteral("It works."));
}

TEST_F(DictationTest, TellsWhatToPressWhenTheWindowDoesNotTakeTheText)
{
    keyEvents.setTarget({});
    dictate(QStringLiteral("Hello."));
    EXPECT_FALSE(recorder.isBusy()) << "the next one may begin";
    EXPECT_TRUE(shell.huds.empty());
    clock.advance(2s);
    ASSERT_EQ(shell.huds.size(), 1U);
    EXPECT_EQ(shell.huds.front().keys, QString()) << "whoever presses them at once pastes twice";
    EXPECT_TRUE(shell.huds.front().reason.contains(QStringLiteral("Ctrl+V")));
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("Hello."));
}

TEST_F(DictationTest, DeliversWhatCannotBeStoredAndTellsItOnce)
{
    store.full = true;
    dictate(QStringLiteral("One."));
    EXPECT_EQ(delivered, QStringLiteral("One."));
    EXPECT_EQ(shell.alerts,
              QStringList{QStringLiteral("Your dictations are delivered but not stored: The disk is full.")});
    dictate(QStringLiteral("Two."));
    EXPECT_EQ(delivered, QStringLiteral("Two."));
    EXPECT_EQ(shell.alerts.size(), 1) << "known already";

    store.full = false;
    dictate(QStringLiteral("Three."));
    EXPECT_EQ(store.rows, QStringList{QStringLiteral("Three.")});
    store.full = true;
    dictate(QStringLiteral("Four."));
    EXPECT_EQ(shell.alerts.size(), 2) << "again, after it had worked";
}

TEST_F(DictationTest, WhatIsNotToBeKeptIsDeliveredAndANoteIsFiledAllTheSame)
{
    isKeeping = false;
    dictate(QStringLiteral("In confidence."));
    EXPECT_EQ(delivered, QStringLiteral("In confidence."));
    EXPECT_TRUE(store.rows.isEmpty());
    EXPECT_TRUE(shell.alerts.isEmpty()) << "it is what the user wants";
    note(QStringLiteral("Buy milk."));
    EXPECT_EQ(store.rows, QStringList{QStringLiteral("Buy milk.")});
}

TEST_F(DictationTest, ANoteThatCannotBeStoredIsOnTheClipboard)
{
    const auto onClipboard = [this] {
        return pasteboard.fetch(clipboard, editor);
    };
    note(QStringLiteral("Buy milk."));
    EXPECT_EQ(store.rows, QStringList{QStringLiteral("Buy milk.")});
    EXPECT_NE(onClipboard(), QStringLiteral("Buy milk."));

    store.full = true;
    note(QStringLiteral("Buy bread."));
    EXPECT_EQ(onClipboard(), QStringLiteral("Buy bread."));
    ASSERT_EQ(shell.alerts.size(), 1);
    EXPECT_TRUE(shell.alerts.front().contains(QStringLiteral("The disk is full.")))
        << shell.alerts.front().toStdString();
    EXPECT_TRUE(
        shell.alerts.front().endsWith(QStringLiteral("What you said is on the clipboard: paste it with Ctrl+V.")));
    EXPECT_FALSE(delivered) << "a note is never pasted";
}

TEST_F(DictationTest, TellsWhyARecordingCannotStart)
{
    permissions.microphone = false;
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_EQ(shell.alerts, QStringList{wording::noSoundServer()});
    permissions.microphone = true;

    engines.settings.startError = wording::noMicrophone();
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_EQ(shell.alerts.last(), QStringLiteral("Could not start the microphone: ") + wording::noMicrophone());
    EXPECT_FALSE(recorder.isBusy());
    engines.settings.startError.reset();

    dictate(QStringLiteral("Works again."));
    EXPECT_EQ(delivered, QStringLiteral("Works again."));
    EXPECT_EQ(shell.alerts.size(), 2);
}

TEST_F(DictationTest, ARecordingThatHasBecomeAsLongAsItMayEndsAndSaysSo)
{
    pressShortcut();
    speak(maximumSampleCount + 16'000);
    pump();
    EXPECT_FALSE(recorder.isRecording());
    clock.advance(AudioRecorder::drainDelay);
    pump();
    provider.answer(QStringLiteral("Ten minutes of it."));
    pump();
    clock.advance(600ms);
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Ten minutes of it."));
    ASSERT_EQ(shell.alerts.size(), 1);
    EXPECT_TRUE(shell.alerts.front().contains(QStringLiteral("ten minutes"))) << shell.alerts.front().toStdString();
}

TEST_F(DictationTest, WhatWasSaidBeforeTheMicrophoneWasLostIsDelivered)
{
    const auto loseMicrophone = [this](std::size_t samples) {
        pressShortcut();
        speak(samples);
        engines.settings.startError = wording::noMicrophone();
        engines.current()->changeConfiguration();
        clock.advance(AudioRecorder::microphonePatience + AudioRecorder::drainDelay);
        pump();
        clock.advance(AudioRecorder::drainDelay);
        pump();
        engines.settings.startError.reset();
    };
    loseMicrophone(16'000);
    ASSERT_TRUE(provider.isAsked());
    EXPECT_TRUE(shell.alerts.isEmpty()) << "not before the text is in its window";
    provider.answer(QStringLiteral("Before that."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Before that."));
    ASSERT_EQ(shell.alerts.size(), 1);
    EXPECT_TRUE(shell.alerts.front().endsWith(wording::noMicrophone()));

    loseMicrophone(4'799);
    EXPECT_FALSE(provider.isAsked());
    EXPECT_EQ(shell.alerts.last(), QStringLiteral("Could not start the microphone: ") + wording::noMicrophone());
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_EQ(engines.current(), nullptr);
}

TEST_F(DictationTest, ARecordingIsHandedOnWithItsStoredText)
{
    dictate(QStringLiteral("kept"));
    ASSERT_TRUE(waitFor([this] { return stored.size() == 1; }));
    EXPECT_EQ(stored.front(), 16'000U) << "before it is discarded";
    EXPECT_EQ(delivered, QStringLiteral("kept"));
    isKeeping = false;
    dictate(QStringLiteral("private"));
    isKeeping = true;
    store.full = true;
    dictate(QStringLiteral("too much"));
    store.full = false;
    dictate(QString());
    note(QStringLiteral("kept again"));
    ASSERT_TRUE(waitFor([this] { return stored.size() >= 2; }));
    isKeeping = false;
    note(QStringLiteral("a note in private, of which only the text stays"));
    isKeeping = true;
    dictate(QStringLiteral("and again"));
    ASSERT_TRUE(waitFor([this] { return stored.size() >= 3; }));
    EXPECT_EQ(stored.size(), 3U);
}
