// The user locks the screen, lets the machine sleep or goes to another session.
#include "tests/WaitFor.h"
#include "tests/app/DictationFixture.h"
#include "vantro/app/WhenBack.h"

using namespace vantro;

TEST_F(DictationTest, EndsAsByAStopWhenTheUserGoesAndLeavesTheTextOnTheClipboard)
{
    pressShortcut();
    EXPECT_TRUE(session.isSleepDelayed());
    speak(16'000);
    session.setAway(true);
    pump();
    EXPECT_FALSE(recorder.isRecording());
    EXPECT_TRUE(session.isSleepDelayed()) << "the last words are still in the sound server";
    clock.advance(150ms);
    pump();
    EXPECT_FALSE(session.isSleepDelayed());
    provider.answer(QStringLiteral("Before the lock."));
    pump();
    EXPECT_EQ(delivered, std::nullopt);
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("Before the lock."));
    EXPECT_EQ(store.rows, QStringList{QStringLiteral("Before the lock.")});
    ASSERT_EQ(shell.huds.size(), 1U);
    EXPECT_TRUE(shell.huds.front().reason.startsWith(delivery.explanation(PasteDelivery::Outcome::UserAway) +
                                                     QLatin1Char('\n')))
        << "its first words follow";
    EXPECT_EQ(shell.openPanels, 0);
}

TEST_F(DictationTest, EndsAsByAStopBehindALockerThatTellsNobody)
{
    const auto lookAfter = [this](std::chrono::milliseconds time) {
        clock.advance(time);
        pump();
    };
    pressShortcut();
    speak(16'000);
    for (int i = 0; i < 3; ++i) { // menus that are open for a moment
        keyEvents.setKeyboardTaken(true);
        lookAfter(2s);
        keyEvents.setKeyboardTaken(false);
        lookAfter(1s);
    }
    keyEvents.setKeyboardTaken(true);
    keyEvents.setMenuOpen(true);
    lookAfter(10s); // one that its user reads
    EXPECT_TRUE(recorder.isRecording());
    keyEvents.setMenuOpen(false);
    lookAfter(3s);
    EXPECT_FALSE(recorder.isRecording());
    lookAfter(150ms);
    provider.answer(QStringLiteral("Before the lock."));
    pump();
    lookAfter(2s);
    EXPECT_EQ(delivered, std::nullopt);
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("Before the lock."));
}

TEST_F(DictationTest, IsDeliveredAsEverIfTheUserIsBackInTime)
{
    pressShortcut();
    speak(16'000);
    session.setAway(true);
    pump();
    clock.advance(150ms);
    pump();
    session.setAway(false);
    provider.answer(QStringLiteral("Back in time."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Back in time."));
    EXPECT_TRUE(shell.huds.empty());
}

TEST_F(DictationTest, WhatThereIsToTellWaitsForTheUserAndComesOneAfterTheOther)
{
    WhenBack back(session, keyEvents, clock);
    QStringList told;
    const auto tell = [&](const char* text) {
        back.run([&told, text] {
            told << QLatin1String(text);
            return 5s;
        });
    };
    session.setAway(true);
    tell("On the clipboard.");
    tell("Model ready.");
    clock.advance(1h);
    EXPECT_EQ(told, QStringList());
    keyEvents.setKeyboardTaken(true);
    session.setAway(false);
    tell("Note filed.");
    clock.advance(1h);
    EXPECT_EQ(told, QStringList());
    keyEvents.setKeyboardTaken(false);
    clock.advance(1s);
    EXPECT_EQ(told.join(u' '), QStringLiteral("On the clipboard."));
    clock.advance(2s);
    tell("Pasted."); // what has just happened does not wait
    EXPECT_EQ(told.size(), 2);
    clock.advance(4s);
    EXPECT_EQ(told.size(), 2) << "it is being read";
    clock.advance(10s);
    EXPECT_EQ(told.join(u' '), QStringLiteral("On the clipboard. Pasted. Model ready. Note filed."));

    told.clear();
    tell("Not taken.");
    tell("The recording is kept.");
    EXPECT_EQ(told.size(), 1);
    clock.advance(5s);
    EXPECT_EQ(told.join(u' '), QStringLiteral("Not taken. The recording is kept."));
}

TEST_F(DictationTest, NothingBeginsWhileTheUserIsAway)
{
    session.setAway(true);
    pressShortcut();
    EXPECT_EQ(shell.openPanels, 0);
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_FALSE(session.isSleepDelayed());

    session.setAway(false);
    pressShortcut();
    speak(16'000);
    delegate.cancelDictation();
    EXPECT_FALSE(session.isSleepDelayed());
    session.setAway(true);
    pressShortcut();
    EXPECT_NE(shell.undo, nullptr) << "whoever presses keys at a locker takes no cancel back";
    session.setAway(false);
    pressShortcut();
    EXPECT_EQ(shell.undo, nullptr);
    EXPECT_TRUE(waitFor([this] { return provider.isAsked(); }));
}
