// Recognition while the user still speaks.
#include "tests/app/DictationFixture.h"

using namespace vantro;

namespace {

class RecognitionAheadTest : public DictationTest
{
protected:
    RecognitionAheadTest() { provider.limit = std::size_t{30} * 16'000; }

    void passSilently(std::size_t samples)
    {
        engines.current()->hear(samples, 0.0001F);
        clock.advance(RecognitionAhead::interval);
        pump();
    }
    /// Says a second and waits until that is being recognised.
    void speakAndPause()
    {
        speak(16'320);
        passSilently(8'000);
        ASSERT_TRUE(provider.isAsked());
        ASSERT_TRUE(provider.isAhead) << "nobody waits for it";
        ASSERT_EQ(provider.sampleCount, spoken);
    }

    static constexpr std::size_t spoken = 16'320 + PauseDetector::tailCount;
};

} // namespace

TEST_F(RecognitionAheadTest, TheTextStandsWhenNothingButSilenceFollows)
{
    QStringList heard;
    shell.onLauncher = [&](const Dictation& dictation) {
        QObject::connect(&dictation, &Dictation::understood, [&](const QString& text) { heard << text; });
    };
    pressShortcut();
    speakAndPause();
    provider.answer(QStringLiteral("It was there."));
    pump();
    EXPECT_EQ(heard, QStringList{QStringLiteral("It was there.")});
    EXPECT_FALSE(delivered) << "the user may go on";
    passSilently(16'000);
    stopAndDrain();
    EXPECT_FALSE(provider.isAsked()) << "it was recognised a second time";
    EXPECT_EQ(delivered, QStringLiteral("It was there."));
    EXPECT_EQ(store.rows, QStringList{QStringLiteral("It was there.")});
}

TEST_F(RecognitionAheadTest, WhatIsDroppedWhenTheUserSpeaksOnIsRecognisedWithTheRest)
{
    pressShortcut();
    speakAndPause();
    const std::stop_token dropped = provider.stop;
    speak(2'048);
    clock.advance(RecognitionAhead::interval);
    EXPECT_TRUE(dropped.stop_requested());
    speak(16'000);
    stopAndDrain();
    EXPECT_FALSE(provider.isAhead);
    EXPECT_EQ(provider.sampleCount, 16'320U + 8'000 + 2'048 + 16'000);
    provider.answer(QStringLiteral("All of it."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("All of it."));
}

TEST_F(RecognitionAheadTest, BeginsWithTheStopKeyAndIsAwaitedAfterIt)
{
    pressShortcut();
    speak(16'320);
    passSilently(3'200);
    EXPECT_FALSE(provider.isAsked()) << "a gap between two words";
    delegate.stopRecording();
    pump();
    ASSERT_TRUE(provider.isAsked()) << "the drain is waited for";
    EXPECT_FALSE(provider.isAhead) << "the user waits";
    EXPECT_EQ(provider.sampleCount, spoken);
    engines.current()->hear(1'600, 0.0001F);
    clock.advance(150ms);
    pump();
    EXPECT_FALSE(provider.stop.stop_requested());
    provider.answer(QStringLiteral("In time."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("In time."));
}

TEST_F(RecognitionAheadTest, AFailureIsTriedAgainWithTheWholeAndACancelEndsBoth)
{
    pressShortcut();
    speakAndPause();
    provider.fail(QStringLiteral("Out of memory"));
    pump();
    passSilently(1'600);
    EXPECT_FALSE(provider.isAsked()) << "it would fail at each pause";
    stopAndDrain();
    ASSERT_TRUE(provider.isAsked());
    provider.answer(QStringLiteral("After all."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("After all."));
    EXPECT_TRUE(shell.alerts.isEmpty());
    clock.advance(600ms);
    pump();

    pressShortcut();
    speakAndPause();
    stopAndDrain();
    delegate.cancelDictation();
    EXPECT_TRUE(provider.stop.stop_requested());
    EXPECT_FALSE(recorder.isBusy());
}

TEST_F(RecognitionAheadTest, AnEngineThatKeepsUpHearsWhatIsSaidAndNoPauseUntilTheUserSpeaksOn)
{
    provider.keepsUp = true;
    QStringList words;
    shell.onLauncher = [&](const Dictation& dictation) {
        QObject::connect(&dictation, &Dictation::understood, [&](const QString& text) { words << text; });
    };
    pressShortcut();
    speak(16'384);
    passSilently(0);
    EXPECT_EQ(provider.heard.back(), std::pair(std::size_t{16'384}, false));
    passSilently(8'192);
    ASSERT_TRUE(provider.heard.back().second);
    const std::size_t paused = provider.heard.back().first;
    EXPECT_LT(paused, 16'384U + 3'200);
    provider.onWords(QStringLiteral("Until here."));
    EXPECT_EQ(words, QStringList{QStringLiteral("Until here.")});
    passSilently(16'384);
    EXPECT_EQ(provider.heard.back(), std::pair(paused, true));
    speak(2'048);
    passSilently(0);
    EXPECT_EQ(provider.heard.back(), std::pair(std::size_t{16'384 + 8'192 + 16'384 + 2'048}, false));
    EXPECT_FALSE(provider.isAsked()) << "it is done already";
    EXPECT_EQ(provider.hurried, 0);
    stopAndDrain();
    EXPECT_GT(provider.hurried, 0);
    provider.answer(QStringLiteral("All."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("All."));
}

TEST_F(RecognitionAheadTest, SettingsThatChangeMakeItBeginAnew)
{
    pressShortcut();
    speakAndPause();
    provider.answer(QStringLiteral("In English."));
    pump();
    defaults.set(setting::selectedLanguage, QStringLiteral("de"));
    stopAndDrain();
    ASSERT_TRUE(provider.isAsked());
    provider.answer(QStringLiteral("Auf Deutsch."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Auf Deutsch."));
}

TEST_F(RecognitionAheadTest, WaitsForTheEndWhenSavingPowerSwitchedOffOrTooMuchWasSaid)
{
    const auto isRecognisedAhead = [this](std::size_t samples) {
        startNext();
        speak(samples);
        passSilently(8'000);
        const bool isAsked = provider.isAsked();
        delegate.cancelDictation();
        return isAsked;
    };
    EXPECT_TRUE(isRecognisedAhead(16'000));
    EXPECT_FALSE(isRecognisedAhead(30U * 16'000)) << "more than the engine does at each pause";
    session.setSavingPower(true);
    EXPECT_FALSE(isRecognisedAhead(16'000));
    session.setSavingPower(false);
    defaults.set(setting::recognizeWhileSpeaking, false);
    EXPECT_FALSE(isRecognisedAhead(16'000));
}
