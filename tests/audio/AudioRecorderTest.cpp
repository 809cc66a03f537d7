#include "vantro/audio/AudioRecorder.h"

#include "base/Notifications.h"
#include "base/UserDefaults.h"
#include "base/testing/ManualClock.h"
#include "platform/testing/FakeAudioEngine.h"
#include "platform/testing/FakeAudioHardware.h"
#include "platform/testing/FakePermissions.h"
#include "tests/audio/FakeProcessing.h"
#include "vantro/audio/AudioDeviceManager.h"

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace vantro;
using ::testing::Contains;
using ::testing::Each;
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
        QObject::connect(recorder.get(), &AudioRecorder::captureLost, recorder.get(),
                         [this](const QString& message) { lost.push_back(message.toStdString()); });
    }
    ~AudioRecorderTest() override { qInstallMessageHandler(nullptr); }

    [[nodiscard]] doubles::FakeAudioEngine& engine() { return *engines.current(); }

    void advance(std::chrono::milliseconds duration)
    {
        clock.advance(duration);
        settle();
    }

    /// Lets everything happen that is due: a resumed coroutine takes a few rounds of the event loop.
    static void settle()
    {
        for (int round = 0; round < 10; ++round)
            QCoreApplication::processEvents();
    }

    /// Until the engine has ended and the job has run.
    void finishProcessing()
    {
        advance(AudioRecorder::drainDelay);
        advance(processing.duration);
    }

    void expectIdle() const
    {
        EXPECT_FALSE(recorder->isRecording());
        EXPECT_FALSE(recorder->isBusy());
        EXPECT_EQ(recorder->currentAmplitude(), 0.0F);
        EXPECT_EQ(engines.current(), nullptr) << "the microphone is still in use";
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
    int processStarts = 0;
    std::vector<NotificationCenter::UserInfo> finishes;
    std::vector<std::string> lost;
    NotificationCenter::Observation atStart =
        notifications.observe(notification::recordingProcesses, [this](const auto& info) {
            EXPECT_TRUE(info.isEmpty());
            ++processStarts;
        });
    NotificationCenter::Observation atFinish =
        notifications.observe(notification::recordingFinished, [this](const auto& info) { finishes.push_back(info); });
    std::unique_ptr<AudioRecorder> recorder =
        std::make_unique<AudioRecorder>(engines.factory(), devices, permissions, notifications, clock, processing);
};

NotificationCenter::UserInfo success(const char* text, const char* mode)
{
    return {{QStringLiteral("finalText"), QString::fromUtf8(text)},
            {QStringLiteral("processingMode"), QString::fromUtf8(mode)}};
}

NotificationCenter::UserInfo failure(const char* text, const char* mode, const QString& message)
{
    NotificationCenter::UserInfo info = success(text, mode);
    info[QStringLiteral("hasError")] = true;
    info[QStringLiteral("errorMessage")] = message;
    return info;
}

} // namespace

TEST_F(AudioRecorderTest, ADictationGoesFromTheMicrophoneToItsResultInTheModeOfTheStop)
{
    recorder->startRecording();
    EXPECT_TRUE(recorder->isRecording() && recorder->isBusy());
    EXPECT_EQ(engine().blockFrames(), 1024U);
    engine().hear(16'000, 0.1F);
    settle();
    EXPECT_NEAR(recorder->currentAmplitude(), 0.7F, 1e-3);

    recorder->setProcessingMode(ProcessingMode::Email);
    recorder->stopRecording();
    recorder->setProcessingMode(ProcessingMode::Custom);
    EXPECT_EQ(processStarts, 1);
    EXPECT_TRUE(!recorder->isRecording() && recorder->isBusy());

    advance(AudioRecorder::drainDelay - 1ms);
    ASSERT_NE(engines.current(), nullptr) << "the last word is still on its way";
    engine().hear(1'000, 0.2F);
    advance(1ms);
    EXPECT_EQ(engines.current(), nullptr);
    EXPECT_EQ(processing.samples.size(), 17'000U);
    EXPECT_EQ(processing.samples.back(), 0.2F);
    EXPECT_TRUE(processing.recordingID.startsWith(QStringLiteral("audio-"))) << processing.recordingID.toStdString();
    EXPECT_THAT(logLines, Contains(HasSubstr("wall clock 0.15s, captured 1.06s")));
    EXPECT_TRUE(recorder->isBusy() && finishes.empty());

    advance(processing.duration);
    EXPECT_THAT(finishes, ElementsAre(success("spoken words", "Email")));
    EXPECT_EQ(recorder->processingMode(), ProcessingMode::Normal);
    EXPECT_THAT(processing.events, ElementsAre("started", "prepared Email", "run"));
    expectIdle();
}

TEST_F(AudioRecorderTest, AFailedJobIsToldWithTheRawTranscript)
{
    processing.result = DictationResult(QStringLiteral("raw"), QStringLiteral("AI processing failed."));
    recorder->startRecording();
    engine().hear(16'000, 0.1F);
    recorder->stopRecording();
    finishProcessing();
    EXPECT_THAT(finishes, ElementsAre(failure("raw", "Normal", QStringLiteral("AI processing failed."))));
    expectIdle();
}

TEST_F(AudioRecorderTest, LessThanThreeTenthsOfASecondEndsWithoutTextAndWithoutError)
{
    recorder->startRecording();
    engine().hear(AudioRecorder::minimumSampleCount - 1, 0.1F);
    recorder->stopRecording();
    finishProcessing();
    EXPECT_THAT(finishes, ElementsAre(success("", "Normal")));
    EXPECT_THAT(processing.events, ElementsAre("started", "prepared Normal", "discarded"));
    expectIdle();

    recorder->startRecording();
    engine().hear(AudioRecorder::minimumSampleCount, 0.1F);
    recorder->stopRecording();
    finishProcessing();
    EXPECT_EQ(processing.samples.size(), AudioRecorder::minimumSampleCount);
}

TEST_F(AudioRecorderTest, RefusesToStartWithoutPermissionOrWhileADictationRuns)
{
    permissions.microphone = false;
    recorder->startRecording();
    EXPECT_EQ(engines.madeCount(), 0);
    EXPECT_THAT(logLines, ElementsAre("Microphone access not granted"));
    expectIdle();

    permissions.microphone = true;
    for (int press = 0; press < 10; ++press)
        recorder->startRecording();
    engine().hear(16'000, 0.1F);
    recorder->stopRecording();
    recorder->stopRecording();
    recorder->startRecording();
    advance(AudioRecorder::drainDelay);
    recorder->startRecording();
    advance(processing.duration);
    EXPECT_EQ(engines.madeCount(), 1);
    EXPECT_EQ(processStarts, 1);
    EXPECT_EQ(finishes.size(), 1U);
}

TEST_F(AudioRecorderTest, ACancelledRecordingLeavesNothingBehind)
{
    recorder->cancelRecording();
    recorder->startRecording();
    engine().hear(16'000, 0.1F);
    recorder->cancelRecording();
    expectIdle();
    finishProcessing();
    EXPECT_TRUE(finishes.empty());
    EXPECT_EQ(processStarts, 0);
    EXPECT_THAT(processing.events, ElementsAre("started", "discarded"));
}

TEST_F(AudioRecorderTest, AStoppedDictationIsDroppedOnlyWhenTheWholeDictationIsCancelled)
{
    recorder->startRecording();
    engine().hear(16'000, 0.1F);
    recorder->stopRecording();
    recorder->cancelRecording(); // what a closing launcher does
    finishProcessing();
    EXPECT_EQ(finishes.size(), 1U);

    recorder->startRecording();
    engine().hear(16'000, 0.1F);
    recorder->stopRecording();
    recorder->cancelDictation();
    expectIdle();
    EXPECT_EQ(processing.events.back(), "discarded");
    finishProcessing();
    EXPECT_EQ(finishes.size(), 1U) << "a result of the dictation that was cancelled while it drained";
    EXPECT_EQ(processing.events.back(), "discarded");
}

TEST_F(AudioRecorderTest, AStaleResultDoesNotTouchTheNextDictation)
{
    recorder->startRecording();
    engine().hear(16'000, 0.1F);
    recorder->stopRecording();
    advance(AudioRecorder::drainDelay);
    recorder->cancelDictation();
    EXPECT_EQ(processing.events.back(), "abandoned") << "the job that runs is the processing side's to end";

    recorder->setProcessingMode(ProcessingMode::Notes);
    recorder->startRecording();
    engine().hear(20'000, 0.2F);
    advance(processing.duration);
    EXPECT_TRUE(finishes.empty());
    EXPECT_TRUE(recorder->isRecording() && recorder->isBusy());
    EXPECT_EQ(recorder->processingMode(), ProcessingMode::Notes);

    recorder->stopRecording();
    finishProcessing();
    EXPECT_THAT(finishes, ElementsAre(success("spoken words", "Notes")));
    EXPECT_THAT(processing.samples, Each(0.2F));
    EXPECT_EQ(processing.samples.size(), 20'000U);
}

TEST_F(AudioRecorderTest, TheEchoOfItsOwnSelectionIsIgnoredAndTheNextChangeRebuildsIntoTheSameSamples)
{
    devices.setInputMode(AudioInputMode::custom);
    devices.setSelectedDeviceID(headset.id);
    recorder->startRecording();
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
    finishProcessing();
    std::vector<float> expected(5'000, 0.1F);
    expected.insert(expected.end(), 300, 0.2F);
    expected.insert(expected.end(), 700, 0.3F);
    EXPECT_EQ(processing.samples, expected);
    EXPECT_EQ(std::ranges::count(processing.events, "started"), 1);
}

TEST_F(AudioRecorderTest, ADeviceThatCannotBeSelectedOrTellsNoFormatDoesNotStopTheRecording)
{
    devices.setInputMode(AudioInputMode::prioritized);
    engines.settings.selectionError = QStringLiteral("gone");
    recorder->startRecording();
    EXPECT_TRUE(engine().isRunning());
    EXPECT_THAT(logLines, Contains("Failed to select input device 3: gone"));
    engine().changeConfiguration();
    EXPECT_EQ(engines.madeCount(), 2) << "without a selection there is no echo to ignore";
    recorder->cancelRecording();

    engines.settings.selectionError.reset();
    engines.settings.inputFormat = {.sampleRateHz = 48'000, .channelCount = 2};
    for (const AudioFormat broken : {AudioFormat{0, 1}, AudioFormat{44'100, 0}}) {
        engines.settings.deviceFormat = broken;
        recorder->startRecording();
        EXPECT_EQ(engine().tapFormat(), engines.settings.inputFormat);
        recorder->cancelRecording();
    }
}

TEST_F(AudioRecorderTest, ACaptureThatCannotStartIsToldAndTheNextOneWorks)
{
    recorder->setProcessingMode(ProcessingMode::Grammar);
    engines.settings.inputFormat = {.sampleRateHz = 0, .channelCount = 2};
    recorder->startRecording();
    expectIdle();
    engines.settings.inputFormat = {.sampleRateHz = 16'000, .channelCount = 1};
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    recorder->startRecording();
    expectIdle();
    EXPECT_THAT(finishes,
                ElementsAre(failure("", "Grammar", QStringLiteral("No usable audio input format was found.")),
                            failure("", "Grammar",
                                    QStringLiteral("Could not start the microphone: No microphone is connected."))));
    EXPECT_TRUE(processing.events.empty());

    engines.settings.startError.reset();
    recorder->startRecording();
    EXPECT_TRUE(engine().isRunning());
}

TEST_F(AudioRecorderTest, WhatWasSaidIsProcessedWhenTheLastMicrophoneIsLost)
{
    recorder->startRecording();
    engine().hear(6'000, 0.1F);
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    engine().changeConfiguration();
    EXPECT_TRUE(recorder->isRecording());
    advance(AudioRecorder::microphonePatience);
    EXPECT_THAT(lost, ElementsAre(EndsWith("No microphone is connected.")));
    EXPECT_EQ(processStarts, 1);
    finishProcessing();
    EXPECT_EQ(processing.samples.size(), 6'000U);
    EXPECT_THAT(finishes, ElementsAre(success("spoken words", "Normal")));
    expectIdle();
}

TEST_F(AudioRecorderTest, LosingTheMicrophoneBeforeAnythingWasSaidIsAFailure)
{
    recorder->startRecording();
    engine().hear(AudioRecorder::minimumSampleCount - 1, 0.1F);
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    engine().changeConfiguration();
    advance(AudioRecorder::microphonePatience);
    EXPECT_TRUE(lost.empty());
    EXPECT_THAT(finishes, ElementsAre(failure("", "Normal",
                                              QStringLiteral("Could not start the microphone: "
                                                             "No microphone is connected."))));
    EXPECT_THAT(processing.events, ElementsAre("started", "discarded"));
    expectIdle();
}

TEST_F(AudioRecorderTest, AMicrophoneThatComesBackInTimeIsRecordedOn)
{
    recorder->startRecording();
    engine().hear(6'000, 0.1F);
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    hardware.setDevices({}, std::nullopt);
    engine().changeConfiguration();
    advance(AudioRecorder::microphonePatience - 1ms);
    engines.settings.startError.reset();
    hardware.setDevices({headset}, headset.id);
    ASSERT_NE(engines.current(), nullptr);
    engine().hear(4'000, 0.2F);
    advance(1ms);
    EXPECT_TRUE(recorder->isRecording()) << "the patience of a loss that is over";

    // A loss that the user ends: what is there is processed, and the loss is told.
    engines.settings.startError = QStringLiteral("No microphone is connected.");
    engine().changeConfiguration();
    recorder->stopRecording();
    EXPECT_EQ(lost.size(), 1U);
    finishProcessing();
    EXPECT_EQ(processing.samples.size(), 10'000U);
    EXPECT_EQ(finishes.size(), 1U);
    advance(AudioRecorder::microphonePatience);
    expectIdle();
}

TEST_F(AudioRecorderTest, ARecordingPastTenMinutesKeepsTheFirstTen)
{
    recorder->startRecording();
    for (int minute = 0; minute < 11; ++minute) {
        clock.advance(60s);
        engine().hear(960'000, static_cast<float>(minute) / 16.0F);
    }
    recorder->stopRecording();
    finishProcessing();
    EXPECT_EQ(processing.samples.size(), 9'600'000U);
    EXPECT_EQ(processing.samples.back(), 9.0F / 16.0F);
    EXPECT_THAT(logLines, Contains(EndsWith("wall clock 660.15s, captured 600.00s (hit the 10-minute cap)")));
    EXPECT_THAT(finishes, ElementsAre(success("spoken words", "Normal")));
}

TEST_F(AudioRecorderTest, MayBeDestroyedAtEveryStage)
{
    recorder->startRecording();
    engine().hear(16'000, 0.1F);
    recorder.reset();
    EXPECT_EQ(engines.current(), nullptr);

    for (const auto untilThen : {AudioRecorder::drainDelay - 1ms, AudioRecorder::drainDelay + 1ms}) {
        recorder =
            std::make_unique<AudioRecorder>(engines.factory(), devices, permissions, notifications, clock, processing);
        recorder->startRecording();
        engine().hear(16'000, 0.1F);
        recorder->stopRecording();
        advance(untilThen);
        recorder.reset();
        EXPECT_EQ(engines.current(), nullptr);
        advance(10s);
    }
    EXPECT_TRUE(finishes.empty());
}
