// What was said and did not become text: after a failure, after a cancel, and after the end of the process.
#include "base/RunTask.h"
#include "tests/WaitFor.h"
#include "tests/app/DictationFixture.h"

#include <new>
#include <stdexcept>

using namespace vantro;

namespace {

class RecoveryTest : public DictationTest
{
protected:
    void record()
    {
        pressShortcut();
        speak(16'000);
        stopAndDrain();
        ASSERT_TRUE(provider.isAsked());
    }
    /// The engine is given the recording once more and answers with @p text.
    void hearAgain(const QString& text)
    {
        ASSERT_TRUE(waitFor([this] { return provider.isAsked(); }));
        EXPECT_EQ(provider.sampleCount, 16'000U);
        EXPECT_TRUE(shell.isTranscribingShown);
        provider.answer(text);
        pump();
        clock.advance(600ms);
        pump();
    }
    /// Names of files, once everything that has been ordered until now is done with them.
    [[nodiscard]] QStringList settledFiles()
    {
        std::ignore = runTask(spool.takeLeft()); // takes nothing that somebody has
        return keptFiles();
    }
    [[nodiscard]] bool isForgotten() { return settledFiles().isEmpty(); }
    [[nodiscard]] std::size_t leftForOthers()
    {
        RecordingSpool other{kept, clock};
        return runTask(other.takeLeft()).size();
    }
};

} // namespace

TEST_F(RecoveryTest, WhateverEndsATranscriptionItsRecordingIsOffered)
{
    const std::vector<std::function<void()>> failures{
        [this] { provider.fail(QStringLiteral("Could not load the model.")); },
        [this] { provider.fail(std::bad_alloc()); }, [this] { provider.fail(std::runtime_error("surprise")); },
        [this] {
            provider.fail(42);
        }};
    for (const auto& fail : failures) {
        delivered.reset();
        record();
        fail();
        pump();
        EXPECT_FALSE(recorder.isBusy());
        EXPECT_EQ(shell.openPanels, 0);
        ASSERT_TRUE(shell.answerOffer);
        EXPECT_FALSE(shell.alerts.last().contains(QStringLiteral("bad_alloc")));
        std::exchange(shell.answerOffer, nullptr)(true);
        hearAgain(QStringLiteral("Here it is."));
        EXPECT_EQ(delivered, QStringLiteral("Here it is.")) << "in the window it was said for";
        EXPECT_TRUE(isForgotten());
        EXPECT_FALSE(recorder.isBusy());
    }
    EXPECT_EQ(store.rows.size(), 4);
}

TEST_F(RecoveryTest, ARecordingThatFailsAgainStaysUntilItsUserRefuses)
{
    record();
    provider.fail(QStringLiteral("No."));
    pump();
    std::exchange(shell.answerOffer, nullptr)(true);
    ASSERT_TRUE(waitFor([this] { return provider.isAsked(); }));
    provider.fail(QStringLiteral("No."));
    pump();
    EXPECT_EQ(keptFiles().size(), 1);
    ASSERT_TRUE(shell.answerOffer) << "once more";
    EXPECT_TRUE(shell.offer);
    const auto refuse = std::exchange(shell.answerOffer, nullptr);
    refuse(false);
    EXPECT_TRUE(isForgotten());
    EXPECT_FALSE(shell.offer);
    refuse(true);
    EXPECT_THROW(runTask(recovery.transcribeAll()), NothingKept);
    EXPECT_FALSE(provider.isAsked());
}

TEST_F(RecoveryTest, ATextThatExistsIsNotOfferedAgain)
{
    recorder.setProcessingMode(ProcessingMode::Notes);
    defaults.set(setting::defaultProcessingMode, QStringLiteral("Notes"));
    store.full = true;
    record();
    provider.answer(QStringLiteral("Buy bread."));
    pump();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("Buy bread."));
    EXPECT_FALSE(shell.answerOffer);
    EXPECT_TRUE(isForgotten());
}

TEST_F(RecoveryTest, WhoHasMovedOnFindsTheTextOnTheClipboard)
{
    record();
    provider.fail(QStringLiteral("No."));
    pump();
    workspace.focus(otherWindow);
    workspace.setActivationPolicy([](auto) {});
    shell.answerOffer(true);
    hearAgain(QStringLiteral("Late."));
    EXPECT_FALSE(delivered);
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("Late."));
    EXPECT_EQ(shell.huds.size(), 1U);
}

TEST_F(RecoveryTest, WhoCancelsTheLanguageModelReadsWhereTheWordsAreAndTheEndOfTheProcessKeepsThem)
{
    Gate answer;
    store.answer = &answer;
    const auto note = [this] {
        pressShortcut();
        recorder.setProcessingMode(ProcessingMode::Email);
        speak(16'000);
        stopAndDrain();
        provider.answer(QStringLiteral("Buy milk."));
        pump();
    };
    note();
    delegate.cancelDictation();
    pump();
    EXPECT_FALSE(shell.undo);
    ASSERT_EQ(shell.huds.size(), 1U);
    EXPECT_TRUE(shell.huds.front().reason.contains(QStringLiteral("in the history")));
    EXPECT_TRUE(isForgotten());
    answer.open();
    pump();

    Gate lateAnswer;
    store.answer = &lateAnswer;
    note();
    delegate.applicationWillTerminate();
    EXPECT_EQ(settledFiles().size(), 1) << "nobody has told the user";
    lateAnswer.open();
    pump();
}

TEST_F(RecoveryTest, TheEndOfTheProcessKeepsARecordingWhoseTextNoWindowHasFetched)
{
    keyEvents.setTarget({});
    dictate(QStringLiteral("On its way."));
    EXPECT_EQ(settledFiles().size(), 1);
    pasteboard.fetch(clipboard, editor);
    clock.advance(50ms);
    EXPECT_TRUE(isForgotten());
    clock.advance(1s);

    dictate(QStringLiteral("Not yet."));
    delegate.applicationWillTerminate();
    EXPECT_EQ(settledFiles().size(), 1);

    workspace.focus(otherWindow);
    workspace.setActivationPolicy([](auto) {});
    keyEvents.setOrdinaryKeyDown(true);
    record();
    provider.answer(QStringLiteral("Before its keystroke."));
    pump();
    delegate.applicationWillTerminate();
    EXPECT_EQ(settledFiles().size(), 2);
}

TEST_F(RecoveryTest, ACancelCanBeTakenBackByAClickOrTheShortcut)
{
    const auto cancelWhile = [this](bool isRecording) {
        delivered.reset();
        pressShortcut();
        speak(16'000);
        if (!isRecording)
            stopAndDrain();
        delegate.cancelDictation();
        pump();
        if (provider.isAsked())
            provider.answer(QStringLiteral("Nobody waits for this."));
        pump();
        ASSERT_TRUE(shell.undo);
    };
    for (const bool isRecording : {true, false}) {
        cancelWhile(isRecording);
        const auto click = shell.undo;
        click();
        hearAgain(QStringLiteral("Clicked."));
        EXPECT_EQ(delivered, QStringLiteral("Clicked."));
        EXPECT_TRUE(isForgotten());

        cancelWhile(isRecording);
        const int made = engines.madeCount();
        pressShortcut();
        EXPECT_EQ(engines.madeCount(), made) << "no new recording";
        hearAgain(QStringLiteral("Pressed."));
        EXPECT_EQ(delivered, QStringLiteral("Pressed."));
        EXPECT_TRUE(isForgotten());
    }
}

TEST_F(RecoveryTest, ACancelledRecordingIsGoneAfterTenSecondsOrWithTheNextOne)
{
    const auto cancel = [this] {
        pressShortcut();
        speak(16'000);
        delegate.cancelDictation();
        pump();
    };
    cancel();
    const QStringList files = settledFiles();
    ASSERT_EQ(files.size(), 1);
    EXPECT_TRUE(files.front().startsWith(QLatin1Char('.'))) << "a crash now must not bring it back";
    clock.advance(9s);
    EXPECT_TRUE(shell.undo);
    clock.advance(1s);
    EXPECT_FALSE(shell.undo);
    EXPECT_TRUE(isForgotten());
    EXPECT_FALSE(recovery.takeCancelBack());

    cancel();
    delegate.showLauncherAndRecord();
    EXPECT_FALSE(shell.undo);
    delegate.cancelDictation();

    cancel();
    delegate.applicationWillTerminate();
    EXPECT_TRUE(isForgotten());
}

TEST_F(RecoveryTest, InAnotherWindowTheShortcutBeginsADictationAndTheOfferStays)
{
    const auto loseToAnotherWindow = [this] {
        pressShortcut();
        speak(16'000);
        delegate.cancelDictation();
        workspace.focus(otherWindow);
        pump();
        ASSERT_TRUE(shell.undo);
    };
    loseToAnotherWindow();
    const QRect launcherFrame = shell.undoAnchor.value();
    dictate(QStringLiteral("Elsewhere."));
    EXPECT_EQ(delivered, QStringLiteral("Elsewhere."));
    EXPECT_FALSE(shell.undoAnchor->intersects(launcherFrame)) << "it lies on the launcher";
    EXPECT_TRUE(shell.undo);
    workspace.focus(editor);
    pressShortcut();
    hearAgain(QStringLiteral("After all."));
    EXPECT_EQ(delivered, QStringLiteral("After all."));
    EXPECT_TRUE(isForgotten());

    loseToAnotherWindow();
    pressShortcut();
    speak(16'000);
    const auto click = shell.undo;
    click();
    pump();
    EXPECT_TRUE(recorder.isRecording());
    EXPECT_TRUE(shell.huds.back().reason.contains(QStringLiteral("vantro retry")));
    delegate.stopRecording();
    clock.advance(150ms);
    pump();
    provider.answer(QStringLiteral("Goes on."));
    pump();
    clock.advance(20s);
    pump();
    EXPECT_EQ(settledFiles().size(), 1);
    workspace.focus(editor);
    pressShortcut();
    delegate.cancelDictation();
    EXPECT_EQ(settledFiles().size(), 1) << "it is not on offer any more, but wanted";
}

TEST_F(RecoveryTest, TheTenSecondsOfACancelStopWhileTheUserDoesNotSeeTheOffer)
{
    pressShortcut();
    speak(16'000);
    delegate.cancelDictation();
    clock.advance(6s);
    session.setAway(true);
    clock.advance(1h);
    session.setAway(false);
    clock.advance(2s);
    // A message that the offer's window has to show meanwhile.
    shell.coverUndo(true);
    clock.advance(11s);
    ASSERT_TRUE(shell.undo);
    shell.coverUndo(false);
    clock.advance(1999ms);
    EXPECT_TRUE(shell.undo);
    clock.advance(1ms);
    EXPECT_FALSE(shell.undo);
    EXPECT_TRUE(isForgotten());
}

TEST_F(RecoveryTest, NothingIsOfferedWhereNothingCanHaveBeenSaid)
{
    const auto cancelAfter = [this](std::size_t samples, float level) {
        pressShortcut();
        engines.current()->hear(samples, level);
        delegate.cancelDictation();
        pump();
    };
    cancelAfter(4'799, 0.1F);
    EXPECT_FALSE(shell.undo);
    cancelAfter(16'000, 0.0F);
    EXPECT_FALSE(shell.undo);

    defaults.set(setting::holdToTalk, true);
    hotKeys.press(keys);
    speak(16'000);
    hotKeys.release(keys);
    pump();
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_FALSE(shell.undo) << "an accident";
    EXPECT_TRUE(isForgotten());
}

TEST_F(RecoveryTest, TheEndOfTheProcessLeavesTheRecordingToTheNext)
{
    for (const bool isRecording : {true, false}) {
        pressShortcut();
        recorder.setProcessingMode(ProcessingMode::Notes);
        speak(16'000);
        if (!isRecording)
            stopAndDrain();
        delegate.applicationWillTerminate();
        EXPECT_FALSE(shell.undo);
        EXPECT_EQ(leftForOthers(), 0U) << "while its process lives";
        if (provider.isAsked())
            provider.answer({});
        pump();
        pressShortcut(); // the last dictation's object goes
        delegate.cancelDictation();
        recovery.forgetCancelled();
        pump();
        RecordingSpool next{kept, clock};
        std::vector<std::shared_ptr<Recording>> left;
        ASSERT_TRUE(waitFor([&] {
            if (left.empty())
                left = runTask(next.takeLeft());
            return left.size() == 1;
        }));
        EXPECT_EQ(left.front()->header().mode, ProcessingMode::Notes);
        EXPECT_EQ(runTask(left.front()->samples()).size(), 16'000U);
        left.front()->discard();
        defaults.set(setting::defaultProcessingMode, QStringLiteral("Normal"));
    }
}

TEST_F(RecoveryTest, OffersAllThatIsLeftAtOnceAndBringsItToTheClipboard)
{
    {
        RecordingSpool before{kept, clock};
        for (const char* id : {"audio-1", "audio-2"}) {
            const auto collector = std::make_shared<SampleCollector>();
            before.keep(collector, QLatin1String(id), ProcessingMode::Normal)->finish(std::vector<float>(16'000, 0.1F));
        }
    }
    EXPECT_TRUE(runTask(recovery.offerLeft()));
    EXPECT_EQ(shell.alerts.size(), 1);
    shell.answerOffer(true);
    hearAgain(QStringLiteral("One."));
    EXPECT_FALSE(delivered);
    ASSERT_TRUE(waitFor([this] { return provider.isAsked(); }));
    provider.answer(QStringLiteral("Two."));
    pump();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("One.\n\nTwo."));
    EXPECT_EQ(store.rows, QStringList({QStringLiteral("One."), QStringLiteral("Two.")}));
    EXPECT_TRUE(isForgotten());
    EXPECT_FALSE(runTask(recovery.offerLeft()));
}

TEST_F(RecoveryTest, WithoutAFolderTheRecordingIsKeptInMemory)
{
    QFile file(kept);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)); // in the folder's place
    dictate(QStringLiteral("As ever."));
    EXPECT_EQ(delivered, QStringLiteral("As ever."));
    record();
    provider.fail(QStringLiteral("No."));
    pump();
    ASSERT_TRUE(shell.answerOffer);
    shell.answerOffer(true);
    hearAgain(QStringLiteral("From memory."));
    EXPECT_EQ(delivered, QStringLiteral("From memory."));
}
