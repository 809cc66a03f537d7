#include "vantro/audio/AudioRecorder.h"

#include "base/UserDefaults.h"
#include "base/testing/ManualClock.h"
#include "platform/testing/FakeAudioEngine.h"
#include "platform/testing/FakeAudioHardware.h"
#include "platform/testing/FakePermissions.h"
#include "vantro/audio/AudioDeviceManager.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace vantro;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;

namespace {

const AudioInputDevice headset{.id = 7, .uid = QStringLiteral("usb-headset"), .name = QStringLiteral("Headset")};
const AudioInputDevice builtIn{.id = 3, .uid = QStringLiteral("built-in"), .name = QStringLiteral("Built-in")};

std::vector<std::string> logLines;

void keepLogLine(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& text)
{
    logLines.push_back(text.toStdString());
}

class AudioRecorderTest : public ::testing::Test
{
protected:
    AudioRecorderTest()
    {
        logLines.clear();
        qInstallMessageHandler(keepLogLine);
        hardware.setDevices({builtIn, headset}, builtIn.id);
        QObject::connect(recorder.get(), &AudioRecorder::captureGivenUp, recorder.get(), [this] { ++givenUp; });
    }
    ~AudioRecorderTest() override { qInstallMessageHandler(nullptr); }

    [[nodiscard]] doubles::FakeAudioEngine& engine() { return *engines.current(); }

    [[nodiscard]] std::vector<float> stop()
    {
        recorder->stopRecording();
        return recorder->takeSamples();
    }
    [[nodiscard]] std::string startError()
    {
        try {
            EXPECT_FALSE(recorder->startRecording());
            return "";
        } catch (const CaptureError& error) {
            return error.what();
        }
    }
    void expectIdle() const
    {
        EXPECT_FALSE(recorder->isRecording());
        EXPECT_EQ(recorder->currentAmplitude(), 0.0F);
        EXPECT_EQ(engines.current(), nullptr) << "the microphone is still in use";
    }

    doubles::ManualClock clock;
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    doubles::FakeAudioHardware hardware;
    AudioDeviceManager devices{hardware, defaults};
    doubles::FakePermissions permissions;
    doubles::FakeAudioEngines engines;
    int givenUp = 0;
    std::unique_ptr<AudioRecorder> recorder =
        std::make_unique<AudioRecorder>(engines.factory(), devices, permissions, clock);
};

} // namespace

TEST_F(AudioRecorderTest, CapturesUntilTheSamplesAreTakenAndPublishesTheLevel)
{
    ASSERT_TRUE(recorder->startRecording());
    EXPECT_FALSE(recorder->startRecording()) << "one at a time";
    EXPECT_EQ(engine().blockFrames(), 1024U);
    engine().hear(16'000, 0.1F);
    for (int round = 0; round < 10; ++round)
        QCoreApplication::processEvents();
    EXPECT_NEAR(recorder->currentAmplitude(), 0.7F, 1e-3);
    EXPECT_TRUE(recorder->activeRecordingID().startsWith(QStringLiteral("audio-")));

    recorder->stopRecording();
    EXPECT_FALSE(recorder->isRecording());
    EXPECT_FALSE(recorder->startRecording()) << "the last word of the one before is still on its way";
    engine().hear(1'000, 0.2F);
    clock.advance(AudioRecorder::drainDelay);
    const std::vector<float> samples = recorder->takeSamples();
    EXPECT_EQ(samples.size(), 17'000U);
    EXPECT_EQ(samples.back(), 0.2F);
    EXPECT_THAT(logLines, Contains(HasSubstr("wall clock 0.15s, captured 1.06s")));
    expectIdle();
    EXPECT_TRUE(recorder->startRecording());
}

TEST_F(AudioRecorderTest, RefusesToStartWithoutPermission)
{
    permissions.microphone = false;
    EXPECT_FALSE(recorder->startRecording());
    EXPECT_EQ(engines.madeCount(), 0);
    EXPECT_THAT(logLines, ElementsAre("Microphone access not granted"));
    expectIdle();
}

TEST_F(AudioRecorderTest, ACancelThrowsEverythingAwayAlsoAfterTheStop)
{
    recorder->cancelRecording();
    for (const bool isStopped : {false, true}) {
        ASSERT_TRUE(recorder->startRecording());
        engine().hear(16'000, 0.1F);
        if (isStopped)
            recorder->stopRecording();
        recorder->cancelRecording();
        expectIdle();
        EXPECT_EQ(recorder->sampleCount(), 0U);
    }
}

TEST_F(AudioRecorderTest, TheEchoOfItsOwnSelectionIsIgnoredAndTheNextChangeRebuildsIntoTheSameSamples)
{
    devices.setInputMode(AudioInputMode::custom);
    devices.setSelectedDeviceID(headset.id);
    ASSERT_TRUE(recorder->startRecording());
    EXPECT_EQ(engine().selectedDevice(), headset.id);
    engine().hear(5'000, 0.1F);
    engine().changeConfiguration();
    EXPECT_EQ(engines.madeCount(), 1);
    engine().hear(300, 0.2F);

    hardware.setDevices({builtIn}, builtIn.id);
    engine().changeConfiguration();
    EXPECT_EQ(engines.madeCount(), 2);
    EXPECT_EQ(engine().selectedDevice(), builtIn.id);
    engine().changeConfiguration();
    EXPECT_EQ(engines.madeCount(), 2) << "the new engine has an echo of its own";
    engine().hear(700, 0.3F);

    recorder->stopRecording();
    engine().changeConfiguration();
    EXPECT_EQ(engines.madeCount(), 2) << "nothing is rebuilt for the last 150 ms";
    std::vector<float> expected(5'000, 0.1F);
    expected.insert(expected.end(), 300, 0.2F);
    expected.insert(expected.end(), 700, 0.3F);
    EXPECT_EQ(recorder->takeSamples(), expected);
}

TEST_F(AudioRecorderTest, ADeviceThatCannotBeSelectedOrTellsNoFormatDoesNotStopTheRecording)
{
    devices.setInputMode(AudioInputMode::prioritized);
    engines.settings.selectionError = QStringLiteral("gone");
    ASSERT_TRUE(recorder->startRecording());
    EXPECT_TRUE(engine().isRunning());
    EXPECT_THAT(logLines, Contains("Failed to select input device 3: gone"));
    engine().changeConfiguration();
    EXPECT_EQ(engines.madeCount(), 2) << "without a selection there is no echo to ignore";
    recorder->cancelRecording();

    engines.settings.selectionError.reset();
    engines.settings.inputFormat = {.sampleRateHz = 48'000, .channelCount = 2};
    for (const AudioFormat broken : {AudioFormat{0, 1}, AudioFormat{44'100, 0}}) {
        engines.settings.deviceFormat = broken;
        ASSERT_TRUE(recorder->startRecording());
        EXPECT_EQ(engine().tapFormat(), engines.settings.inputFormat);
        recorder->cancelRecording();
    }
}

TEST_F(AudioRecorderTest, ACaptureThatCannotStartTellsWhyAndTheNextOneWorks)
{
    engines.settings.inputFormat = {.sampleRateHz = 0, .channelCount = 2};
    EXPECT_EQ(startError(), "No usable audio input format was found.");
    expectIdle();
    engines.settings.inputFormat = {.sampleRateHz = 16'000, .channelCount = 1};
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    EXPECT_EQ(startError(), "Could not start the microphone: No microphone is connected.");
    expectIdle();

    engines.settings.startError.reset();
    EXPECT_TRUE(recorder->startRecording());
    EXPECT_TRUE(engine().isRunning());
}

TEST_F(AudioRecorderTest, AMicrophoneThatComesBackInTimeIsRecordedOn)
{
    ASSERT_TRUE(recorder->startRecording());
    engine().hear(6'000, 0.1F);
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    hardware.setDevices({}, std::nullopt);
    engine().changeConfiguration();
    clock.advance(AudioRecorder::microphonePatience - 1ms);
    engines.settings.startError.reset();
    hardware.setDevices({headset}, headset.id);
    ASSERT_NE(engines.current(), nullptr);
    EXPECT_FALSE(recorder->lostCapture());
    engine().hear(4'000, 0.2F);
    clock.advance(1ms);
    EXPECT_EQ(givenUp, 0) << "the patience of a loss that is over";

    // A loss that the user ends.
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    engine().changeConfiguration();
    recorder->stopRecording();
    clock.advance(AudioRecorder::microphonePatience);
    EXPECT_EQ(givenUp, 0);
    EXPECT_TRUE(recorder->lostCapture());
    EXPECT_EQ(recorder->takeSamples().size(), 10'000U);
    expectIdle();
}

TEST_F(AudioRecorderTest, AStalledMicrophoneIsNoticedAndRestartedAndWhatItMissedIsKnown)
{
    ASSERT_TRUE(recorder->startRecording());
    clock.advance(4s);
    EXPECT_EQ(engines.madeCount(), 1) << "a headset takes seconds to begin";
    const auto speakFor = [&](int seconds) {
        for (int i = 0; i < seconds * 4; ++i) {
            engine().hear(4'000, 0.1F);
            clock.advance(250ms);
            QCoreApplication::processEvents();
        }
    };
    speakFor(2);
    EXPECT_FALSE(recorder->isStalled());
    EXPECT_GT(recorder->currentAmplitude(), 0.0F);

    clock.advance(1250ms);
    EXPECT_TRUE(recorder->isStalled());
    EXPECT_EQ(recorder->currentAmplitude(), 0.0F);
    EXPECT_EQ(engines.madeCount(), 2);
    clock.advance(6s);
    EXPECT_TRUE(recorder->isStalled());
    EXPECT_GT(engines.madeCount(), 2);
    speakFor(2);
    EXPECT_FALSE(recorder->isStalled());
    EXPECT_EQ(stop().size(), 64'000U);
    EXPECT_NEAR(recorder->missing().count(), 7.25, 0.3);

    ASSERT_TRUE(recorder->startRecording());
    speakFor(3);
    EXPECT_EQ(stop().size(), 48'000U);
    EXPECT_LT(recorder->missing().count(), 0.3);
    expectIdle();
}

TEST_F(AudioRecorderTest, ARecordingPastTenMinutesKeepsTheFirstTen)
{
    ASSERT_TRUE(recorder->startRecording());
    for (int minute = 0; minute < 11; ++minute) {
        clock.advance(60s);
        engine().hear(960'000, static_cast<float>(minute) / 16.0F);
    }
    const std::vector<float> samples = stop();
    EXPECT_EQ(samples.size(), 9'600'000U);
    EXPECT_EQ(samples.back(), 9.0F / 16.0F);
    EXPECT_THAT(logLines, Contains(EndsWith("wall clock 660.00s, captured 600.00s (hit the 10-minute cap)")));
}

TEST_F(AudioRecorderTest, ItsEndEndsTheCapture)
{
    ASSERT_TRUE(recorder->startRecording());
    engine().hear(16'000, 0.1F);
    recorder.reset();
    EXPECT_EQ(engines.current(), nullptr);
}
