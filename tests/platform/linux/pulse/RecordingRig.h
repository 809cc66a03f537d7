#pragma once

#include "base/Notifications.h"
#include "base/UserDefaults.h"
#include "platform/Permissions.h"
#include "platform/linux/pulse/PulseAudioEngine.h"
#include "platform/linux/pulse/PulseAudioHardware.h"
#include "platform/linux/pulse/PulseConnection.h"
#include "tests/audio/FakeProcessing.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/AudioRecorder.h"

#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vantro::testing {

class ServerPermissions final : public Permissions
{
public:
    explicit ServerPermissions(PulseConnection& connection) : connection_(connection) {}
    [[nodiscard]] bool microphoneAuthorized() const override { return connection_.serverAnswers(); }
    [[nodiscard]] bool trustedForAccessibility() const override { return true; }

private:
    PulseConnection& connection_;
};

/// The program's capture side, on a server of the test's own.
struct RecordingRig
{
    static constexpr int patienceMs = 10'000;

    explicit RecordingRig(const QString& address) : connection(address)
    {
        processing.duration = std::chrono::milliseconds(0);
        QObject::connect(&recorder, &AudioRecorder::captureLost, &recorder,
                         [this](const QString& message) { lost.push_back(message.toStdString()); });
        QObject::connect(&recorder, &AudioRecorder::currentAmplitudeChanged, &recorder, [this] { ++levelCount; });
    }

    /// Waits for about @p levelChanges thirtieths of a second of sound that is not silence.
    [[nodiscard]] bool hears(int levelChanges)
    {
        return QTest::qWaitFor([&, target = levelCount + levelChanges] { return levelCount >= target; }, patienceMs);
    }
    [[nodiscard]] bool hasFinished(std::size_t count)
    {
        return QTest::qWaitFor([&] { return finished.size() >= count; }, patienceMs);
    }
    /// Ends the recording; what went into processing.
    [[nodiscard]] std::vector<float> stop()
    {
        const std::size_t before = finished.size();
        recorder.stopRecording();
        EXPECT_TRUE(hasFinished(before + 1));
        return processing.samples;
    }
    [[nodiscard]] std::string errorMessage() const
    {
        return finished.empty() ? "" : finished.back()[QStringLiteral("errorMessage")].toString().toStdString();
    }

    PulseConnection connection;
    PulseAudioHardware hardware{connection};
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    AudioDeviceManager devices{hardware, defaults};
    ServerPermissions permissions{connection};
    NotificationCenter notifications;
    SystemClock clock;
    FakeProcessing processing{clock};
    std::vector<NotificationCenter::UserInfo> finished;
    std::vector<std::string> lost;
    int levelCount = 0;
    NotificationCenter::Observation observation =
        notifications.observe(notification::recordingFinished, [this](const auto& info) { finished.push_back(info); });
    AudioRecorder recorder{[this] { return std::make_unique<PulseAudioEngine>(connection); },
                           devices,
                           permissions,
                           notifications,
                           clock,
                           processing};
};

} // namespace vantro::testing
